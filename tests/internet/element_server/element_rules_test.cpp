// The element server's rules, as the fetcher keeps them.
#include <sys/stat.h>

#include "core/texts.h"
#include "tests/internet/element_server/fetcher_test.h"

namespace vantrace {
namespace {

constexpr const char* unchanged =
    "GP data has not updated since your last successful\ndownload of GROUP=stations at 2026-03-27 08:11:36 "
    "UTC.\n";

class ElementRules : public FetcherTest {
  protected:
    ElementRules() { client.answers(200, "OK", csv); }
    std::size_t asked() const { return client.requests.size(); }
};

TEST_F(ElementRules, AnAddressIsAskedOnceInTwoHoursAndAWaitUntilTomorrowIsToldWithItsDay) {
    clock.setUtc({2026, 11, 23, 6, 18, 38}, 60);
    EXPECT_EQ(outcome(fetch("stations")), "");
    EXPECT_EQ(outcome(fetch("visual")), "") << "another address";
    advanceMinutes(119);
    for (int run = 0; run < 2; ++run) {
        EXPECT_TRUE(failed(fetch("stations"), FetchFailure::tooEarly, "before 09:18:38"));
        restart();
    }
    std::filesystem::remove(folder.path() / "stations.txt");
    EXPECT_TRUE(failed(fetch("stations"), FetchFailure::tooEarly)) << "the server doesn't know of the loss";
    EXPECT_EQ(asked(), 2U);
    advanceMinutes(1);
    EXPECT_EQ(outcome(fetch("stations")), "");
    EXPECT_EQ(asked(), 3U);
    clock.setUtc({2026, 11, 23, 23, 30, 0});
    fetch("weather");
    EXPECT_TRUE(failed(fetch("weather"), FetchFailure::tooEarly, "before 24 NOV 01:30:00"));
}

TEST_F(ElementRules, ARequestIsRememberedBeforeItIsAnswered) {
    // The program is killed meanwhile: what is on the disk at this moment is all there is.
    std::string memory;
    client.onGet = [&] { memory = folder.read("fetches.dat"); };
    fetch("stations");
    client.onGet = nullptr;
    folder.write("fetches.dat", memory);
    restart();
    EXPECT_TRUE(failed(fetch("stations"), FetchFailure::tooEarly));
}

TEST_F(ElementRules, ARequestThatNeverArrivedDoesntCount) {
    client.fails(HttpFailure::hostName, false);
    EXPECT_TRUE(failed(fetch("stations"), HttpFailure::hostName));
    client.fails(HttpFailure::closed, true);
    EXPECT_EQ(outcome(fetch("stations")), "4 It broke; not asked again before 14:00:00");
    EXPECT_TRUE(failed(fetch("stations"), FetchFailure::tooEarly, "without a whole answer"));
    EXPECT_FALSE(folder.exists("stations.txt"));
}

TEST_F(ElementRules, AClockThatIsSetBackLocksNothingForLong) {
    clock.setUtc({2099, 1, 1, 0, 0, 0});
    fetch("stations");
    clock.setUtc({2026, 11, 23, 6, 0, 0});
    restart();
    EXPECT_TRUE(failed(fetch("stations"), FetchFailure::tooEarly));
    restart();
    advanceMinutes(121);
    EXPECT_EQ(outcome(fetch("stations")), "");
}

TEST_F(ElementRules, AnyOtherAnswerStopsTheHostForTheRun) {
    for (const int status : {301, 403, 404, 429, 500, 503}) {
        const std::string group = "group" + std::to_string(status);
        restart();
        client.answers(status, "Words", "nothing of use");
        folder.write(group + ".txt", "old");
        EXPECT_TRUE(failed(fetch(group), status));
        const std::size_t before = asked();
        client.answers(200, "OK", csv);
        EXPECT_TRUE(
            failed(fetch(group + "-next"), FetchFailure::hostStopped, std::to_string(status) + " (Words)"));
        EXPECT_EQ(asked(), before);
        EXPECT_EQ(folder.read(group + ".txt"), "old");
        EXPECT_EQ(outcome(fetchPage("http://other.example/x", "x")), "");
    }
    // An answer that breaks off is an answer.
    restart();
    client.fails(HttpFailure::closed, true, 0, 503);
    EXPECT_TRUE(failed(fetch("broken"), HttpFailure::closed));
    EXPECT_TRUE(failed(fetch("broken-next"), FetchFailure::hostStopped));
    restart();
    client.fails(HttpFailure::proxy, false, 0, 407);
    fetch("proxy");
    client.answers(200, "OK", csv);
    EXPECT_EQ(outcome(fetch("fresh")), "") << "the proxy isn't the host";
}

TEST_F(ElementRules, OneRedirectWithinTheHostIsFollowedAndBothAddressesHaveBeenAsked) {
    const std::string start = "https://celestrak.org/NORAD/elements/";
    client.redirects[start + "gp.php?GROUP=stations&FORMAT=csv"] = start + "new.php?GROUP=stations";
    client.redirects[start + "gp.php?GROUP=visual&FORMAT=csv"] = start + "NEW.php?GROUP=stations";
    EXPECT_EQ(outcome(fetch("stations")), "");
    EXPECT_TRUE(folder.exists("stations.txt"));
    EXPECT_EQ(asked(), 2U);
    EXPECT_TRUE(failed(fetch("stations"), FetchFailure::tooEarly));
    EXPECT_TRUE(failed(fetch("visual"), FetchFailure::tooEarly)) << "it leads to what was asked just now";
    EXPECT_EQ(asked(), 3U);
    EXPECT_EQ(outcome(fetch("weather")), "") << "the host isn't stopped";
}

TEST_F(ElementRules, OtherRedirectsStopTheHost) {
    const std::string start = "https://celestrak.org/NORAD/elements/gp.php?GROUP=";
    client.redirects["https://celestrak.org/on"] = "https://celestrak.org/on/and/on";
    int number = 0;
    for (const std::string target :
         {"ftp://celestrak.org/x", "http://celestrak.org/x", "https://other.example/x",
          "https://celestrak.org/on", "https://celestrak.org:8443/x"}) {
        restart();
        const std::string group = "group" + std::to_string(++number);
        client.redirects[start + group + "&FORMAT=csv"] = target;
        const std::size_t before = asked();
        EXPECT_TRUE(failed(fetch(group), 301)) << target;
        EXPECT_EQ(asked() - before, target.ends_with("/on") ? 2U : 1U) << target;
        EXPECT_TRUE(failed(fetch("stations"), FetchFailure::hostStopped)) << target;
        EXPECT_FALSE(folder.exists(group + ".txt"));
    }
}

TEST_F(ElementRules, AGroupThatTheServerHasntGotStandsInNobodysWay) {
    client.answers(404, "Not Found", "");
    EXPECT_TRUE(failed(fetch("goes"), 404, "Not Found; not asked again before 27 MAR 12:00:00"));
    restart();
    advanceMinutes(24 * 60);
    client.answers(200, "OK", csv);
    EXPECT_TRUE(failed(fetch("goes"), FetchFailure::tooEarly));
    EXPECT_EQ(outcome(fetch("stations")), "");
    advanceMinutes(6 * 24 * 60);
    EXPECT_EQ(outcome(fetch("goes")), "");
}

TEST_F(ElementRules, NothingNewerIsASuccessThatLeavesTheFile) {
    folder.write("stations.txt", "old");
    for (const std::string& notice :
         {std::string(unchanged), replacedAll(unchanged, "updated since", "been\r\n  Updated Since")}) {
        restart();
        advanceMinutes(120);
        client.answers(403, "Forbidden", notice);
        EXPECT_EQ(outcome(fetch("stations")), "");
        EXPECT_EQ(folder.read("stations.txt"), "old");
    }
    clock.setUtc({2024, 3, 20, 12, 0, 0});
    restart();
    EXPECT_TRUE(failed(fetch("visual"), FetchFailure::notKept, "before 14:00:00"));
    client.answers(200, "OK", csv);
    EXPECT_EQ(outcome(fetch("weather")), "") << "the host isn't stopped";
}

TEST_F(ElementRules, AHostThatTakesTooLongRestsAMinute) {
    client.fails(HttpFailure::tooSlow, true);
    EXPECT_TRUE(failed(fetch("stations"), HttpFailure::tooSlow));
    client.answers(200, "OK", csv);
    EXPECT_TRUE(failed(fetch("visual"), FetchFailure::tooEarly));
    EXPECT_EQ(asked(), 1U);
    advanceMinutes(1);
    EXPECT_EQ(outcome(fetch("visual")), "");
    // So does any other host, whatever its failure; but not one that fails quickly, or by another proxy.
    const std::string url = "http://dead.example/x";
    for (const int seconds : {5, 6}) {
        client.fails(HttpFailure::hostName, false, seconds);
        EXPECT_TRUE(failed(fetchPage(url, "x"), HttpFailure::hostName));
    }
    client.answers(200, "OK", "x");
    EXPECT_TRUE(failed(fetchPage("http://Dead.example/y", "x"), FetchFailure::tooEarly));
    EXPECT_EQ(outcome(fetcher->FetchToFileViaProxy(url, folder.appPath() + "x", "proxy", "80", "", "")), "");
    EXPECT_EQ(outcome(fetchPage("http://live.example/y", "x")), "");
    advanceMinutes(1);
    EXPECT_EQ(outcome(fetchPage(url, "x")), "");
    // Nor one that had begun to answer.
    client.fails(HttpFailure::closed, true, 6, 200);
    EXPECT_TRUE(failed(fetchPage(url, "x"), HttpFailure::closed));
    client.answers(200, "OK", "x");
    EXPECT_EQ(outcome(fetchPage(url, "x")), "");
}

TEST_F(ElementRules, AnAnswerThatCantBeKeptIsRememberedAsSuch) {
    client.onGet = [this] { std::filesystem::create_directory(folder.path() / "stations.txt"); };
    EXPECT_TRUE(failed(fetch("stations"), HttpFailure::file, "; not asked again before 14:00:00"));
    client.onGet = nullptr;
    std::filesystem::remove(folder.path() / "stations.txt");
    restart();
    EXPECT_TRUE(failed(fetch("stations"), FetchFailure::tooEarly, "couldn't be kept"));
}

TEST_F(ElementRules, AGroupThatHasCeasedIsntAsked) {
    EXPECT_TRUE(failed(fetch("molniya"), FetchFailure::ceased, "\"molniya\""));
    EXPECT_EQ(outcome(fetch("stations")), "");
    EXPECT_EQ(asked(), 1U);
}

TEST_F(ElementRules, AMemoryThatMakesNoSenseTellsNothing) {
    const std::string url = "https://celestrak.org/NORAD/elements/gp.php?GROUP=stations&FORMAT=csv";
    for (const std::string& memory :
         {std::string("\0\xff\n\n\n", 5), std::string("2024-03-20 11:59:00\n"),
          "2024-03-20 11:59:00 " + url + "\n", "2024-13-45 99:59:00  200 " + url + "\n",
          "0000-03-20 11:59:00 200 " + url + "\n", "2024-03-20 11:59:00 20000 " + url + "\n",
          "2024-03-20T11:59:00 200 " + url + "\n", std::string(300'000, 'x')}) {
        restart();
        folder.write("fetches.dat", memory);
        EXPECT_EQ(outcome(fetch("stations")), "") << memory.substr(0, 80);
    }
    folder.write("fetches.dat", "rubbish\n2024-03-20 11:59:00 200 " + url + "\r\n-1");
    restart();
    EXPECT_TRUE(failed(fetch("stations"), FetchFailure::tooEarly)) << "a bad line costs itself alone";
}

TEST_F(ElementRules, WithoutAMemoryFileTheRunStillRemembers) {
    std::filesystem::create_directory(folder.path() / "fetches.dat");
    EXPECT_EQ(outcome(fetch("stations")), "");
    EXPECT_TRUE(failed(fetch("stations"), FetchFailure::tooEarly));
    std::filesystem::remove(folder.path() / "fetches.dat");
    ASSERT_EQ(mkfifo((folder.path() / "fetches.dat").c_str(), 0600), 0);
    EXPECT_TRUE(failed(fetch("stations"), FetchFailure::tooEarly)) << "and no pipe holds it up";
}

}  // namespace
}  // namespace vantrace
