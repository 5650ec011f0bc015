#include "internet/element_update.h"

#include <sys/stat.h>
#include <unistd.h>

#include "internet/database_update.h"
#include "tests/internet/updates_test.h"

namespace vantrace {
namespace {

using UpdatesFormTest = UpdatesTest;
using DatabaseUpdateTest = UpdatesTest;
using ElementUpdateTest = UpdatesTest;
using CheckKepFileTest = UpdatesTest;

// The lines of a set, and what stands in for those of the wrong length.
const std::string l1 = "1 25544U 98067A   26233.53315667  .00008864  00000+0  16558-3 0  9995";
const std::string l2 = "2 25544  51.6331 336.6713 0007673  69.9303 290.2511 15.49551867581884";
const std::string s1 = "1 27061U 01058G   02011.88736545  .00000026  00000-0  10000-3 0   117";
const std::string s2 = "2 27061  82.5405 165.3114 0041850 199.5013 160.4475 12.53888826  1840";

TEST_F(UpdatesFormTest, TheProxyComesFromTheSettingsAndGoesBack) {
    Form_Load(form, fakes.services);
    EXPECT_EQ(form.OPproxyON, (std::array{true, false}));
    EXPECT_EQ(proxyOf(form), (Texts{"", "1080", "", ""}));
    chooseProxy();
    Form_Unload(form, fakes.services);
    EXPECT_EQ(fakes.settings.get("ProxyON"), "1");
    UpdatesForm next;
    Form_Load(next, fakes.services);
    EXPECT_EQ(next.OPproxyON, (std::array{false, true}));
    EXPECT_EQ(proxyOf(next), proxy);
    EXPECT_TRUE(next.skin.isApplied);
    next.OPproxyON = {true, false};
    Form_Unload(next, fakes.services);
    EXPECT_EQ(fakes.settings.get("ProxyON"), "0");
}

TEST_F(DatabaseUpdateTest, TheFileOfTheUpdateServerIsFetchedAndItsSizeTold) {
    fakes.folder.write("hosts.dat", "updateHost=update.test:8080\n");
    serve(std::string(2560, 'x'));
    std::string seen;
    fakes.events.onYield = [&] { seen = form.txtStatus; };
    BUTupdateDB_Click(form, state, fakes.services);
    EXPECT_EQ(seen, "\r\nUpdating Satellite Database File....\r\n");
    ASSERT_EQ(fakes.fetcher.requests.size(), 1U);
    EXPECT_EQ(fakes.fetcher.requests[0].url, "http://update.test:8080/satellite.dat");
    EXPECT_EQ(fakes.fetcher.requests[0].file, state.AppPath + "satellite.dat");
    EXPECT_EQ(form.txtStatus, seen + "Done. Satellite Database File Size : 2.5 Kb)\r\n");
    EXPECT_EQ(fakes.speech.texts, Texts{"Database file updated."});
}

TEST_F(DatabaseUpdateTest, WhatFailsIsToldOrLoggedAndTheJobEndsAsEver) {
    chooseProxy();
    failFetches({"Host not found", 3});
    BUTupdateDB_Click(form, state, fakes.services);
    EXPECT_EQ(form.txtStatus, "\r\nUpdating Satellite Database File....\r\nHost not found (3)\r\n");
    EXPECT_EQ(fakes.fetcher.requests.at(0).proxy, proxy);
    EXPECT_EQ(fakes.logged("updateCON - UpdateDB"), 1);
    EXPECT_EQ(fakes.speech.texts, Texts{"Database file updated."});
    // Of the old file the size is told all the same.
    fakes.folder.write("satellite.dat", std::string(1024, 'x'));
    BUTupdateDB_Click(form, state, fakes.services);
    EXPECT_TRUE(
        form.txtStatus.ends_with("Host not found (3)\r\nDone. Satellite Database File Size : 1.0 Kb)\r\n"))
        << form.txtStatus;
}

TEST_F(DatabaseUpdateTest, AClosedWindowFetchesNothing) {
    fakes.events.onYield = [&] { form.isUnloaded = true; };
    BUTupdateDB_Click(form, state, fakes.services);
    EXPECT_TRUE(fakes.fetcher.requests.empty());
    EXPECT_TRUE(fakes.speech.texts.empty());
    EXPECT_FALSE(form.isWorking);
}

TEST_F(ElementUpdateTest, EveryGroupButThoseKeptByHandIsFetchedMendedAndTold) {
    addGroup("Stations", "celestrak.org/NORAD/stations.txt", "0");
    addGroup("Mine", "mine.txt", "1");
    addGroup("Odd", "host/gp.php?GROUP=odd", "x");
    addGroup("No folder", "lonely.example", "");
    serve(std::string(1534, 'x') + "\r\n");  // so that half a unit shows
    std::string seenFirst;
    fakes.events.onYield = [&] {
        if (fakes.events.yields == 1) seenFirst = form.txtStatus;
    };
    form.txtStatus = "Before\r\n";
    BUTupdateKeps_Click(form, state, fakes.services);

    EXPECT_EQ(seenFirst, "Before\r\nUpdating Keplerian Elements...\r\n");
    EXPECT_EQ(fakes.events.yields, 4) << "one, and one a group";
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
    chooseProxy();
    serve("");
    BUTupdateKeps_Click(form, state, fakes.services);
    EXPECT_EQ(fakes.fetcher.requests.at(0).proxy, proxy);
    EXPECT_NE(form.txtStatus.find("Size : 0.0 Kb OK"), std::string::npos) << form.txtStatus;
}

TEST_F(ElementUpdateTest, AFailedFetchIsToldAndTheFileThatIsThereReported) {
    addGroup("Gone", "host/gone.txt", "0");
    addGroup("Stations", "host/stations.txt", "0");
    fakes.folder.write("stations.txt", "ISS\n1 short\n");
    failFetches({"Not Found", 404});
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
    fakes.services.format.decimalMark = ',';
    addGroup("Stations", "host/stations.txt", "0");
    serve(std::string(2558, 'x') + "\r\n");
    BUTupdateKeps_Click(form, state, fakes.services);
    EXPECT_NE(form.txtStatus.find("Size : 2,5 Kb OK"), std::string::npos) << form.txtStatus;
}

TEST_F(CheckKepFileTest, LinesOfTheWrongLengthKeepTheirPlaceByStandIns) {
    struct Case {
        std::string content;
        const char* word;
        std::string mended;
    };
    const std::string whole = "ISS\r\n" + l1 + "\r\n" + l2 + "\r\n";
    const Case cases[] = {
        {"", "OK", ""},
        {whole, "OK", whole},
        {"ISS\n" + l1 + "\n" + l2, "OK", whole},
        {"ISS\r" + l1 + "\r" + l2 + "\r", "OK", whole},
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
    const auto status = [&] {
        struct stat found {};
        EXPECT_EQ(stat(file.c_str(), &found), 0);
        return found;
    };
    fakes.folder.write("stations.txt", "ISS\r\n");
    const auto before = status().st_ino;
    CheckKepFile(state, fakes.services, file);
    EXPECT_EQ(status().st_ino, before);

    fakes.folder.write("elsewhere/real.txt", "1 short\n");
    const std::filesystem::path real = fakes.folder.path() / "elsewhere" / "real.txt";
    ASSERT_EQ(chmod(real.c_str(), 0640), 0);
    ASSERT_EQ(chown(real.c_str(), geteuid(), getegid()), 0);
    std::filesystem::remove(file);
    std::filesystem::create_symlink("elsewhere/real.txt", file);
    EXPECT_EQ(CheckKepFile(state, fakes.services, file), "CROPPED");
    EXPECT_TRUE(std::filesystem::is_symlink(file));
    EXPECT_EQ(fakes.folder.read("elsewhere/real.txt"), s1 + "\r\n");
    EXPECT_EQ(status().st_mode & 0777, 0640U);
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
