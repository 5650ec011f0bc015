#include "station/ui/record_window.h"

#include <QPushButton>

#include "core/program_state.h"
#include "tests/support_qt/window_test.h"

namespace vantrace {
namespace {

/// The window as the map finds it, over a sound card that only notes what it is told.
class RecordWindowTest : public ::testing::Test {
  protected:
    RecordWindowTest() {
        std::filesystem::current_path(fakes.folder.path());
        fakes.clock.setUtc({2026, 8, 21, 10, 5, 0}, 120);
        fakes.windows.registerWindow(
            "Record", [this] { return std::make_unique<Record>(fakes.host, state, fakes.withHost); });
    }
    ~RecordWindowTest() override { std::filesystem::current_path("/"); }

    RecordWindow* recordWindow() { return dynamic_cast<RecordWindow*>(fakes.windows.refer("Record")); }
    Record* startPass() {
        state.Recording = true;
        fakes.windows.show("Record");
        recordWindow()->StartRecording("NOAA 15");
        return windowOnScreen<Record>();
    }
    static void click(Record* window, const char* button) {
        QTest::mouseClick(childOf<QPushButton>(window, button), Qt::LeftButton);
    }
    static void ticks(Record* window, int seconds) {
        for (int i = 0; i < seconds; ++i) tick(window, "Timer1");
    }
    bool hasSaved() const {
        const auto& commands = fakes.capture.commands;
        return std::ranges::count(commands, "save 08211205.wav") == 1;
    }

    WindowTestServices fakes;
    ProgramState state;
};

TEST_F(RecordWindowTest, CountsDownRecordsAndStopsWithThePassAndShowsItBesideAFailureToo) {
    Record* const window = startPass();
    ASSERT_NE(window, nullptr);
    EXPECT_EQ(window->windowTitle().toStdString(), "Weather Satellite Signal Recorder");
    EXPECT_EQ(textOf(window, "BUTcancel"), "Cancel");
    EXPECT_EQ(textOf(window, "BUTstartstop"), "Start Now");
    EXPECT_TRUE(childOf<QTimer>(window, "Timer1")->isActive());
    ticks(window, 1);
    EXPECT_EQ(textOf(window, "Countdown"), "Recording in 14 Seconds");
    savePicture(*window, "record-countdown");
    fakes.capture.failing = {"record"};
    const auto expectRecording = [&] {
        EXPECT_EQ(textOf(window, "Countdown"), "RECORDING NOW");
        EXPECT_EQ(textOf(window, "BUTstartstop"), "Stop Now");
        EXPECT_FALSE(childOf<QTimer>(window, "Timer1")->isActive());
    };
    fakes.dialogs.onMessage = expectRecording;  // while a failure is told
    ticks(window, 14);
    EXPECT_EQ(fakes.dialogs.messages.size(), 1U);
    expectRecording();
    savePicture(*window, "record-recording");
    recordWindow()->StopRecording();
    QTest::qWait(1);
    EXPECT_FALSE(fakes.windows.isLoaded("Record"));
    EXPECT_TRUE(hasSaved());
    EXPECT_FALSE(state.Recording);
}

TEST_F(RecordWindowTest, TheButtonsStartAndStopByHand) {
    Record* const window = startPass();
    click(window, "BUTstartstop");
    EXPECT_EQ(textOf(window, "BUTstartstop"), "Stop Now");
    EXPECT_TRUE(fakes.capture.commands.empty());
    ticks(window, 1);
    EXPECT_EQ(textOf(window, "Countdown"), "RECORDING NOW") << "that tick is the last";
    click(window, "BUTstartstop");
    QTest::qWait(1);
    EXPECT_EQ(windowOnScreen<Record>(), nullptr);
    EXPECT_TRUE(hasSaved());
    EXPECT_TRUE(state.Recording);
}

TEST_F(RecordWindowTest, KeysTypedWhenItComesUpPressNothing) {
    Record* const window = startPass();
    for (const int key : {Qt::Key_Space, Qt::Key_Return, Qt::Key_Escape})
        QTest::keyClick(window, Qt::Key(key));
    ticks(window, 1);
    EXPECT_EQ(textOf(window, "Countdown"), "Recording in 14 Seconds");
    QTest::keyClick(window, Qt::Key_Tab);
    EXPECT_EQ(window->focusWidget(), childOf<QPushButton>(window, "BUTstartstop"));
}

TEST_F(RecordWindowTest, CancelHidesItAndTheEndOfThePassPutsItAway) {
    Record* const window = startPass();
    click(window, "BUTcancel");
    EXPECT_EQ(windowOnScreen<Record>(), nullptr);
    EXPECT_FALSE(childOf<QTimer>(window, "Timer1")->isActive());
    EXPECT_TRUE(fakes.capture.commands.empty());
    EXPECT_TRUE(state.Recording) << "so that the pass isn't started again";
    recordWindow()->StopRecording();
    EXPECT_FALSE(fakes.windows.isLoaded("Record"));
    EXPECT_FALSE(state.Recording);
}

TEST_F(RecordWindowTest, ClosedByItsFrameItCancelsACountdownAndSavesARecordingOnce) {
    Record* window = startPass();
    window->close();
    QTest::qWait(1);
    EXPECT_FALSE(fakes.windows.isLoaded("Record"));
    EXPECT_TRUE(fakes.capture.commands.empty());
    window = startPass();
    ticks(window, 15);
    window->close();
    QTest::qWait(1);
    EXPECT_FALSE(fakes.windows.isLoaded("Record"));
    EXPECT_TRUE(hasSaved());
    EXPECT_TRUE(state.Recording) << "the pass isn't over, and isn't recorded twice";
}

TEST_F(RecordWindowTest, WithoutTheSkinAndWithALongNameEverythingHasItsPlace) {
    fakes.settings.set("Skin", "0");
    fakes.windows.show("Record");
    recordWindow()->StartRecording("METEOR-M2 3 <b>WITH A NAME THAT NEVER SEEMS TO END</b>");
    Record* const window = windowOnScreen<Record>();
    ASSERT_NE(window, nullptr);
    auto* const status = childOf<QLabel>(window, "Status");
    EXPECT_EQ(status->textFormat(), Qt::PlainText);
    savePicture(*window, "record-without-skin");
    EXPECT_GE(status->height(), status->heightForWidth(status->width()));
}

}  // namespace
}  // namespace vantrace
