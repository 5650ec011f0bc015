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

TEST_F(ElementRules, AnAddressIsAskedOnceInTwoHours) {
    clock.setUtc({2026, 11, 23, 6, 18, 38}, 60);
    EXPECT_EQ(messageOf(fetch("stations")), "");
    EXPECT_EQ(messageOf(fetch("visual")), "") << "another address";
    advanceMinutes(119);
    for (int run = 0; run < 2; ++run) {
        const auto error = fetch("stations");
        EXPECT_EQ(codeOf(error), codeOf(FetchFailure::tooEarly));
        EXPECT_NE(messageOf(error).find("before 09:18:38"), std::string::npos) << messageOf(error);
        restart();
    }
    std::filesystem::remove(folder.path() / "stations.txt");
    EXPECT_EQ(codeOf(fetch("stations")), codeOf(FetchFailure::tooEarly))
        << "the server doesn't know of the loss";
    EXPECT_EQ(asked(), 2U);
    advanceMinutes(1);
    EXPECT_EQ(messageOf(fetch("stations")), "");
    EXPECT_EQ(asked(), 3U);
}

TEST_F(ElementRules, AWaitThatEndsTomorrowIsToldWithItsDay) {
    clock.setUtc({2026, 11, 23, 23, 30, 0});
    fetch("stations");
    EXPECT_NE(messageOf(fetch("stations")).find("before 24 NOV 01:30:00"), std::string::npos);
}

TEST_F(ElementRules, ARequestIsRememberedBeforeItIsAnswered) {
    // The program is killed meanwhile: what is on the disk at this moment is all there is.
    std::string memory;
    client.onGet = [&] { memory = folder.read("fetches.dat"); };
    fetch("stations");
    client.onGet = nullptr;
    folder.write("fetches.dat", memory);
    restart();
    EXPECT_EQ(codeOf(fetch("stations")), codeOf(FetchFailure::tooEarly));
}

TEST_F(ElementRules, ARequestThatNeverArrivedDoesntCount) {
    client.fails(HttpFailure::hostName, false);
    EXPECT_EQ(codeOf(fetch("stations")), static_cast<int>(HttpFailure::hostName));
    client.fails(HttpFailure::closed, true);
    const auto error = fetch("stations");
    EXPECT_EQ(codeOf(error), static_cast<int>(HttpFailure::closed));
    EXPECT_EQ(messageOf(error), "It broke; not asked again before 14:00:00");
    EXPECT_NE(messageOf(fetch("stations")).find("without a whole answer"), std::string::npos);
    EXPECT_FALSE(folder.exists("stations.txt"));
}

TEST_F(ElementRules, AClockThatIsSetBackLocksNothingForLong) {
    clock.setUtc({2099, 1, 1, 0, 0, 0});
    fetch("stations");
    clock.setUtc({2026, 11, 23, 6, 0, 0});
    restart();
    EXPECT_EQ(codeOf(fetch("stations")), codeOf(FetchFailure::tooEarly));
    restart();
    advanceMinutes(121);
    EXPECT_EQ(messageOf(fetch("stations")), "");
}

TEST_F(ElementRules, AnyOtherAnswerStopsTheHostForTheRun) {
    for (const int status : {301, 403, 404, 429, 500, 503}) {
        const std::string group = "group" + std::to_string(status);
        restart();
        client.answers(status, "Words", "nothing of use");
        folder.write(group + ".txt", "old");
        EXPECT_EQ(codeOf(fetch(group)), status);
        const std::size_t before = asked();
        client.answers(200, "OK", csv);
        const auto error = fetch(group + "-next");
        EXPECT_EQ(codeOf(error), codeOf(FetchFailure::hostStopped));
        EXPECT_NE(messageOf(error).find(std::to_string(status) + " (Words)"), std::string::npos);
        EXPECT_EQ(asked(), before);
        EXPECT_EQ(folder.read(group + ".txt"), "old");
        EXPECT_EQ(messageOf(fetcher->FetchToFile("http://other.example/x", folder.appPath() + "x")), "");
    }
    // An answer that breaks off is an answer.
    restart();
    client.fails(HttpFailure::closed, true, 0, 503);
    EXPECT_EQ(codeOf(fetch("broken")), static_cast<int>(HttpFailure::closed));
    EXPECT_EQ(codeOf(fetch("broken-next")), codeOf(FetchFailure::hostStopped));
    restart();
    client.fails(HttpFailure::proxy, false, 0, 407);
    fetch("proxy");
    client.answers(200, "OK", csv);
    EXPECT_EQ(messageOf(fetch("fresh")), "") << "the proxy isn't the host";
}

TEST_F(ElementRules, OneRedirectWithinTheHostIsFollowedAndBothAddressesHaveBeenAsked) {
    const std::string start = "https://celestrak.org/NORAD/elements/";
    client.redirects[start + "gp.php?GROUP=stations&FORMAT=csv"] = start + "new.php?GROUP=stations";
    client.redirects[start + "gp.php?GROUP=visual&FORMAT=csv"] = start + "NEW.php?GROUP=stations";
    EXPECT_EQ(messageOf(fetch("stations")), "");
    EXPECT_TRUE(folder.exists("stations.txt"));
    EXPECT_EQ(asked(), 2U);
    EXPECT_EQ(codeOf(fetch("stations")), codeOf(FetchFailure::tooEarly));
    EXPECT_EQ(codeOf(fetch("visual")), codeOf(FetchFailure::tooEarly))
        << "it leads to what was asked just now";
    EXPECT_EQ(asked(), 3U);
    EXPECT_EQ(messageOf(fetch("weather")), "") << "the host isn't stopped";
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
        EXPECT_EQ(codeOf(fetch(group)), 301) << target;
        EXPECT_EQ(asked() - before, target.ends_with("/on") ? 2U : 1U) << target;
        EXPECT_EQ(codeOf(fetch("stations")), codeOf(FetchFailure::hostStopped)) << target;
        EXPECT_FALSE(folder.exists(group + ".txt"));
    }
}

TEST_F(ElementRules, AGroupThatTheServerHasntGotStandsInNobodysWay) {
    client.answers(404, "Not Found", "");
    const std::string words = messageOf(fetch("goes"));
    EXPECT_NE(words.find("Not Found; not asked again before 27 MAR 12:00:00"), std::string::npos) << words;
    restart();
    advanceMinutes(24 * 60);
    client.answers(200, "OK", csv);
    EXPECT_EQ(codeOf(fetch("goes")), codeOf(FetchFailure::tooEarly));
    EXPECT_EQ(messageOf(fetch("stations")), "");
    advanceMinutes(6 * 24 * 60);
    EXPECT_EQ(messageOf(fetch("goes")), "");
}

TEST_F(ElementRules, NothingNewerIsASuccessThatLeavesTheFile) {
    folder.write("stations.txt", "old");
    for (const std::string& notice :
         {std::string(unchanged), replacedAll(unchanged, "updated since", "been\r\n  Updated Since")}) {
        restart();
        advanceMinutes(120);
        client.answers(403, "Forbidden", notice);
        EXPECT_EQ(messageOf(fetch("stations")), "");
        EXPECT_EQ(folder.read("stations.txt"), "old");
    }
    clock.setUtc({2024, 3, 20, 12, 0, 0});
    restart();
    const auto error = fetch("visual");
    EXPECT_EQ(codeOf(error), codeOf(FetchFailure::notKept));
    EXPECT_NE(messageOf(error).find("before 14:00:00"), std::string::npos) << messageOf(error);
    client.answers(200, "OK", csv);
    EXPECT_EQ(messageOf(fetch("weather")), "") << "the host isn't stopped";
}

TEST_F(ElementRules, AHostThatTakesTooLongRestsAMinute) {
    client.fails(HttpFailure::tooSlow, true);
    EXPECT_EQ(codeOf(fetch("stations")), static_cast<int>(HttpFailure::tooSlow));
    client.answers(200, "OK", csv);
    EXPECT_EQ(codeOf(fetch("visual")), codeOf(FetchFailure::tooEarly));
    EXPECT_EQ(asked(), 1U);
    advanceMinutes(1);
    EXPECT_EQ(messageOf(fetch("visual")), "");
    // So does any other host, whatever its failure; but not one that fails quickly, or by another proxy.
    const std::string file = folder.appPath() + "x";
    const std::string url = "http://dead.example/x";
    client.fails(HttpFailure::hostName, false, 5);
    EXPECT_EQ(codeOf(fetcher->FetchToFile(url, file)), static_cast<int>(HttpFailure::hostName));
    client.fails(HttpFailure::hostName, false, 6);
    EXPECT_EQ(codeOf(fetcher->FetchToFile(url, file)), static_cast<int>(HttpFailure::hostName));
    client.answers(200, "OK", "x");
    EXPECT_EQ(codeOf(fetcher->FetchToFile("http://Dead.example/y", file)), codeOf(FetchFailure::tooEarly));
    EXPECT_EQ(messageOf(fetcher->FetchToFileViaProxy(url, file, "proxy", "80", "", "")), "");
    EXPECT_EQ(messageOf(fetcher->FetchToFile("http://live.example/y", file)), "");
    advanceMinutes(1);
    EXPECT_EQ(messageOf(fetcher->FetchToFile(url, file)), "");
    // Nor one that had begun to answer.
    client.fails(HttpFailure::closed, true, 6, 200);
    EXPECT_EQ(codeOf(fetcher->FetchToFile(url, file)), static_cast<int>(HttpFailure::closed));
    client.answers(200, "OK", "x");
    EXPECT_EQ(messageOf(fetcher->FetchToFile(url, file)), "");
}

TEST_F(ElementRules, AnAnswerThatCantBeKeptIsRememberedAsSuch) {
    client.onGet = [this] { std::filesystem::create_directory(folder.path() / "stations.txt"); };
    const auto error = fetch("stations");
    EXPECT_EQ(codeOf(error), static_cast<int>(HttpFailure::file));
    EXPECT_NE(messageOf(error).find("; not asked again before 14:00:00"), std::string::npos)
        << messageOf(error);
    client.onGet = nullptr;
    std::filesystem::remove(folder.path() / "stations.txt");
    restart();
    const std::string reason = messageOf(fetch("stations"));
    EXPECT_NE(reason.find("couldn't be kept"), std::string::npos) << reason;
}

TEST_F(ElementRules, AGroupThatHasCeasedIsntAsked) {
    const auto error = fetch("molniya");
    EXPECT_EQ(codeOf(error), codeOf(FetchFailure::ceased));
    EXPECT_NE(messageOf(error).find("\"molniya\""), std::string::npos);
    EXPECT_EQ(messageOf(fetch("stations")), "");
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
        EXPECT_EQ(messageOf(fetch("stations")), "") << memory.substr(0, 80);
    }
    folder.write("fetches.dat", "rubbish\n2024-03-20 11:59:00 200 " + url + "\r\n-1");
    restart();
    EXPECT_EQ(codeOf(fetch("stations")), codeOf(FetchFailure::tooEarly)) << "a bad line costs itself alone";
}

TEST_F(ElementRules, WithoutAMemoryFileTheRunStillRemembers) {
    std::filesystem::create_directory(folder.path() / "fetches.dat");
    EXPECT_EQ(messageOf(fetch("stations")), "");
    EXPECT_EQ(codeOf(fetch("stations")), codeOf(FetchFailure::tooEarly));
    std::filesystem::remove(folder.path() / "fetches.dat");
    ASSERT_EQ(mkfifo((folder.path() / "fetches.dat").c_str(), 0600), 0);
    EXPECT_EQ(codeOf(fetch("stations")), codeOf(FetchFailure::tooEarly)) << "and no pipe holds it up";
}

}  // namespace
}  // namespace vantrace
