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
    /// The next fetches write these bytes.
    void serve(const std::string& content) {
        fakes.fetcher.onFetch = [this, content](const FakeFetcher::Request& request) {
            fakes.folder.write(std::filesystem::path(request.file).filename(), content);
            return std::optional<FetchError>();
        };
    }

    TestServices fakes;
    ProgramState state;
    UpdatesForm form;
};

}  // namespace vantrace
