#include "station/ui/tracker_window.h"

#include <QCheckBox>
#include <QComboBox>
#include <QLineEdit>
#include <QPushButton>

#include "core/program_state.h"
#include "orbit/orbit_engine.h"
#include "tests/station/tracker_test.h"
#include "tests/support_qt/window_test.h"

namespace vantrace {
namespace {

/// The window as the map opens it.
class TrackerWindowTest : public ::testing::Test {
  protected:
    TrackerWindowTest() {
        fakes.clock.setUtc({2026, 8, 21, 20, 19, 20}, 120);
        fakes.folder.write("stations.txt", testElements);
        fakes.folder.write("satellite.dat", trackedFrequencies);
        state.AppPath = fakes.folder.appPath();
        state.OrbitEngine = std::make_shared<OrbitEngine>(&fakes.clock);
        state.OrbitEngine->EngineSetKepPath(state.AppPath);
        state.OrbitEngine->EngineSetLatitude(52.0);
        state.OrbitEngine->EngineSetLongitude(5.0);
        fakes.windows.registerWindow(
            "frmTracker", [this] { return std::make_unique<frmTracker>(fakes.host, state, fakes.withHost); });
    }

    frmTracker* open() {
        fakes.host.handle("test", [&] {
            fakes.windows.refer("frmTracker");
            state.TrackerTag = "ISS (ZARYA)";
            fakes.windows.show("frmTracker");
        });
        return windowOnScreen<frmTracker>();
    }
    frmTracker* openOn() {
        frmTracker* const window = open();
        choose(window, "CHonOff");
        tick(window, "Timer1");
        return window;
    }
    static void choose(frmTracker* window, const char* box) { childOf<QCheckBox>(window, box)->click(); }

    WindowTestServices fakes;
    ProgramState state;
};

TEST_F(TrackerWindowTest, ShowsAndPublishesThePassWhileTheLinkIsOn) {
    frmTracker* const window = open();
    ASSERT_NE(window, nullptr);
    EXPECT_EQ(textOf(window, "CHonOff"), "&Enable DDE Link");
    EXPECT_EQ(textOf(window, "CHtrackMoon"), "Track &Moon Instead of Selected Satellite");
    auto* const timer = childOf<QTimer>(window, "Timer1");
    EXPECT_FALSE(timer->isActive());
    savePicture(*window, "tracker-off");
    choose(window, "CHonOff");
    EXPECT_TRUE(timer->isActive());
    EXPECT_EQ(timer->interval(), 1000);
    tick(window, "Timer1");
    EXPECT_EQ(textOf(window, "lblSelSat"), "ISS (ZARYA)");
    EXPECT_EQ(childOf<QComboBox>(window, "COMuplink")->currentText().toStdString(), "145.990");
    EXPECT_EQ(childOf<QComboBox>(window, "COMdownlink")->count(), 3);
    EXPECT_EQ(textOf(window, "Tracking"), fakes.linePublisher.lines.back());
    EXPECT_TRUE(textOf(window, "Tracking").starts_with("SNISS_(ZARYA) AZ"));
    savePicture(*window, "tracker");
    choose(window, "CHonOff");
    EXPECT_FALSE(timer->isActive());
    EXPECT_EQ(textOf(window, "Tracking"), "");
}

TEST_F(TrackerWindowTest, WhatIsTypedIsTakenAndLeftAloneWhileItIsTyped) {
    frmTracker* const window = openOn();
    auto* const downlink = childOf<QComboBox>(window, "COMdownlink");
    downlink->setEditText("437.550");
    downlink->lineEdit()->setCursorPosition(3);
    tick(window, "Timer1");
    EXPECT_EQ(downlink->currentText().toStdString(), "437.550");
    EXPECT_EQ(downlink->lineEdit()->cursorPosition(), 3);
    EXPECT_EQ(textOf(window, "lblDownlink").substr(0, 4), "437.");
    for (const char* const name : {"COMuplink", "COMdownlink"}) {
        auto* const box = childOf<QComboBox>(window, name);
        box->addItem("437.550");
        box->lineEdit()->clear();
        QTest::keyClicks(box->lineEdit(), "437.5");
        EXPECT_EQ(box->currentText().toStdString(), "437.5") << name << " completes to what isn't meant";
    }
}

TEST_F(TrackerWindowTest, NeitherEscapeNorTheWheelEndsWhatIsTracked) {
    frmTracker* const window = openOn();
    auto* const downlink = childOf<QComboBox>(window, "COMdownlink");
    const QString before = downlink->currentText();
    EXPECT_NE(downlink->focusPolicy(), Qt::WheelFocus);
    turnWheel(*downlink);
    turnWheel(*downlink->lineEdit());
    turnWheel(*childOf<QComboBox>(window, "COMuplink"));
    EXPECT_EQ(downlink->currentText(), before);
    EXPECT_EQ(childOf<QComboBox>(window, "COMuplink")->currentText().toStdString(), "145.990");
    downlink->setFocus();
    QTest::keyClick(downlink, Qt::Key_Escape);
    QTest::keyClick(window, Qt::Key_Escape);
    QTest::qWait(1);
    EXPECT_EQ(windowOnScreen<frmTracker>(), window);
    EXPECT_TRUE(childOf<QTimer>(window, "Timer1")->isActive());
}

TEST_F(TrackerWindowTest, TheMoonWithoutTheSkin) {
    fakes.settings.set("Skin", "0");
    frmTracker* const window = open();
    choose(window, "CHonOff");
    choose(window, "CHtrackMoon");
    tick(window, "Timer1");
    EXPECT_EQ(textOf(window, "lblSelSat"), "Moon");
    EXPECT_EQ(textOf(window, "lblUplink"), "Manual");
    savePicture(*window, "tracker-moon-without-skin");
}

TEST_F(TrackerWindowTest, AWindowThatIsOpenedAgainFillsItsDropDownsAgain) {
    for (int i = 0; i < 2; ++i) {
        frmTracker* const window = openOn();
        EXPECT_EQ(childOf<QComboBox>(window, "COMuplink")->count(), 2);
        window->close();
        QTest::qWait(1);
        EXPECT_FALSE(fakes.windows.isLoaded("frmTracker"));
        EXPECT_EQ(fakes.linePublisher.lines.back(), "");
    }
}

TEST_F(TrackerWindowTest, TheStationProgramIsStartedFromTheProgramFolderAndAMissingOneIsTold) {
    auto* const button = childOf<QPushButton>(open(), "BUTwisp");
    QTest::mouseClick(button, Qt::LeftButton);
    EXPECT_EQ(fakes.dialogs.messages,
              (Texts{"WiSP-DDE is not installed, it must be in the Vantrace folder."}));
    EXPECT_TRUE(fakes.desktop.started.empty());
    fakes.folder.write("wispdde.exe", "#!/bin/sh\n");
    QTest::mouseClick(button, Qt::LeftButton);
    EXPECT_EQ(fakes.desktop.started, (Texts{state.AppPath + "wispdde.exe"}));
    EXPECT_EQ(fakes.dialogs.messages.size(), 1U);
    fakes.desktop.failure = "can't be run";
    QTest::mouseClick(button, Qt::LeftButton);
    EXPECT_EQ(fakes.dialogs.messages.size(), 2U) << "a failed start is told, and the program lives";
}

}  // namespace
}  // namespace vantrace
