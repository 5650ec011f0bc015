#include "internet/element_update.h"

#include <sys/stat.h>
#include <unistd.h>

#include "tests/internet/updates_test.h"
#include "tests/support/testing.h"

namespace vantrace {
namespace {

using ElementUpdateTest = UpdatesTest;
using CheckKepFileTest = UpdatesTest;

constexpr std::string_view line1 = "1 25544U 98067A   26233.53315667  .00008864  00000+0  16558-3 0  9995";
constexpr std::string_view line2 = "2 25544  51.6331 336.6713 0007673  69.9303 290.2511 15.49551867581884";
constexpr std::string_view standIn1 = "1 27061U 01058G   02011.88736545  .00000026  00000-0  10000-3 0   117";
constexpr std::string_view standIn2 = "2 27061  82.5405 165.3114 0041850 199.5013 160.4475 12.53888826  1840";

TEST_F(ElementUpdateTest, EveryGroupButThoseKeptByHandIsFetchedMendedAndTold) {
    addGroup("Stations", "celestrak.org/NORAD/stations.txt", "0");
    addGroup("Mine", "mine.txt", "1");
    addGroup("Odd", "host/gp.php?GROUP=odd", "x");
    addGroup("No folder", "lonely.example", "");
    fakes.fetcher.onFetch = [this](const FakeFetcher::Request& request) {
        // 1536 bytes, so that half a unit shows.
        fakes.folder.write(std::filesystem::path(request.file).filename(), std::string(1534, 'x') + "\r\n");
        return std::optional<FetchError>();
    };
    int yields = 0;
    std::string seenFirst;
    fakes.events.onYield = [&] {
        if (yields++ == 0) seenFirst = form.txtStatus;
    };
    form.txtStatus = "Before\r\n";
    BUTupdateKeps_Click(form, state, fakes.services);

    EXPECT_EQ(seenFirst, "Before\r\nUpdating Keplerian Elements...\r\n");
    EXPECT_EQ(yields, 4) << "one, and one a group";
    ASSERT_EQ(fakes.fetcher.requests.size(), 3U);
    EXPECT_EQ(fakes.fetcher.requests[0].url, "http://celestrak.org/NORAD/stations.txt");
    EXPECT_EQ(fakes.fetcher.requests[0].file, state.AppPath + "stations.txt");
    EXPECT_TRUE(fakes.fetcher.requests[0].proxy.empty());
    EXPECT_EQ(fakes.fetcher.requests[1].file, state.AppPath + "gp.php?GROUP=odd");
    EXPECT_EQ(fakes.fetcher.requests[2].file, state.AppPath + "lonely.example");
    EXPECT_EQ(form.txtStatus,
              "Before\r\nUpdating Keplerian Elements...\r\n"
              "http://celestrak.org/NORAD/stations.txt   -  Size : 1.5 Kb OK\r\n"
              "http://host/gp.php?GROUP=odd   -  Size : 1.5 Kb OK\r\n"
              "http://lonely.example   -  Size : 1.5 Kb OK\r\n"
              "Done.\r\n");
    EXPECT_EQ(fakes.speech.texts, Texts{"3 Groups Updated."});
    EXPECT_TRUE(fakes.dialogs.messages.empty());
    EXPECT_FALSE(form.isWorking);
}

TEST_F(ElementUpdateTest, TheProxyIsThatOfTheFieldsAndNotOfTheSettings) {
    addGroup("Stations", "host/stations.txt", "0");
    fakes.settings.set("ProxyHost", "saved");
    form.OPproxyON = {false, true};
    form.txtProxyHost = "proxy.example";
    form.txtProxyPort = "3128";
    form.txtProxyUser = "anna";
    form.txtProxyPass = "secret";
    serve("");
    BUTupdateKeps_Click(form, state, fakes.services);
    ASSERT_EQ(fakes.fetcher.requests.size(), 1U);
    EXPECT_EQ(fakes.fetcher.requests[0].proxy, (Texts{"proxy.example", "3128", "anna", "secret"}));
    EXPECT_NE(form.txtStatus.find("Size : 0.0 Kb OK"), std::string::npos) << form.txtStatus;
}

TEST_F(ElementUpdateTest, AFailedFetchIsToldAndTheFileThatIsThereReported) {
    addGroup("Gone", "host/gone.txt", "0");
    addGroup("Stations", "host/stations.txt", "0");
    fakes.folder.write("stations.txt", "ISS\n1 short\n");
    fakes.fetcher.onFetch = [](const FakeFetcher::Request&) {
        return std::optional(FetchError{"Not Found", 404});
    };
    form.OPproxyON = {false, true};
    BUTupdateKeps_Click(form, state, fakes.services);
    EXPECT_EQ(form.txtStatus,
              "Updating Keplerian Elements...\r\nNot Found (404)\r\nNot Found (404)\r\n"
              "http://host/stations.txt   -  Size : 0.1 Kb CROPPED\r\nDone.\r\n");
    ASSERT_EQ(fakes.dialogs.messages.size(), 1U);
    EXPECT_TRUE(fakes.dialogs.messages[0].starts_with("Error : " + state.AppPath + "gone.txt: "));
    EXPECT_TRUE(fakes.dialogs.messages[0].ends_with(" When trying to update the keps, Proxy=True"));
    EXPECT_EQ(fakes.logged("updateCON - CheckKepFile"), 1);
    EXPECT_EQ(fakes.speech.texts, Texts{"2 Groups Updated."});
    form.OPproxyON = {true, false};
    BUTupdateKeps_Click(form, state, fakes.services);
    EXPECT_TRUE(fakes.dialogs.messages.back().ends_with("Proxy=False"));
}

TEST_F(ElementUpdateTest, WithoutGroupsThereIsNothingButTheReport) {
    BUTupdateKeps_Click(form, state, fakes.services);
    EXPECT_EQ(form.txtStatus, "Updating Keplerian Elements...\r\nDone.\r\n");
    EXPECT_EQ(fakes.speech.texts, Texts{"0 Groups Updated."});
}

TEST_F(ElementUpdateTest, NoJobStartsInsideAnotherAndAClosedWindowEndsIt) {
    addGroup("One", "host/one.txt", "0");
    addGroup("Two", "host/two.txt", "0");
    serve("");
    bool wasWorking = false;
    fakes.events.onYield = [&] {
        wasWorking = form.isWorking;
        BUTupdateKeps_Click(form, state, fakes.services);
        if (!fakes.fetcher.requests.empty()) form.isUnloaded = true;
    };
    BUTupdateKeps_Click(form, state, fakes.services);
    EXPECT_TRUE(wasWorking);
    EXPECT_EQ(fakes.fetcher.requests.size(), 1U);
    EXPECT_TRUE(fakes.speech.texts.empty());
    EXPECT_FALSE(form.isWorking);
}

TEST_F(ElementUpdateTest, ADecimalCommaIsWritten) {
    MachineFormat format;
    format.decimalMark = ',';
    TestServices comma(format);
    state.AppPath = comma.folder.appPath();
    addGroup("Stations", "host/stations.txt", "0");
    comma.folder.write("stations.txt", std::string(2558, 'x') + "\r\n");
    BUTupdateKeps_Click(form, state, comma.services);
    EXPECT_NE(form.txtStatus.find("Size : 2,5 Kb OK"), std::string::npos) << form.txtStatus;
}

TEST_F(CheckKepFileTest, LinesOfTheWrongLengthKeepTheirPlaceByStandIns) {
    const std::string l1(line1);
    const std::string l2(line2);
    const std::string s1(standIn1);
    const std::string s2(standIn2);
    struct Case {
        std::string content;
        const char* word;
        std::string mended;
    };
    const Case cases[] = {
        {"", "OK", ""},
        {"ISS\r\n" + l1 + "\r\n" + l2 + "\r\n", "OK", "ISS\r\n" + l1 + "\r\n" + l2 + "\r\n"},
        {"ISS\n" + l1 + "\n" + l2, "OK", "ISS\r\n" + l1 + "\r\n" + l2 + "\r\n"},
        {"ISS\r" + l1 + "\r" + l2 + "\r", "OK", "ISS\r\n" + l1 + "\r\n" + l2 + "\r\n"},
        {"ISS\r\r\n" + l1 + "\r\r\n", "OK", "ISS\r\n" + l1 + "\r\n"},
        {"ISS\r\n" + l1 + "\r\n" + l2.substr(0, 40), "CROPPED", "ISS\r\n" + l1 + "\r\n" + s2 + "\r\n"},
        {"ISS\r\n" + l1 + "\r\n", "OK", "ISS\r\n" + l1 + "\r\n"},
        {"ISS\n" + l1 + " \n" + l2 + "\n", "CROPPED", "ISS\r\n" + s1 + "\r\n" + l2 + "\r\n"},
        {"1 HOPEFUL\n", "CROPPED", s1 + "\r\n"},
        {"2 " + std::string(67, '?') + "\n", "OK", "2 " + std::string(67, '?') + "\r\n"},
        {"10\n2\n3 short\n", "OK", "10\r\n2\r\n3 short\r\n"},
        {"1 " + std::string(1 << 20, '1'), "CROPPED", s1 + "\r\n"},
        {std::string("A\0B\n1 \0\n", 8), "CROPPED", std::string("A\0B\r\n", 5) + s1 + "\r\n"},
        {"\n\nISS\n", "OK", "\r\n\r\nISS\r\n"},
    };
    for (const Case& each : cases) {
        fakes.folder.write("stations.txt", each.content);
        EXPECT_EQ(CheckKepFile(state, fakes.services, state.AppPath + "stations.txt"), each.word)
            << each.content.substr(0, 200);
        EXPECT_EQ(fakes.folder.read("stations.txt"), each.mended) << each.content.substr(0, 200);
        EXPECT_EQ(fakes.folder.names(), Texts{"stations.txt"});
    }
    EXPECT_TRUE(fakes.logLines().empty());
}

TEST_F(CheckKepFileTest, AFileWithNothingToMendIsNotTouchedAndAMendedOneKeepsLinksAndMode) {
    const std::filesystem::path file = fakes.folder.path() / "stations.txt";
    const auto inode = [&] {
        struct stat status {};
        EXPECT_EQ(stat(file.c_str(), &status), 0);
        return status.st_ino;
    };
    fakes.folder.write("stations.txt", "ISS\r\n");
    const auto before = inode();
    CheckKepFile(state, fakes.services, file);
    EXPECT_EQ(inode(), before);

    std::filesystem::create_directory(fakes.folder.path() / "elsewhere");
    fakes.folder.write("elsewhere/real.txt", "1 short\n");
    ASSERT_EQ(chmod((fakes.folder.path() / "elsewhere" / "real.txt").c_str(), 0640), 0);
    ASSERT_EQ(chown((fakes.folder.path() / "elsewhere" / "real.txt").c_str(), geteuid(), getegid()), 0);
    std::filesystem::remove(file);
    std::filesystem::create_symlink("elsewhere/real.txt", file);
    EXPECT_EQ(CheckKepFile(state, fakes.services, file), "CROPPED");
    EXPECT_TRUE(std::filesystem::is_symlink(file));
    EXPECT_EQ(fakes.folder.read("elsewhere/real.txt"), std::string(standIn1) + "\r\n");
    struct stat status {};
    ASSERT_EQ(stat(file.c_str(), &status), 0);
    EXPECT_EQ(status.st_mode & 0777, 0640U);
    EXPECT_FALSE(fakes.folder.exists("keps.tmp"));
}

TEST_F(CheckKepFileTest, ShortLinesDoNotGrowBeyondWhatAFileMayHold) {
    std::string lines;
    for (int line = 0; line < 1'000'000; ++line) lines += "1 \n";
    fakes.folder.write("stations.txt", lines);
    CheckKepFile(state, fakes.services, state.AppPath + "stations.txt");
    EXPECT_EQ(fakes.logged("updateCON - CheckKepFile"), 1);
    EXPECT_EQ(fakes.folder.read("stations.txt"), lines);
    EXPECT_FALSE(fakes.folder.exists("keps.tmp"));
}

TEST_F(CheckKepFileTest, WhatCannotBeReadOrWrittenIsLoggedAndStays) {
    std::filesystem::create_directory(fakes.folder.path() / "folder.txt");
    ASSERT_EQ(mkfifo((fakes.folder.path() / "pipe.txt").c_str(), 0600), 0);
    for (const char* name : {"missing.txt", "folder.txt", "pipe.txt", ""}) {
        EXPECT_EQ(CheckKepFile(state, fakes.services, state.AppPath + name), "OK") << name;
    }
    EXPECT_EQ(fakes.logged("updateCON - CheckKepFile"), 4);
    EXPECT_FALSE(fakes.folder.exists("missing.txt"));
    EXPECT_TRUE(std::filesystem::is_directory(fakes.folder.path() / "folder.txt"));
    EXPECT_TRUE(std::filesystem::is_fifo(fakes.folder.path() / "pipe.txt"));

    // Where the scratch file can't be had the fetched one stays as it came.
    std::filesystem::create_directory(fakes.folder.path() / "keps.tmp");
    fakes.folder.write("keps.tmp/keep", "");
    fakes.folder.write("stations.txt", "1 short");
    EXPECT_EQ(CheckKepFile(state, fakes.services, state.AppPath + "stations.txt"), "CROPPED");
    EXPECT_EQ(fakes.folder.read("stations.txt"), "1 short");
    EXPECT_EQ(fakes.logged("updateCON - CheckKepFile"), 5);
}

}  // namespace
}  // namespace vantrace
