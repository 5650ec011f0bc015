// Fetches for scripts/try-fetch, with all that the tracker fetches with:
//   serve FOLDER            is an element server with 30 groups, each in two editions that take turns; tells
//                           its port, and lays both editions, as they should arrive, into the folder
//   update FOLDER           fetches the 30 groups into the program folder, by the server of its hosts.dat
//   fetch URL FILE [HOST PORT USER PASSWORD]
//                           fetches one file, by a proxy where one is named; tells what went wrong
// With "trust=FILE" in front the certificates of that file are trusted beside those of the machine.
#include <QCoreApplication>
#include <QSslCertificate>
#include <QSslConfiguration>
#include <fstream>
#include <iostream>
#include <map>
#include <mutex>
#include <string>
#include <thread>
#include <vector>

#include "core/hosts.h"
#include "core/program_state.h"
#include "internet/element_server/http_fetcher.h"
#include "internet/omm/three_line_conversion.h"
#include "platform/qt/qt_http_client.h"
#include "platform/system_clock.h"
#include "platform/text_file.h"
#include "tests/support/loopback_server.h"

namespace vantrace {
namespace {

using namespace std::chrono_literals;

constexpr int groups = 30;

/// The real sets of a group, in one order or the other, so that two editions differ everywhere.
std::string threeLines(int group, int edition) {
    static const std::string all = readTextFile(std::string(VANTRACE_SHIPPED_FOLDER) + "/geo.txt", 1 << 20);
    const std::vector<std::string_view> lines = splitLines(all);
    std::string text;
    for (std::size_t i = 0; i + 2 < lines.size(); i += 3) {
        const std::size_t at = edition == 0 ? i : lines.size() / 3 * 3 - 3 - i;
        if ((at / 3 + static_cast<std::size_t>(group)) % 3 == 0) continue;
        for (std::size_t j = 0; j < 3; ++j) text += std::string(lines[at + j]) + "\r\n";
    }
    return text;
}

std::string messages(int group, int edition) {
    std::string text =
        "OBJECT_NAME,OBJECT_ID,EPOCH,MEAN_MOTION,ECCENTRICITY,INCLINATION,RA_OF_ASC_NODE,ARG_OF_PERICENTER,"
        "MEAN_ANOMALY,EPHEMERIS_TYPE,CLASSIFICATION_TYPE,NORAD_CAT_ID,ELEMENT_SET_NO,REV_AT_EPOCH,BSTAR,"
        "MEAN_MOTION_DOT,MEAN_MOTION_DDOT\r\n";
    for (int i = 0; i < 300; ++i) {
        text += "SAT " + std::to_string(group) + "-" + std::to_string(i) + ",1998-067A,2026-08-0" +
                std::to_string(1 + edition) + "T01:17:37.872384,15.49359774,.00072161,51." +
                std::to_string(1000 + i) + ",53.3065,17.1615,342.9616,0,U," + std::to_string(10000 + i) +
                ",999,57948,.7969016E-4,.3997E-4,0\r\n";
    }
    return text;
}

/// What the server sends, and what should be in the file.
std::string sent(int group, int edition) {
    return group % 2 == 0 ? threeLines(group, edition) : messages(group, edition);
}
std::string expected(int group, int edition) {
    const std::string content = sent(group, edition);
    return group % 2 == 0 ? content : threeLinesFromMessages(content).text;
}

int serve(const std::string& folder) {
    for (int group = 0; group < groups; ++group) {
        for (int edition = 0; edition < 2; ++edition) {
            std::ofstream(folder + "/g" + std::to_string(group) + "." + std::to_string(edition),
                          std::ios::binary)
                << expected(group, edition);
        }
    }
    std::mutex mutex;
    std::map<int, int> asked;
    const HttpServer server([&](const HttpServer::Request& request, LoopbackServer::Connection& connection) {
        const std::string start = "/NORAD/elements/gp.php?GROUP=g";
        if (!request.target.starts_with(start)) {
            connection.write(httpAnswer("200 OK", "a page\n"));
            return;
        }
        const int group = std::atoi(request.target.c_str() + start.size());
        int edition = 0;
        {
            const std::lock_guard lock(mutex);
            edition = asked[group]++ % 2;
        }
        const std::string answer = httpAnswer("200 OK", sent(group, edition));
        // In pieces, so that whoever asks is often killed in the middle.
        for (std::size_t at = 0; at < answer.size(); at += 16384) {
            connection.write(std::string_view(answer).substr(at, 16384));
            connection.pause(1ms);
        }
    });
    std::cout << server.port() << std::endl;
    while (true) std::this_thread::sleep_for(1h);
}

void tell(const std::optional<FetchError>& error) {
    if (error) {
        std::cout << error->message << " (" << error->code << ")" << std::endl;
    } else {
        std::cout << "ok" << std::endl;
    }
}

/// The tracker's fetcher, over a program folder.
class Program {
  public:
    explicit Program(const std::string& folder) { m_state.AppPath = folder + "/"; }

    int update() {
        const std::string start = "http://" + readHosts(m_state).elementHost + "/NORAD/elements/g";
        for (int group = 0; group < groups; ++group) {
            const std::string name = std::to_string(group) + ".txt";
            tell(m_fetcher.FetchToFile(start + name, m_state.AppPath + "g" + name));
        }
        return 0;
    }
    int fetch(const std::vector<std::string>& words) {
        tell(words.size() < 6
                 ? m_fetcher.FetchToFile(words[0], words[1])
                 : m_fetcher.FetchToFileViaProxy(words[0], words[1], words[2], words[3], words[4], words[5]));
        return 0;
    }

  private:
    SystemClock m_clock;
    ProgramState m_state;
    QtHttpClient m_http{"Vantrace/try"};
    HttpFetcher m_fetcher{m_http, m_clock, m_state,
                          [](std::string_view text) { std::cout << text << std::endl; }};
};

void trust(const QString& file) {
    QSslConfiguration configuration = QSslConfiguration::defaultConfiguration();
    configuration.addCaCertificates(QSslCertificate::fromPath(file));
    QSslConfiguration::setDefaultConfiguration(configuration);
}

}  // namespace
}  // namespace vantrace

int main(int count, char** arguments) {
    const QCoreApplication application(count, arguments);
    std::vector<std::string> words(arguments + 1, arguments + count);
    if (!words.empty() && words[0].starts_with("trust=")) {
        vantrace::trust(QString::fromStdString(words[0].substr(6)));
        words.erase(words.begin());
    }
    if (words.size() == 2 && words[0] == "serve") return vantrace::serve(words[1]);
    if (words.size() == 2 && words[0] == "update") return vantrace::Program(words[1]).update();
    if ((words.size() == 3 || words.size() == 7) && words[0] == "fetch") {
        words.erase(words.begin());
        return vantrace::Program(".").fetch(words);
    }
    std::cerr << "unknown arguments\n";
    return 2;
}
