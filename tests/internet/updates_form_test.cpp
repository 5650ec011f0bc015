#include "internet/updates_form.h"

#include "internet/database_update.h"
#include "tests/internet/updates_test.h"
#include "tests/support/testing.h"

namespace vantrace {
namespace {

using UpdatesFormTest = UpdatesTest;
using DatabaseUpdateTest = UpdatesTest;

TEST_F(UpdatesFormTest, TheProxyComesFromTheSettingsAndGoesBack) {
    Form_Load(form, fakes.services);
    EXPECT_EQ(form.OPproxyON, (std::array{true, false}));
    EXPECT_EQ(form.txtProxyHost + form.txtProxyUser + form.txtProxyPass, "");
    EXPECT_EQ(form.txtProxyPort, "1080");

    form.OPproxyON = {false, true};
    form.txtProxyHost = "proxy.example";
    form.txtProxyPort = "3128";
    form.txtProxyUser = "anna";
    form.txtProxyPass = "secret";
    Form_Unload(form, fakes.services);
    EXPECT_EQ(fakes.settings.get("ProxyON"), "1");
    UpdatesForm next;
    Form_Load(next, fakes.services);
    EXPECT_EQ(next.OPproxyON, (std::array{false, true}));
    EXPECT_EQ(next.txtProxyHost, "proxy.example");
    EXPECT_EQ(next.txtProxyPort, "3128");
    EXPECT_EQ(next.txtProxyUser, "anna");
    EXPECT_EQ(next.txtProxyPass, "secret");
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
    form.OPproxyON = {false, true};
    form.txtProxyHost = "proxy.example";
    fakes.fetcher.onFetch = [](const FakeFetcher::Request&) {
        return std::optional(FetchError{"Host not found", 3});
    };
    BUTupdateDB_Click(form, state, fakes.services);
    EXPECT_EQ(form.txtStatus, "\r\nUpdating Satellite Database File....\r\nHost not found (3)\r\n");
    EXPECT_EQ(fakes.fetcher.requests.at(0).proxy.at(0), "proxy.example");
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

}  // namespace
}  // namespace vantrace
