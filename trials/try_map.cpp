// Ten thousand ticks of each of the map's timers with random use between them, for scripts/try-map.
//   [SEED [TICKS]]
#include <QAction>
#include <QApplication>
#include <QMenu>
#include <QSlider>
#include <cstdlib>
#include <iostream>
#include <random>
#include <string>

#include "core/ui/surface_view.h"
#include "mapview/ui/pane_controls.h"
#include "tests/mapview/ui/map_program.h"

namespace vantrace {
namespace {

class Use {
  public:
    explicit Use(unsigned seed) : m_random(seed) {
        // Two of them: the coming passes yield two hundred times for each.
        m_program.fakes.folder.write("faves.dat", "ISS (ZARYA)\r\nNOAA 20 (JPSS-1\r\n");
    }

    int run(int ticks) {
        m_view = m_program.open();
        for (int i = 0; i < ticks; ++i) {
            pass(below(5000));
            tick(m_view, "Timer1");
            if (!isThere()) continue;
            tick(m_view, "Timer2");
            if (!isThere()) continue;
            act();
            if (i % 1000 == 999) std::cout << i + 1 << " ticks" << std::endl;
        }
        return report();
    }

  private:
    int below(int bound) { return std::uniform_int_distribution(0, bound - 1)(m_random); }
    void pass(int milliseconds) {
        m_timeMs += milliseconds;
        const DateParts start{2026, 8, 23, 10, 30, 0};
        m_program.fakes.clock.setUtc(
            dateParts(packDateTime(start) + static_cast<double>(m_timeMs) / 86400000.0), 120);
    }
    /// The window that is open now; a new one where the last has gone.
    bool isThere() {
        auto* const now = windowOnScreen<WorldView>();
        if (now != nullptr && now == m_view) return true;
        m_program.settle();
        if (QAction* const entry = windowOnScreen<Main>() == nullptr
                                       ? nullptr
                                       : windowOnScreen<Main>()->findChild<QAction*>("Mworldview")) {
            ++m_reopened;
            entry->trigger();
            m_program.settle();
        }
        m_view = windowOnScreen<WorldView>();
        if (m_view == nullptr) {
            std::cout << "the map can't be opened any more" << std::endl;
            std::exit(1);
        }
        return false;
    }
    void act() {
        static constexpr std::array entries{"Mnextsat",     "Mprevsat",
                                            "Mworld",       "Mnwq",
                                            "Mncq",         "Mneq",
                                            "Mswq",         "Mscq",
                                            "Mseq",         "MspeechONoff",
                                            "mnu3D",        "mnuHorizon",
                                            "MrecordONoff", "Mmakeannouncement"};
        static constexpr std::array buttons{"BUTexpand", "BUTtime_0", "BUTtime_1", "BUTimode_0",
                                            "BUTimode_1"};
        auto* const map = m_view->findChild<SurfaceView*>("Final");
        switch (below(12)) {
            case 0:
                return m_view
                    ->findChild<QAction*>(QLatin1String(
                        entries[static_cast<std::size_t>(below(static_cast<int>(entries.size())))]))
                    ->trigger();
            case 1:
                return m_view
                    ->findChild<QAbstractButton*>(QLatin1String(
                        buttons[static_cast<std::size_t>(below(static_cast<int>(buttons.size())))]))
                    ->click();
            case 2:
                return m_view->findChild<QSlider*>("SliderWarp")->setValue(1 + below(60));
            case 3:
                return m_view->resize(1 + below(900), 1 + below(600));
            case 4:
                return QTest::mouseClick(
                    map, Qt::LeftButton, {},
                    {below(std::max(1, map->width())), below(std::max(1, map->height()))});
            case 5:
                QTest::mouseClick(map, Qt::RightButton);
                return m_view->findChild<QMenu*>("M1")->close(), void();
            case 6:
                return below(20) == 0 ? m_view->showMinimized() : m_view->showNormal();
            case 7:
                // In the middle of the next tick, if it yields by then.
                if (below(20) == 0)
                    QTimer::singleShot(0, m_view, [this] { m_program.state.MainTag = "menu"; });
                return;
            case 8:
                if (below(20) == 0) QTimer::singleShot(0, m_view, &QWidget::close);
                return;
            case 9:
                return m_program.settle();
            default:
                return;
        }
    }
    int report() {
        const std::vector<std::string> log = m_program.fakes.logLines();
        std::cout << "opened anew " << m_reopened << " times, " << log.size() << " lines in error.log\n";
        for (std::size_t i = 0; i < std::min<std::size_t>(log.size(), 10); ++i) std::cout << log[i] << '\n';
        for (const std::string& message : m_program.fakes.dialogs.messages) std::cout << message << '\n';
        return m_program.fakes.dialogs.messages.empty() ? EXIT_SUCCESS : EXIT_FAILURE;
    }

    std::mt19937 m_random;
    MapProgram m_program;
    WorldView* m_view = nullptr;
    std::int64_t m_timeMs = 0;
    int m_reopened = 0;
};

}  // namespace
}  // namespace vantrace

int main(int argc, char** argv) {
    const QApplication application(argc, argv);
    QApplication::setQuitOnLastWindowClosed(false);
    const auto seed = static_cast<unsigned>(argc > 1 ? std::atoi(argv[1]) : 1);
    vantrace::Use use(seed);
    return use.run(argc > 2 ? std::atoi(argv[2]) : 10000);
}
