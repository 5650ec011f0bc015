// A week with 499 favourites: each simulated hour every window is opened, receives ten ticks of each of its
// fast timers, and is closed; once a day the coming passes are worked out. For scripts/try-soak.
//   [HOURS]
#include <malloc.h>

#include <QApplication>
#include <QCheckBox>
#include <algorithm>
#include <array>
#include <cstdlib>
#include <fstream>
#include <iostream>
#include <set>
#include <string>
#include <vector>

#include "platform/text_file.h"
#include "tests/app/ui/whole_program.h"

#ifdef __SANITIZE_ADDRESS__
// GCC's runtime has it, but no header of GCC 12 tells.
extern "C" std::size_t __sanitizer_get_current_allocated_bytes();
#endif

namespace vantrace {
namespace {

struct Figures {
    /// What the program holds, and what the system has lent it; the second goes up and down.
    double inUseMb = 0;
    double residentMb = 0;
    int openFiles = 0;
};

double bytesInUse() {
#ifdef __SANITIZE_ADDRESS__
    return static_cast<double>(__sanitizer_get_current_allocated_bytes());
#else
    const struct mallinfo2 heap = mallinfo2();
    return static_cast<double>(heap.uordblks + heap.hblkhd);
#endif
}

Figures figuresNow() {
    Figures figures;
    long pages = 0;
    figures.inUseMb = bytesInUse() / 1e6;
    std::ifstream statm("/proc/self/statm");
    statm >> pages >> pages;
    figures.residentMb = static_cast<double>(pages) * 4096 / 1e6;
    for ([[maybe_unused]] const auto& file : std::filesystem::directory_iterator("/proc/self/fd"))
        ++figures.openFiles;
    return figures;
}

std::string favouritesOf(const std::filesystem::path& folder) {
    std::set<std::string> names;
    for (const auto& entry : std::filesystem::directory_iterator(folder)) {
        if (entry.path().extension() != ".txt") continue;
        const std::string text = readTextFile(entry.path(), std::size_t{64} << 20);
        std::string before;
        for (const std::string_view line : splitLines(text)) {
            // The navigation satellites get other names at the start.
            const bool isSet = line.starts_with("1 ") && line.size() == 69 && !before.empty();
            if (isSet && !before.starts_with("GPS ")) names.insert(before);
            before = line.substr(0, 15);
        }
    }
    std::string list;
    int count = 0;
    for (const std::string& name : names) {
        if (++count <= 499) list += name + "\r\n";
    }
    std::cout << std::min(count, 499) << " favourites" << std::endl;
    return list;
}

struct Round {
    const char* window;
    /// The word of `Main.Tag`; none for a window beside `Main`.
    const char* tag;
    std::array<const char*, 2> timers;
};

constexpr std::array rounds{Round{"Tabular", "tabular", {"Timer1", nullptr}},
                            Round{"Horizon", "horizon", {"Timer1Sec", "Timer5sec"}},
                            Round{"WorldView", "worldnormal", {"Timer1", nullptr}},
                            Round{"PassPrediction", "passprediction", {}},
                            Round{"PassWizard", nullptr, {}},
                            Round{"IridiumFlares", nullptr, {}},
                            Round{"Record", nullptr, {"Timer1", nullptr}},
                            Round{"frmTracker", nullptr, {"Timer1", nullptr}},
                            Round{"frmCONUpdates", nullptr, {}},
                            Round{"frmCONmain", nullptr, {}},
                            Round{"frmCON2D", nullptr, {}},
                            Round{"frmCONGroups", nullptr, {}},
                            Round{"frmCONlocations", nullptr, {}},
                            Round{"About", nullptr, {}}};

class Soak {
  public:
    int run(int hours) {
        m_program.fakes.folder.write("faves.dat", favouritesOf(m_program.fakes.folder.path()));
        m_program.start();
        for (int hour = 1; hour <= hours; ++hour) {
            for (const Round& round : rounds) live(round, hour % 24 == 12);
            m_program.fakes.clock.advanceSeconds(3600 - m_seconds);
            m_seconds = 0;
            if (hour % 24 == 0) tell(hour);
        }
        return report();
    }

  private:
    void live(const Round& round, bool isNoon) {
        if (round.tag != nullptr) m_program.state.MainTag = round.tag;
        // As from a handler: a window that goes is destroyed when the last one has ended.
        m_program.fakes.host.handle("soak", [&] { m_program.fakes.windows.show(round.window); });
        m_program.settle();
        auto* const window = dynamic_cast<QWidget*>(m_program.fakes.windows.refer(round.window));
        if (auto* const link = window->findChild<QCheckBox*>("CHonOff")) link->setChecked(true);
        for (int i = 0; i < 10; ++i) {
            for (const char* const timer : round.timers) {
                if (timer != nullptr) tick(window, timer);
            }
            tick(windowOnScreen<Main>(), "Timer1");
            m_program.fakes.clock.advanceSeconds(1);
            ++m_seconds;
        }
        // The slow clock of the map works out the coming passes.
        if (isNoon && std::string_view(round.window) == "WorldView") tick(window, "Timer2");
        m_program.fakes.dialogs.saysYes = true;
        m_program.fakes.host.handle("soak", [&] { m_program.fakes.windows.unload(round.window); });
        m_program.settle();
    }
    void tell(int hour) {
        const Figures now = figuresNow();
        m_days.push_back(now);
        std::cout << hour << " hours: " << now.inUseMb << " MB in use, " << now.residentMb << " MB resident, "
                  << now.openFiles << " open files, " << m_program.fakes.logLines().size()
                  << " lines in error.log" << std::endl;
    }
    /// Painted texts are kept until there are 2000, which takes a few days: so the greatest of the last three
    /// days is held against the greatest of three others.
    bool isGrown() const {
        if (m_days.size() < 7) return false;
        const Figures early =
            *std::ranges::max_element(m_days.begin() + 1, m_days.begin() + 4, {}, &Figures::inUseMb);
        const Figures late = *std::ranges::max_element(m_days.end() - 3, m_days.end(), {}, &Figures::inUseMb);
        return late.inUseMb > early.inUseMb * 1.05 + 2 || m_days.back().openFiles > m_days.front().openFiles;
    }
    int report() {
        for (const std::string& line : m_program.fakes.logLines()) std::cout << line << '\n';
        for (const std::string& message : m_program.fakes.dialogs.messages) std::cout << message << '\n';
        if (isGrown()) std::cout << "it has grown\n";
        const bool isTold = !m_program.fakes.logLines().empty() || !m_program.fakes.dialogs.messages.empty();
        return isGrown() || isTold ? EXIT_FAILURE : EXIT_SUCCESS;
    }

    WholeProgram m_program;
    std::vector<Figures> m_days;
    int m_seconds = 0;
};

}  // namespace
}  // namespace vantrace

int main(int argc, char** argv) {
    const QApplication application(argc, argv);
    QApplication::setQuitOnLastWindowClosed(false);
    return vantrace::Soak().run(argc > 1 ? std::atoi(argv[1]) : 168);
}
