#include "horizon/ui/horizon_window.h"

#include "core/ui/surface_view.h"
#include "tests/support_qt/view_program.h"

namespace vantrace {
namespace {

class HorizonWindowTest : public ::testing::Test, public ViewProgram {
  protected:
    HorizonWindowTest() {
        fakes.windows.registerWindow(
            "Horizon", [this] { return std::make_unique<Horizon>(fakes.host, state, services); });
    }
    Horizon* open() {
        start();
        choose(windowOnScreen<Main>(), "Mpanoramic");
        auto* const window = windowOnScreen<Horizon>();
        EXPECT_NE(window, nullptr);
        return window;
    }
    static QImage frameOf(Horizon* window) { return childOf<SurfaceView>(window, "Final")->grab().toImage(); }
};

TEST_F(HorizonWindowTest, ATickPaintsTheSkyOfThisMoment) {
    Horizon* const window = open();
    EXPECT_EQ(windowOnScreen<Main>(), nullptr);
    EXPECT_EQ(window->windowTitle(), "Vantrace - Panoramic Horizon View");
    tick(window, "Timer1Sec");
    EXPECT_NE(state.PrimarySatIndex, 0) << "something is up at any time";
    EXPECT_TRUE(fakes.logLines().empty()) << fakes.logLines().front();
    savePicture(*window, "horizon_day");
    const QImage southern = frameOf(window);
    choose(window, "Mnorth");
    tick(window, "Timer1Sec");
    EXPECT_NE(frameOf(window), southern);
    fakes.clock.setUtc({2026, 8, 23, 19, 10, 0}, 120);
    window->resize(1100, 620);
    QTest::qWait(100);
    tick(window, "Timer1Sec");
    savePicture(*window, "horizon_evening");
}

TEST_F(HorizonWindowTest, MouseMenusAndSizeReachTheSky) {
    Horizon* const window = open();
    tick(window, "Timer1Sec");
    state.PrimarySatIndex = 0;
    QTest::mouseClick(childOf<SurfaceView>(window, "Final"), Qt::LeftButton, {}, {200, 200});
    EXPECT_NE(state.PrimarySatIndex, 0);
    EXPECT_FALSE(childOf<QAction>(window, "Mposannounce")->isChecked());
    choose(window, "Mposannounce");
    EXPECT_TRUE(childOf<QAction>(window, "Mposannounce")->isChecked());
    EXPECT_EQ(childOf<QTimer>(window, "Timer5sec")->interval(), 8000);
    tick(window, "Timer5sec");
    EXPECT_EQ(childOf<QTimer>(window, "Timer5sec")->interval(), 9000);
    window->resize(500, 300);
    const QImage stretched = frameOf(window);
    QTest::qWait(100);
    EXPECT_NE(frameOf(window), stretched) << "painted anew for its size";

    window->close();
    settle();
    EXPECT_EQ(windowOnScreen<Horizon>(), nullptr);
    EXPECT_NE(windowOnScreen<Main>(), nullptr);
}

}  // namespace
}  // namespace vantrace
