#include "app/station/station_options.h"

#include <unistd.h>

#include <cstdlib>

#include "app/program/arguments.h"
#include "app/station/single_copy.h"
#include "tests/support/temporary_folder.h"
#include "tests/support/testing.h"

namespace vantrace {
namespace {

StationOptions optionsOf(const Texts& arguments) {
    return stationOptions(parseCommandLine(stationSyntax(), arguments));
}

std::string failureOf(const std::function<void()>& action) {
    try {
        action();
    } catch (const std::exception& failure) {
        return failure.what();
    }
    return {};
}

TEST(StationOptions, HaveTheirUsualValuesAndTakeOthers) {
    const StationOptions usual = optionsOf({});
    EXPECT_EQ(usual.line.text(), "127.0.0.1:7867");
    EXPECT_EQ(usual.rotator->text(), "127.0.0.1:4533");
    EXPECT_EQ(usual.radio->text(), "127.0.0.1:4532");
    EXPECT_FALSE(usual.transmitter);
    EXPECT_EQ(usual.steering.leadSeconds, 180.0);
    EXPECT_EQ(usual.steering.atLoss, SteeringOptions::AtLoss::stay);
    std::istringstream words(
        "--rotator tower:5000 --radio none --transmitter=[::1]:4540 --azimuth -180,180 --elevation=0,180 "
        "--lead 1.5 --park 180,0 --dead-band=0.5 --tune-step 50 --line /run/vantrace-tracking --tune-always "
        "--dry --receive-vfo Main --transmit-vfo=Sub");
    Texts arguments;
    for (std::string word; words >> word;) arguments.push_back(word);
    const StationOptions own = optionsOf(arguments);
    EXPECT_EQ(own.rotator->text(), "tower:5000");
    EXPECT_FALSE(own.radio);
    EXPECT_EQ(own.transmitter->host, "::1");
    EXPECT_EQ(own.transmitter->text(), "[::1]:4540");
    EXPECT_EQ(own.steering.azimuthLimitsDeg, std::pair(-180.0, 180.0));
    EXPECT_EQ(own.steering.elevationLimitsDeg, std::pair(0.0, 180.0));
    EXPECT_EQ(own.steering.leadSeconds, 90.0);
    EXPECT_EQ(own.steering.atLoss, SteeringOptions::AtLoss::goToPark);
    EXPECT_EQ(own.steering.park.azimuthDeg, 180.0);
    EXPECT_EQ(own.deadBandDeg, 0.5);
    EXPECT_EQ(own.tuneStepHz, 50.0);
    EXPECT_TRUE(own.line.isLocal());
    EXPECT_TRUE(own.steering.tunesBelowHorizon);
    EXPECT_TRUE(own.isDry);
    EXPECT_EQ(own.vfos.receive, "Main");
    EXPECT_EQ(own.vfos.transmit, "Sub");
    EXPECT_EQ(optionsOf({"--park", "daemon"}).steering.atLoss, SteeringOptions::AtLoss::parkByDaemon);
}

TEST(StationOptions, MistakesNameTheirOption) {
    const std::vector<std::pair<std::string, Texts>> wrong{
        {"--rotator", {"nohost", ":4533", "a:0", "a:65536"}},
        {"--radio", {"a b:1", "localhost:4533"}},
        {"--azimuth", {"0", "360,0", "0,x"}},
        {"--elevation", {"0,181"}},
        {"--dead-band", {"-1"}},
        {"--lead", {"soon"}},
        {"--park", {"1,2,3", "0,181", "0,-91"}},
        {"--line", {"127.0.0.1"}},
        {"--transmitter", {"host:12x", "127.0.0.1:4532", "[::1]:4533"}},
        {"--receive-vfo", {"A B"}},
        {"--transmit-vfo", {""}}};
    for (const auto& [option, values] : wrong) {
        for (const std::string& value : values) {
            const std::string failure = failureOf([&] { optionsOf({option, value}); });
            EXPECT_TRUE(failure.starts_with(option + ":")) << value << ": " << failure;
        }
    }
    EXPECT_NE(failureOf([] { optionsOf({"--nonsense"}); }), "");
    EXPECT_NE(failureOf([] { optionsOf({"argument"}); }), "");
}

TEST(StationOptions, HelpTellsEveryOptionInLinesThatFit) {
    const ProgramSyntax syntax = stationSyntax();
    const std::string help = helpText(syntax, {});
    EXPECT_TRUE(help.starts_with("Usage: vantrace-station [OPTIONS]\n")) << help;
    for (const OptionSyntax& option : syntax.commands.front().options) {
        EXPECT_NE(help.find("\n  --" + option.name), std::string::npos) << option.name;
    }
    std::size_t start = 0;
    for (std::size_t end = help.find('\n'); end != std::string::npos; end = help.find('\n', start)) {
        EXPECT_LE(end - start, 100U) << help.substr(start, end - start);
        start = end + 1;
    }
}

TEST(StationOptions, AFileOfThemIsReadAndItsMistakesAreToldWithTheirLine) {
    const TemporaryFolder folder;
    const auto fileOf = [&](std::string_view text) {
        folder.write("station.conf", text);
        return optionsOfFile(folder.path() / "station.conf");
    };
    EXPECT_EQ(fileOf("# comment\r\n\n  rotator   tower:5000 \r\nazimuth = -180,180\n\ttune-always\n#dry"),
              (Texts{"--rotator=tower:5000", "--azimuth=-180,180", "--tune-always"}));
    for (const char* const text : {"# x\nrotor 1:2\n", "\ndata /tmp\n", "\nconf x\n", "\n--dry\n"}) {
        EXPECT_NE(failureOf([&] { fileOf(text); }).find("line 2"), std::string::npos) << text;
    }
    EXPECT_NE(failureOf([&] { fileOf(std::string(1 << 20, '#')); }), "");
    EXPECT_NE(failureOf([&] { optionsOfFile(folder.path()); }), "");
}

TEST(SingleCopyTest, ASecondOneForTheSameDaemonIsRefused) {
    const TemporaryFolder folder;
    const std::string address = "127.0.0.1:4533";
    {
        const SingleCopy first(folder.path(), address);
        EXPECT_EQ(failureOf([&] { SingleCopy(folder.path(), address); }),
                  "another vantrace-station steers 127.0.0.1:4533 already");
        EXPECT_EQ(failureOf([&] { SingleCopy(folder.path(), "127.0.0.1:4532"); }), "");
        EXPECT_EQ(holderOf(folder.path(), address), ::getpid());
        EXPECT_EQ(holderOf(folder.path(), "127.0.0.1:4532"), std::nullopt);
        EXPECT_EQ(holderOf(folder.path(), "127.0.0.1:1"), std::nullopt);
    }
    EXPECT_EQ(failureOf([&] { SingleCopy(folder.path(), address); }), "") << "the lock goes with its holder";
    folder.write("vantrace-station-" + address + ".lock", std::to_string(::getppid()) + "\n");
    EXPECT_EQ(holderOf(folder.path(), address), std::nullopt) << "a number that nobody holds is no holder";
}

}  // namespace
}  // namespace vantrace
