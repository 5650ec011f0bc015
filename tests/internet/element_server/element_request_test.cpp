#include "internet/element_server/element_request.h"

#include "tests/support/testing.h"

namespace vantrace {
namespace {

std::string asked(const std::string& url, const std::string& host = "celestrak.org") {
    const auto request = elementRequest(url, host);
    return request ? request->url : "";
}

TEST(ElementRequest, OldFilesAreAskedAsQueriesForTheirGroup) {
    const std::string query = "https://celestrak.org/NORAD/elements/gp.php?GROUP=";
    EXPECT_EQ(asked("http://celestrak.org/NORAD/elements/stations.txt"), query + "stations&FORMAT=csv");
    EXPECT_EQ(asked("HTTPS://WWW.CelesTrak.ORG/norad/elements/gps-ops.TXT"), query + "gps-ops&FORMAT=csv");
    EXPECT_EQ(asked("http://www.celestrak.com/NORAD/elements/tle-new.txt"),
              query + "last-30-days&FORMAT=csv");
    EXPECT_EQ(asked("http://celestrak.org/NORAD/elements/IRIDIUM-next.txt"),
              query + "iridium-NEXT&FORMAT=csv");
    EXPECT_EQ(asked("http://celestrak.org/NORAD/elements/supplemental/iss.txt"),
              "https://celestrak.org/NORAD/elements/supplemental/sup-gp.php?FILE=iss&FORMAT=csv");
}

TEST(ElementRequest, OtherAddressesOfTheHostAreAskedAsTheyStand) {
    for (const std::string path : {"/NORAD/elements/gp.php?GROUP=stations&FORMAT=tle",
                                   "/NORAD/elements/a%20b.txt", "/NORAD/elements/deep/er.txt"}) {
        const auto request = elementRequest("http://celestrak.org" + path + "#end", "celestrak.org");
        ASSERT_TRUE(request);
        EXPECT_EQ(request->url, "https://celestrak.org" + path);
        EXPECT_TRUE(request->isForElements);
    }
    EXPECT_EQ(asked("http://celestrak.org"), "https://celestrak.org/");
    EXPECT_FALSE(elementRequest("http://celestrak.org/satcat.csv", "celestrak.org")->isForElements);
}

TEST(ElementRequest, OtherHostsAreNotTheElementHost) {
    for (const std::string url :
         {"http://elements.example/NORAD/elements/stations.txt", "http://celestrak.org.evil.example/x.txt",
          "http://celestrak.org:8080/NORAD/elements/x.txt", "ftp://celestrak.org/NORAD/elements/x.txt",
          "http://celestrak.org@evil.example/NORAD/elements/x.txt", "celestrak.org/NORAD/elements/x.txt",
          "http://notcelestrak.org/NORAD/elements/x.txt", "http://", ""}) {
        EXPECT_EQ(asked(url), "") << url;
    }
}

TEST(ElementRequest, APortThatGoesWithoutSayingMakesNoOtherHost) {
    for (const std::string host : {"celestrak.org:443", "CELESTRAK.org:80", "celestrak.org.",
                                   "celestrak.org:", "me@celestrak.org.:443"}) {
        EXPECT_EQ(asked("http://" + host + "/NORAD/elements/x.txt"),
                  "https://celestrak.org/NORAD/elements/gp.php?GROUP=x&FORMAT=csv")
            << host;
    }
    EXPECT_NE(asked("http://mirror.example/NORAD/elements/x.txt", "mirror.example.:443"), "");
}

TEST(ElementRequest, AConfiguredHostIsAskedWithItsPort) {
    EXPECT_EQ(asked("http://mirror.example:8443/NORAD/elements/geo.txt", "Mirror.example:8443"),
              "https://mirror.example:8443/NORAD/elements/gp.php?GROUP=geo&FORMAT=csv");
    EXPECT_EQ(asked("http://127.0.0.1:8080/NORAD/elements/geo.txt", "127.0.0.1:8080"),
              "http://127.0.0.1:8080/NORAD/elements/gp.php?GROUP=geo&FORMAT=csv");
    EXPECT_EQ(asked("http://127.0.0.9:8080/NORAD/elements/geo.txt", "127.0.0.1:8080"), "");
    EXPECT_EQ(asked("http://mirror.net/NORAD/elements/geo.txt", "mirror.org"), "") << "somebody else's";
    // Whoever has set another host still asks the usual one by its rules.
    EXPECT_EQ(asked("http://celestrak.org/NORAD/elements/geo.txt", "mirror.example"),
              "https://celestrak.org/NORAD/elements/gp.php?GROUP=geo&FORMAT=csv");
}

TEST(ElementRequest, AGroupThatHasCeasedIsKnown) {
    const auto ceased = elementRequest("http://celestrak.org/NORAD/elements/Molniya.txt", "celestrak.org");
    ASSERT_TRUE(ceased);
    EXPECT_TRUE(ceased->hasCeased);
    EXPECT_EQ(ceased->group, "Molniya");
    for (const auto& [name, isCeased] :
         {std::pair{"molniya", true}, {"noaa", false}, {"other-comm", false}, {"iridium-NEXT", false}}) {
        const std::string url = "http://celestrak.org/NORAD/elements/" + std::string(name) + ".txt";
        EXPECT_EQ(elementRequest(url, "celestrak.org")->hasCeased, isCeased) << name;
    }
    EXPECT_EQ(elementRequest("http://celestrak.org/NORAD/elements/1982-092.txt", "celestrak.org")->group,
              "cosmos-1408-debris");
}

}  // namespace
}  // namespace vantrace
