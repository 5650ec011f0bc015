#include "internet/element_server/http_fetcher.h"

#include <sys/stat.h>

#include "platform/text_file.h"
#include "tests/internet/element_server/fetcher_test.h"

namespace vantrace {
namespace {

constexpr const char* plainUrl = "http://update.example/satellite.dat";

std::string shippedSets() {
    return readTextFile(std::string(VANTRACE_DATA_FOLDER) + "/stations.txt", 1 << 20);
}

TEST_F(FetcherTest, APlainPageReplacesTheFileWhateverItHolds) {
    folder.write("satellite.dat", "old");
    client.answers(200, "OK", "<html>sorry</html>");
    client.onGet = [this] { EXPECT_EQ(folder.read("satellite.dat"), "old") << "until all is there"; };
    EXPECT_EQ(outcome(fetchPage(plainUrl, "satellite.dat")), "");
    EXPECT_EQ(folder.read("satellite.dat"), "<html>sorry</html>");
    EXPECT_EQ(folder.names(), Texts{"satellite.dat"});
    EXPECT_EQ(client.requests.at(0).url, plainUrl);
    EXPECT_FALSE(client.requests.at(0).proxy);
}

TEST_F(FetcherTest, RedirectsOfPlainHostsAreFollowedToAnyButTheElementHost) {
    const auto follow = [&](const std::string& from, const std::string& to) {
        client.redirects = {{from, to}, {"http://a.example/circle", "http://a.example/circle"}};
        return fetchPage(from, "x.dat");
    };
    client.answers(200, "OK", "content");
    EXPECT_EQ(outcome(follow(plainUrl, "https://b.example/x")), "");
    EXPECT_EQ(client.requests.back().url, "https://b.example/x");
    EXPECT_EQ(folder.read("x.dat"), "content");
    const std::size_t before = client.requests.size();
    for (const std::string target :
         {"file:///etc/passwd", "ftp://b.example/x", "javascript:1",
          "https://celestrak.org/NORAD/elements/x.txt", "http://www.celestrak.com:443/satcat.csv"}) {
        EXPECT_TRUE(failed(follow(plainUrl, target), HttpFailure::redirect)) << target;
    }
    EXPECT_TRUE(failed(follow("https://a.example/x", "http://a.example/x"), HttpFailure::redirect));
    EXPECT_EQ(client.requests.size() - before, 6U);
    EXPECT_TRUE(failed(follow("http://a.example/", "http://a.example/circle"), HttpFailure::redirect));
    EXPECT_EQ(client.requests.size() - before, 17U);
}

TEST_F(FetcherTest, WhatAKilledRunLeftBehindGoesAfterADay) {
    using namespace std::chrono_literals;
    const Texts old{"x.dat.aB3dEf.part", "x.dat.aB3dEf.tmp",    "x.dat.bak.part",
                    "y.dat.aB3dEf.part", "keps.tmp.aB3dEf.tmp", "fetches.dat.aB3dEf.tmp"};
    for (const std::string& name : old) {
        folder.write(name, "half");
        std::filesystem::last_write_time(folder.path() / name,
                                         std::filesystem::file_time_type::clock::now() - 25h);
    }
    folder.write("x.dat.Young1.part", "of another run");
    client.answers(200, "OK", "content");
    EXPECT_EQ(outcome(fetchPage(plainUrl, "x.dat")), "");
    EXPECT_EQ(folder.names(), (Texts{"x.dat", "x.dat.Young1.part", "x.dat.bak.part", "y.dat.aB3dEf.part"}));
}

TEST_F(FetcherTest, AFailureLeavesTheOldFileAndNothingElse) {
    folder.write("satellite.dat", "old");
    client.answers(404, "Not Found", "<html>no</html>");
    EXPECT_EQ(outcome(fetchPage(plainUrl, "satellite.dat")), "404 Not Found");
    client.answers(500, "", "");
    EXPECT_EQ(outcome(fetchPage(plainUrl, "satellite.dat")), "500 The server's answer");
    client.fails(HttpFailure::closed, true);
    EXPECT_EQ(outcome(fetchPage(plainUrl, "satellite.dat")), "4 It broke");
    EXPECT_EQ(folder.read("satellite.dat"), "old");
    EXPECT_EQ(folder.names(), Texts{"satellite.dat"});
    EXPECT_EQ(client.requests.size(), 3U) << "plain hosts have no rules";
}

TEST_F(FetcherTest, WhatCanTakeNoFileIsKnownBeforeAnythingIsAsked) {
    std::filesystem::create_directory(folder.path() / "folder");
    ASSERT_EQ(mkfifo((folder.path() / "pipe").c_str(), 0600), 0);
    for (const std::string name : {"folder", "folder/", "pipe", "none/here.txt", ""}) {
        EXPECT_TRUE(failed(fetchPage(plainUrl, name), HttpFailure::file, folder.appPath() + name));
    }
    EXPECT_TRUE(client.requests.empty());
}

TEST_F(FetcherTest, ProxyWordsAreTakenOrRefusedByTheirSense) {
    client.answers(200, "OK", "new");
    const auto via = [this](const std::string& host, const std::string& port, const std::string& user = "") {
        return fetcher->FetchToFileViaProxy(plainUrl, folder.appPath() + "x.dat", host, port, user, "secret");
    };
    const std::pair<const char*, const char*> wrong[] = {
        {"", "80"},     {" ", "80"},        {"http://proxy", "80"}, {"a b", "80"},   {"proxy", ""},
        {"proxy", "0"}, {"proxy", "65536"}, {"proxy", "80a"},       {"proxy", "-1"}, {"proxy", "eighty"}};
    for (const auto& [host, port] : wrong) {
        EXPECT_TRUE(failed(via(host, port), FetchFailure::proxyWords)) << host << ":" << port;
    }
    EXPECT_TRUE(client.requests.empty());
    EXPECT_FALSE(folder.exists("x.dat"));
    EXPECT_EQ(outcome(via(" proxy.example ", " 3128 ")), "");
    EXPECT_EQ(outcome(via("[::1]", "3128", "me")), "");
    ASSERT_EQ(client.requests.size(), 2U);
    EXPECT_EQ(client.requests[1].proxy->host, "::1");
    EXPECT_EQ(client.requests[0].proxy->host, "proxy.example");
    EXPECT_EQ(client.requests[0].proxy->port, 3128);
    EXPECT_EQ(client.requests[0].proxy->password, "") << "nobody's";
    EXPECT_EQ(client.requests[1].proxy->user, "me");
    EXPECT_EQ(client.requests[1].proxy->password, "secret");
}

TEST_F(FetcherTest, MessagesOfElementsBecomeThreeLineSets) {
    client.answers(200, "OK", csv);
    EXPECT_EQ(outcome(fetch("stations")), "");
    EXPECT_EQ(client.requests.at(0).url,
              "https://celestrak.org/NORAD/elements/gp.php?GROUP=stations&FORMAT=csv");
    const std::string start = "ISS (ZARYA)             \r\n1 25544U 98067A   26218.05391056 ";
    EXPECT_TRUE(folder.read("stations.txt").starts_with(start)) << folder.read("stations.txt");
    EXPECT_TRUE(told.empty());
}

TEST_F(FetcherTest, SetsThatAreLeftOutAreToldUpToTwenty) {
    std::string broken = csv;
    for (int set = 0; set < 1500; ++set) broken += "BROKEN,1998-067A,yesterday,15.4\r\n";
    client.answers(200, "OK", broken);
    EXPECT_EQ(outcome(fetch("visual")), "");
    ASSERT_EQ(told.size(), 21U);
    EXPECT_EQ(told[0], "visual.txt: left out: line 3 has not the columns of its heading");
    EXPECT_EQ(told.back(), "visual.txt: left out: 1480 more");
}

TEST_F(FetcherTest, ThreeLineSetsAreTakenAsTheyStand) {
    const std::string sets = shippedSets();
    // One that was cut short is for the update to mend.
    for (const std::string& content : {sets, sets.substr(0, 400), "# remark\n\n" + sets}) {
        restart();
        advanceMinutes(120);
        client.answers(200, "OK", content);
        EXPECT_EQ(outcome(fetch("stations")), "");
        EXPECT_EQ(folder.read("stations.txt"), content);
    }
}

TEST_F(FetcherTest, AnAnswerWithoutAGoodSetReplacesNothing) {
    const std::string heading = csv.substr(0, csv.find('\n') + 1);
    const std::string sets = shippedSets();
    const std::string set = sets.substr(0, sets.find('\n', sets.find("\n2 ") + 1) + 1);
    int number = 0;
    for (const std::string& content :
         {std::string("<html>Service</html>"), "<html>\n<pre>\n" + set + "</pre>\n</html>\n", "<pre>\n" + set,
          "Dear user,\nthis is what we have:\n" + set, set + "That was all.\nGood night\n", std::string(),
          std::string("No GP data found"), heading, heading + "X,Y,Z\r\n", std::string(3000, '\0')}) {
        const std::string group = "group" + std::to_string(++number);
        folder.write(group + ".txt", "old");
        client.answers(200, "OK", content);
        EXPECT_TRUE(failed(fetch(group), FetchFailure::noElements, "not asked again before 14:00:00"))
            << content;
        EXPECT_EQ(folder.read(group + ".txt"), "old");
    }
    EXPECT_TRUE(failed(fetch("group1"), FetchFailure::tooEarly, "held no good element set"));
}

TEST_F(FetcherTest, OtherPagesOfTheElementHostArentLookedAt) {
    client.answers(200, "OK", "<html>catalogue</html>");
    EXPECT_EQ(outcome(fetchPage("http://celestrak.org/pub/satcat.csv", "satcat.csv")), "");
    EXPECT_EQ(folder.read("satcat.csv"), "<html>catalogue</html>");
}

}  // namespace
}  // namespace vantrace
