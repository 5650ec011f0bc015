#include <QAction>
#include <QMenu>
#include <QPlainTextEdit>
#include <QSlider>
#include <QTextEdit>

#include "core/ui/surface_view.h"
#include "mapview/ui/pane_controls.h"
#include "tests/mapview/ui/map_program.h"

namespace vantrace {
namespace {

class WorldViewWindowTest : public ::testing::Test, public MapProgram {
  protected:
    WorldView* open() {
        WorldView* const view = MapProgram::open();
        EXPECT_NE(view, nullptr);
        return view;
    }
    static void click(QWidget* window, const char* button) {
        QTest::mouseClick(childOf<QWidget>(window, button), Qt::LeftButton);
    }
    static std::string lineOf(QWidget* window, const char* name) {
        const QWidget* const line = childOf<PaneLine>(window, name);
        return line == nullptr ? "" : line->accessibleName().toStdString();
    }
};

TEST_F(WorldViewWindowTest, ATickFillsMapAndPane) {
    WorldView* const view = open();
    EXPECT_EQ(windowOnScreen<Main>(), nullptr);
    EXPECT_EQ(view->windowTitle(), "Vantrace - Map View");
    EXPECT_EQ(lineOf(view, "RemoteStat_0"), "Please Wait.....");
    tick(view, "Timer1");
    EXPECT_EQ(lineOf(view, "RemoteStat_0"), "Satellite : ISS (ZARYA)");
    EXPECT_EQ(childOf<QMenu>(view, "M1")->actions().size(), state.FavouriteCount + 2);
    EXPECT_TRUE(childOf<QPlainTextEdit>(view, "IPtext")->toPlainText().contains("145.800"));
    const QImage frame = childOf<SurfaceView>(view, "Final")->grab().toImage();
    // The line at the top is printed in blue, over everything.
    int blue = 0;
    for (int x = 0; x < frame.width(); ++x) blue += frame.pixelColor(x, 8) == QColor(0, 0, 255) ? 1 : 0;
    EXPECT_GT(blue, 10);
    EXPECT_TRUE(fakes.logLines().empty()) << fakes.logLines().front();
    view->resize(1100, 660);
    QTest::qWait(100);
    savePicture(*view, "map");

    click(view, "BUTimode_1");
    tick(view, "Timer1");
    EXPECT_TRUE(childOf<QTextEdit>(view, "txtQuickETA")->isVisible());
    EXPECT_TRUE(
        childOf<QTextEdit>(view, "txtQuickETA")->toPlainText().startsWith("Upcoming Satellite Passes"));
    savePicture(*view, "map_coming_passes");
}

TEST_F(WorldViewWindowTest, WhatTheUserDoesReachesTheMap) {
    WorldView* const view = open();
    tick(view, "Timer1");
    childOf<QSlider>(view, "SliderWarp")->setValue(10);
    click(view, "BUTtime_1");
    EXPECT_TRUE(childOf<QAbstractButton>(view, "BUTtime_1")->isChecked());
    EXPECT_FALSE(childOf<QAbstractButton>(view, "BUTtime_0")->isChecked());
    tick(view, "Timer1");
    EXPECT_NE(map.StatusLine.find("Local : 12:40:00"), std::string::npos) << map.StatusLine;
    click(view, "BUTtime_0");
    tick(view, "Timer1");
    EXPECT_NE(map.StatusLine.find("12:30:00"), std::string::npos) << map.StatusLine;

    choose(view, "MFaveList_3");
    EXPECT_EQ(state.PrimarySatIndex, 3);
    choose(view, "Mnextsat");
    EXPECT_EQ(state.PrimarySatIndex, 4);
    auto* const final = childOf<SurfaceView>(view, "Final");
    // Where the first one is, as the map has it.
    const SurfaceSize size{final->width(), final->height()};
    const FavouriteRecord& first = state.Favourites[1];
    QTest::mouseClick(final, Qt::LeftButton, {},
                      QPointF(LongitudeToMapX(size, state.MainTag, first.Longitude),
                              LatitudeToMapY(size, state.MainTag, first.Latitude))
                          .toPoint());
    EXPECT_EQ(state.PrimarySatIndex, 1);
    QTest::mouseClick(final, Qt::RightButton);
    EXPECT_TRUE(childOf<QMenu>(view, "M1")->isVisible());
    childOf<QMenu>(view, "M1")->close();

    const int before = final->width();
    click(view, "BUTexpand");
    EXPECT_EQ(final->width(), before + 186);
    EXPECT_EQ(childOf<QWidget>(view, "IPtext")->x(), childOf<QWidget>(view, "inside")->width());
    choose(view, "Mncq");
    tick(view, "Timer1");
    EXPECT_EQ(state.MainTag, "NCQ");
    savePicture(*view, "map_region");
    EXPECT_TRUE(fakes.logLines().empty());
}

TEST_F(WorldViewWindowTest, ThePlaceOfTheWindowComesBack) {
    fakes.settings.set("WinPosX", "600");
    fakes.settings.set("WinPosY", "450");
    fakes.settings.set("WinPosW", "9000");
    fakes.settings.set("WinPosH", "6000");
    WorldView* view = open();
    EXPECT_EQ(view->size(), QSize(600, 400));
    view->resize(640, 420);
    tick(view, "Timer1");
    EXPECT_EQ(fakes.settings.get("WinPosW"), "9600");
    EXPECT_EQ(fakes.settings.get("WinPosH"), "6300");

    view->showMinimized();
    view->resize(500, 300);
    tick(view, "Timer1");
    EXPECT_EQ(fakes.settings.get("WinPosW"), "9600");
}

TEST_F(WorldViewWindowTest, ClosedOrNotWantedDuringAFrameItGivesWayToMain) {
    WorldView* view = open();
    // At one of the yields of the tick that comes.
    QTimer::singleShot(0, view, [this] { state.MainTag = "menu"; });
    tick(view, "Timer1");
    EXPECT_EQ(map.StatusLine, "") << "the routine left half-way";
    tick(view, "Timer1");
    const auto expectGone = [this] {
        settle();
        EXPECT_EQ(windowOnScreen<WorldView>(), nullptr);
        EXPECT_NE(windowOnScreen<Main>(), nullptr);
        EXPECT_FALSE(fakes.windows.isLoaded("WorldView"));
    };
    expectGone();
    choose(windowOnScreen<Main>(), "Mworldview");
    view = windowOnScreen<WorldView>();
    QTimer::singleShot(0, view, [view] { view->close(); });
    tick(view, "Timer1");
    expectGone();
}

}  // namespace
}  // namespace vantrace
