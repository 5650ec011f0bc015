// The whole retrieval over the program's own fetcher and a real server on this machine.

#include "core/program_state.h"
#include "flares/iridium_flares.h"
#include "internet/element_server/http_fetcher.h"
#include "platform/qt/qt_http_client.h"
#include "tests/flares/flare_pages.h"
#include "tests/support/loopback_server.h"
#include "tests/support/test_services.h"
#include "tests/support/testing.h"

namespace vantrace {
namespace {

class RetrievalOverHttpTest : public ::testing::Test {
  protected:
    RetrievalOverHttpTest()
        : server([this](const HttpServer::Request&, LoopbackServer::Connection& connection) {
              connection.write(answer);
          }) {
        state.AppPath = fakes.folder.appPath();
        state.ObserverLatitude = -33.9;
        state.ObserverLongitude = 208.8;
        fakes.folder.write("hosts.dat", "flareHost=" + server.address() + "\r\n");
        fakes.folder.write("flares.dat", goodLine);
    }
    void retrieve(const std::string& served) {
        answer = served;
        fakes.dialogs.messages.clear();
        BUTgetFlares_Click(form, state, services);
    }
    bool isComplete() const { return form.Label1 == "Complete ! - Results are saved to memory"; }
    static std::string served(const std::string& page) { return httpAnswer("200 OK", page); }
    const std::string goodLine = "05 JAN;21:05:33;-3;34;254;12.3 km;-8;Iridium 23\r\n";

    std::string answer;
    HttpServer server;
    TestServices fakes;
    ProgramState state;
    QtHttpClient client{"Vantrace/0"};
    HttpFetcher fetcher{client, fakes.clock, state, [](std::string_view) {}};
    Services services{fakes.clock,   fakes.events,         fakes.settings,      fakes.speech,
                      fakes.dialogs, fakes.desktop,        fakes.displayMode,   fakes.process,
                      fakes.capture, fakes.pictures,       fakes.textPainter,   fakes.printer,
                      fetcher,       fakes.timeClient,     fakes.linePublisher, fakes.errorLog,
                      fakes.windows, fakes.services.format};
    IridiumFlaresForm form;
};

TEST_F(RetrievalOverHttpTest, AGoodPageBecomesTheList) {
    retrieve(served(pageStart + flareRow() + flareRow({"6 Jan", "1:02:03", "Iridium 9"}) + pageEnd));
    EXPECT_TRUE(isComplete()) << form.txtHTML;
    EXPECT_TRUE(fakes.dialogs.messages.empty());
    EXPECT_EQ(fakes.folder.read("flares.dat"),
              goodLine + "06 JAN;01:02:03;-3;34;254;12.3 km;-8;Iridium 9\r\n");
    EXPECT_FALSE(fakes.folder.exists("flares.tmp"));
    ASSERT_EQ(server.requests().size(), 1U);
    EXPECT_EQ(server.requests()[0].target,
              "/iridium.asp?lat=-33.9&lng=151.2&alt=0&loc=Unspecified&TZ=UCT&Dur=7");
}

TEST_F(RetrievalOverHttpTest, ByWayOfTheProxyTheWholeAddressIsAsked) {
    fakes.folder.write("hosts.dat", "flareHost=flares.example\r\n");
    fakes.settings.set("ProxyON", "1");
    fakes.settings.set("ProxyHost", "127.0.0.1");
    fakes.settings.set("ProxyPort", std::to_string(server.port()));
    retrieve(served(pageStart + pageEnd));
    EXPECT_TRUE(isComplete());
    ASSERT_EQ(server.requests().size(), 1U);
    EXPECT_TRUE(server.requests()[0].target.starts_with("http://flares.example/iridium.asp?lat="));
    EXPECT_EQ(fakes.folder.read("flares.dat"), "");
}

TEST_F(RetrievalOverHttpTest, AFailedFetchIsToldBeforeThePageThatIsMissing) {
    const std::string page = pageStart + flareRow() + pageEnd;
    const Texts answers{httpAnswer("404 Not Found", page), "",
                        "HTTP/1.1 200 OK\r\nContent-Length: 100000\r\n\r\n" + page};
    for (const std::string& each : answers) {
        retrieve(each);
        EXPECT_FALSE(isComplete()) << each;
        ASSERT_EQ(fakes.dialogs.messages.size(), 2U) << each;
        EXPECT_TRUE(
            fakes.dialogs.messages[0].starts_with("An error happend when getting the data from Orbisky : "));
        EXPECT_TRUE(fakes.dialogs.messages[1].starts_with("There was a problem with the Flare Results"));
        EXPECT_EQ(fakes.folder.read("flares.dat"), goodLine);
    }
    retrieve(answers[0]);
    EXPECT_TRUE(fakes.dialogs.messages[0].ends_with(" (404)")) << fakes.dialogs.messages[0];
}

TEST_F(RetrievalOverHttpTest, WhateverComesTheProgramLivesAndTheOldFlaresStay) {
    const std::string page = pageStart + flareRow() + pageEnd;
    const std::size_t tenMegabytes = 10'000'000;
    const Texts pages{
        "",
        page.substr(0, page.find("12.3")),  // cut short within a cell
        std::string(tenMegabytes, '\0'),
        page + std::string(tenMegabytes, 'x') + "<p>5 Jan<",  // a good table in front
        "<p>5 Jan<" + pageStart + flareRow(),                 // round and round
        "\xFF\xFE" + std::string("i\0s\0t\0a\0n\0c\0e\0", 14),
    };
    for (const std::string& each : pages) {
        const auto start = std::chrono::steady_clock::now();
        retrieve(served(each));
        EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(20));
        EXPECT_EQ(isComplete(), each.starts_with(page));
        EXPECT_EQ(fakes.dialogs.messages.size(), isComplete() ? 0U : 1U);
        EXPECT_EQ(fakes.folder.read("flares.dat"), goodLine);
        std::filesystem::remove(fakes.folder.path() / "flares.tmp");
    }
}

}  // namespace
}  // namespace vantrace
