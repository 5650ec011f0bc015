// The recorder's own steps: countdown, commands to the sound card, and where the file ends.
#include "station/record.h"

#include "core/program_state.h"
#include "station/capture_commands.h"
#include "tests/support/fake_window.h"
#include "tests/support/test_services.h"
#include "tests/support/testing.h"

namespace vantrace {
namespace {

namespace fs = std::filesystem;

const Texts startCommands{"close all", "open", "seek", "format 8 11025 1", "record"};
const Texts stopCommands{"stop", "save 08211205.wav", "close", "close all"};

/// In a folder of its own, which is the current directory meanwhile.
class RecordTest : public ::testing::Test {
  protected:
    RecordTest() {
        fs::current_path(fakes.folder.path());
        fakes.clock.setUtc({2026, 8, 21, 10, 5, 9}, 120);
        services.windows.registerWindow("Record", [this] { return std::make_unique<FakeWindow>(window); });
        services.windows.show("Record");
    }
    ~RecordTest() override {
        services.windows.close();
        fs::current_path(before);
    }

    void startPass(std::string_view name) {
        state.Recording = true;
        StartRecording(form, state, services, name);
    }
    void tick(int seconds = 1) {
        for (int i = 0; i < seconds; ++i) Timer1_Timer(form, state, services);
    }
    /// Up to its end, with the file that the sound card will have written.
    void recordPass(std::string_view name) {
        startPass(name);
        tick(15);
        fakes.folder.write("08211205.wav", "sound");
    }
    Texts commands() { return std::exchange(fakes.capture.commands, {}); }
    bool isLoaded() { return services.windows.isLoaded("Record"); }

    const fs::path before = fs::current_path();
    WindowScript window;
    TestServices fakes;
    Services& services = fakes.services;
    ProgramState state;
    RecordForm form;
};

TEST_F(RecordTest, ThePassIsAnnouncedAndCountedDownFromFifteenToTheCapture) {
    startPass("NOAA 15");
    tick(9);
    startPass("NOAA 15");
    EXPECT_EQ(form.SecondsLeft, 15) << "a second start begins again";
    EXPECT_EQ(state.RecordingSat, "NOAA 15");
    EXPECT_EQ(form.PassStamp, "Friday, 21 August 2026 - 12 05");
    EXPECT_EQ(form.Status,
              "NOAA 15 is about to pass over, If you do not wish to record this pass, click on CANCEL");
    EXPECT_TRUE(form.Timer1.isEnabled);
    tick();
    EXPECT_EQ(form.Countdown, "Recording in 14 Seconds");
    tick(13);
    EXPECT_EQ(form.Countdown, "Recording in 1 Seconds");
    EXPECT_EQ(commands(), Texts{});
    tick();
    EXPECT_FALSE(form.Timer1.isEnabled);
    EXPECT_EQ(form.Countdown, "RECORDING NOW");
    EXPECT_EQ(form.Status, "Recording of NOAA 15 will automatically stop when Satellite goes below  Degrees");
    EXPECT_EQ(form.BUTstartstop, "Stop Now");
    EXPECT_EQ(commands(), startCommands);
    EXPECT_EQ(state.WaveRate, 11025);
    EXPECT_EQ(state.WaveChannels, 1);
    EXPECT_EQ(state.WaveBits, 8);
}

TEST_F(RecordTest, StopNowAndTheEndOfThePassSaveAndUnloadButOnlyTheLatterEndsThePass) {
    for (const auto& [stop, goesOn] : {std::pair{&BUTstartstop_Click, true}, {&StopRecording, false}}) {
        services.windows.show("Record");
        startPass("NOAA 15");
        tick(15);
        commands();
        stop(form, state, services);
        EXPECT_EQ(commands(), stopCommands);
        EXPECT_FALSE(isLoaded());
        EXPECT_EQ(state.Recording, goesOn);
    }
}

TEST_F(RecordTest, EachFailureOfTheStartIsToldAndTheNextCommandIsGiven) {
    fakes.capture.failing = {startCommands.begin(), startCommands.end()};
    startPass("NOAA 15");
    tick(15);
    EXPECT_EQ(commands(), startCommands);
    EXPECT_EQ(fakes.dialogs.messages,
              (Texts{"Closing all MCI operations failed!", "Opening new wave failed!",
                     "Starting recording failed!", "Settings for recording not consistent",
                     "Recording not possible, please restart your computer..."}));
    EXPECT_EQ(fakes.dialogs.titles, Texts(5));
    fakes.capture.failing = {stopCommands.begin(), stopCommands.end()};
    StopRecording(form, state, services);
    EXPECT_EQ(commands(), stopCommands);
    EXPECT_EQ(fakes.dialogs.messages.size(), 5u) << "the end fails quietly";
    EXPECT_FALSE(state.Recording);
}

TEST_F(RecordTest, APassThatEndsBehindAMessageGivesNoCommandAfterThat) {
    // By then the sound card may be the next pass's.
    for (const char* const failing : {"close all", "open", "seek", "record"}) {
        fakes.capture.failing = {failing};
        bool hasEnded = false;
        fakes.dialogs.onMessage = [&] {
            if (std::exchange(hasEnded, true)) return;
            StopRecording(form, state, services);
            commands();
        };
        startPass("NOAA 15");
        tick(15);
        EXPECT_TRUE(hasEnded);
        EXPECT_FALSE(isLoaded());
        EXPECT_EQ(commands(), Texts{}) << failing;
    }
}

TEST_F(RecordTest, AFileWithABlankInItsNameIsGivenInItsShortForm) {
    EXPECT_TRUE(SaveCapture(state, services, "one two.wav"));
    EXPECT_EQ(state.WaveLongName, "one two.wav");
    EXPECT_EQ(state.WaveShortName, (fs::canonical(".") / "one two.wav").string());
    EXPECT_EQ(state.WaveNameFlag, 65535);
    EXPECT_EQ(commands(), Texts{"save " + state.WaveShortName});
    EXPECT_FALSE(fs::exists("one two.wav")) << "made for the question only";
}

TEST_F(RecordTest, TheFileBearsSatelliteDateAndTimeOfTheStart) {
    startPass("NOAA 15");
    tick(15);
    fakes.clock.setUtc({2026, 8, 21, 10, 19, 0}, 120);
    fakes.folder.write("08211219.wav", "sound");
    StopRecording(form, state, services);
    EXPECT_EQ(fakes.folder.names(), Texts{"NOAA 15 - Friday, 21 August 2026 - 12 05.wav"});
}

TEST_F(RecordTest, ANameThatNoFileCanHaveLeavesTheTemporaryOne) {
    fs::create_directory("NOAA 15");
    for (const std::string& name : Texts{"NOAA 15/16", "../NOAA", std::string(300, 'N')}) {
        fs::remove("08211205.wav");
        recordPass(name);
        StopRecording(form, state, services);
        EXPECT_EQ(fakes.folder.names(), (Texts{"08211205.wav", "NOAA 15"})) << name;
        EXPECT_TRUE(fs::is_empty("NOAA 15"));
    }
    EXPECT_TRUE(fakes.dialogs.messages.empty());
}

TEST_F(RecordTest, AnEarlierRecordingOfTheNameIsKept) {
    fakes.folder.write("NOAA 15 - Friday, 21 August 2026 - 12 05.wav", "earlier");
    recordPass("NOAA 15");
    StopRecording(form, state, services);
    EXPECT_EQ(fakes.folder.read("NOAA 15 - Friday, 21 August 2026 - 12 05.wav"), "earlier");
    EXPECT_EQ(fakes.folder.read("08211205.wav"), "sound");
}

TEST_F(RecordTest, TheEndOfAPassStoppedByHandTouchesNoFile) {
    recordPass("NOAA 15/16");
    BUTstartstop_Click(form, state, services);
    ASSERT_EQ(fakes.folder.read("08211205.wav"), "sound");
    RecordForm anew;
    fakes.capture.failing = {"save 08211205.wav"};
    StopRecording(anew, state, services);
    EXPECT_EQ(fakes.folder.names(), Texts{"08211205.wav"});
    EXPECT_EQ(fakes.folder.read("08211205.wav"), "sound");
}

}  // namespace
}  // namespace vantrace
