// The fetcher over an Internet that a test writes.
#pragma once

#include "core/program_state.h"
#include "internet/element_server/http_fetcher.h"
#include "tests/support/fake_clock.h"
#include "tests/support/temporary_folder.h"
#include "tests/support/testing.h"

namespace vantrace {

/// Writes down what is asked, and answers what a test wants.
class FakeHttpClient final : public HttpClient {
  public:
    HttpAnswer get(const HttpRequest& request) override {
        requests.push_back(request);
        if (onGet) onGet();
        const auto redirect = redirects.find(request.url);
        std::ofstream(request.file, std::ios::binary) << (redirect == redirects.end() ? body : "moved");
        if (redirect == redirects.end()) return answer;
        return {HttpFailure::none, 301, "Moved Permanently", redirect->second, true, {}};
    }

    void answers(int status, std::string text, std::string content) {
        answer = {HttpFailure::none, status, std::move(text), {}, true, {}};
        body = std::move(content);
    }
    void fails(HttpFailure failure, bool mayHaveArrived, int seconds = 0, int status = 0) {
        answer = {failure, status, "It broke", {}, mayHaveArrived, std::chrono::seconds(seconds)};
        body = "half";
    }

    std::vector<HttpRequest> requests;
    HttpAnswer answer;
    std::string body;
    /// Which addresses send on, and where to.
    std::map<std::string, std::string> redirects;
    /// While the answer arrives.
    std::function<void()> onGet;
};

class FetcherTest : public ::testing::Test {
  protected:
    FetcherTest() {
        state.AppPath = folder.appPath();
        restart();
    }

    /// Another run of the program.
    void restart() {
        fetcher = std::make_unique<HttpFetcher>(client, clock, state,
                                                [this](std::string_view text) { told.emplace_back(text); });
    }
    std::optional<FetchError> fetch(const std::string& group) {
        return fetchPage("http://celestrak.org/NORAD/elements/" + group + ".txt", group + ".txt");
    }
    std::optional<FetchError> fetchPage(const std::string& url, const std::string& name) {
        return fetcher->FetchToFile(url, folder.appPath() + name);
    }
    /// "404 Not Found"; "" for success.
    static std::string outcome(const std::optional<FetchError>& error) {
        return error ? std::to_string(error->code) + " " + error->message : "";
    }
    /// Whether a fetch failed so (a FetchFailure, an HttpFailure or a status), with words that hold those.
    template <class Failure>
    static ::testing::AssertionResult failed(const std::optional<FetchError>& error, Failure failure,
                                             std::string_view words = {}) {
        const bool isSo = error && error->code == static_cast<int>(failure) &&
                          error->message.find(words) != std::string::npos;
        return (isSo ? ::testing::AssertionSuccess() : ::testing::AssertionFailure()) << outcome(error);
    }
    void advanceMinutes(int minutes) { clock.advanceSeconds(minutes * 60); }

    const std::string csv =
        "OBJECT_NAME,OBJECT_ID,EPOCH,MEAN_MOTION,ECCENTRICITY,INCLINATION,RA_OF_ASC_NODE,ARG_OF_PERICENTER,"
        "MEAN_ANOMALY,EPHEMERIS_TYPE,CLASSIFICATION_TYPE,NORAD_CAT_ID,ELEMENT_SET_NO,REV_AT_EPOCH,BSTAR,"
        "MEAN_MOTION_DOT,MEAN_MOTION_DDOT\r\n"
        "ISS (ZARYA),1998-067A,2026-08-06T01:17:37.872384,15.49359774,.00072161,51.6321,53.3065,17.1615,"
        "342.9616,0,U,25544,999,57948,.7969016E-4,.3997E-4,0\r\n";

    TemporaryFolder folder;
    FakeClock clock;
    ProgramState state;
    FakeHttpClient client;
    Texts told;
    std::unique_ptr<HttpFetcher> fetcher;
};

}  // namespace vantrace
