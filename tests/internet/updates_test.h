// What the tests of the updates share.
#pragma once

#include "core/program_state.h"
#include "internet/updates_form.h"
#include "tests/support/test_services.h"
#include "tests/support/testing.h"

namespace vantrace {

class UpdatesTest : public ::testing::Test {
  protected:
    UpdatesTest() {
        state.AppPath = fakes.folder.appPath();
        fakes.settings.set("Speechpack", "1");
    }

    void addGroup(const char* name, const char* url, const char* flag) {
        ++state.GroupCount;
        state.Groups[static_cast<std::size_t>(state.GroupCount)] = {name, url, flag};
    }
    /// In the order of the fetcher's words.
    static Texts proxyOf(const UpdatesForm& form) {
        return {form.txtProxyHost, form.txtProxyPort, form.txtProxyUser, form.txtProxyPass};
    }
    void chooseProxy() {
        form.OPproxyON = {false, true};
        form.txtProxyHost = proxy[0];
        form.txtProxyPort = proxy[1];
        form.txtProxyUser = proxy[2];
        form.txtProxyPass = proxy[3];
    }
    /// The next fetches write these bytes.
    void serve(const std::string& content) {
        fakes.fetcher.onFetch = [this, content](const FakeFetcher::Request& request) {
            fakes.folder.write(std::filesystem::path(request.file).filename(), content);
            return std::optional<FetchError>();
        };
    }
    void failFetches(const FetchError& error) {
        fakes.fetcher.onFetch = [error](const FakeFetcher::Request&) { return std::optional(error); };
    }

    const Texts proxy{"proxy.example", "3128", "anna", "secret"};
    TestServices fakes;
    ProgramState state;
    UpdatesForm form;
};

}  // namespace vantrace
