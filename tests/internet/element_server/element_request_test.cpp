#include "internet/element_server/element_request.h"

#include "tests/support/testing.h"

namespace vantrace {
namespace {

const std::string folder = "http://celestrak.org/NORAD/elements/";
const std::string query = "https://celestrak.org/NORAD/elements/gp.php?GROUP=";

struct Case {
    std::string url;
    /// Empty where that is another host.
    std::string asked = {};
    std::string host = "celestrak.org";
};

void expectAsked(const std::vector<Case>& cases) {
    for (const auto& [url, asked, host] : cases) {
        const auto request = elementRequest(url, host);
        EXPECT_EQ(request ? request->url : "", asked) << url << " " << host;
    }
}

TEST(ElementRequest, OldFilesAreAskedAsQueriesForTheirGroupAndOthersAsTheyStand) {
    expectAsked({
        {folder + "stations.txt", query + "stations&FORMAT=csv"},
        {"HTTPS://WWW.CelesTrak.ORG/norad/elements/gps-ops.TXT", query + "gps-ops&FORMAT=csv"},
        {"http://www.celestrak.com/NORAD/elements/tle-new.txt", query + "last-30-days&FORMAT=csv"},
        {folder + "IRIDIUM-next.txt", query + "iridium-NEXT&FORMAT=csv"},
        {folder + "supplemental/iss.txt",
         "https://celestrak.org/NORAD/elements/supplemental/sup-gp.php?FILE=iss&FORMAT=csv"},
        {"http://celestrak.org", "https://celestrak.org/"},
    });
    for (const std::string path : {"gp.php?GROUP=stations&FORMAT=tle", "a%20b.txt", "deep/er.txt"}) {
        expectAsked({{folder + path + "#end", "https://celestrak.org/NORAD/elements/" + path}});
        EXPECT_TRUE(elementRequest(folder + path, "celestrak.org")->isForElements);
    }
    EXPECT_FALSE(elementRequest("http://celestrak.org/satcat.csv", "celestrak.org")->isForElements);
}

TEST(ElementRequest, OtherHostsAreNotTheElementHost) {
    for (const std::string url :
         {"http://elements.example/NORAD/elements/stations.txt", "http://celestrak.org.evil.example/x.txt",
          "http://celestrak.org:8080/NORAD/elements/x.txt", "ftp://celestrak.org/NORAD/elements/x.txt",
          "http://celestrak.org@evil.example/NORAD/elements/x.txt", "celestrak.org/NORAD/elements/x.txt",
          "http://notcelestrak.org/NORAD/elements/x.txt", "http://", ""}) {
        expectAsked({{url}});
    }
}

TEST(ElementRequest, APortThatGoesWithoutSayingMakesNoOtherHostAndAConfiguredOneIsAsked) {
    for (const std::string host : {"celestrak.org:443", "CELESTRAK.org:80", "celestrak.org.",
                                   "celestrak.org:", "me@celestrak.org.:443"}) {
        expectAsked({{"http://" + host + "/NORAD/elements/x.txt", query + "x&FORMAT=csv"}});
    }
    const std::string geo = "/NORAD/elements/geo.txt";
    const std::string asked = "/NORAD/elements/gp.php?GROUP=geo&FORMAT=csv";
    expectAsked({
        {"http://mirror.example" + geo, "https://mirror.example" + asked, "mirror.example.:443"},
        {"http://mirror.example:8443" + geo, "https://mirror.example:8443" + asked, "Mirror.example:8443"},
        {"http://127.0.0.1:8080" + geo, "http://127.0.0.1:8080" + asked, "127.0.0.1:8080"},
        {"http://127.0.0.9:8080" + geo, "", "127.0.0.1:8080"},
        {"http://mirror.net" + geo, "", "mirror.org"},  // somebody else's
        // Whoever has set another host still asks the usual one by its rules.
        {"http://celestrak.org" + geo, "https://celestrak.org" + asked, "mirror.example"},
    });
}

TEST(ElementRequest, AGroupThatHasCeasedIsKnownAndARenamedOneIsNone) {
    for (const auto& [name, group, hasCeased] : {std::tuple{"Molniya", "Molniya", true},
                                                 {"noaa", "noaa", false},
                                                 {"1982-092", "cosmos-1408-debris", false},
                                                 {"iridium-NEXT", "iridium-NEXT", false}}) {
        const auto request = elementRequest(folder + name + ".txt", "celestrak.org");
        EXPECT_EQ(request->hasCeased, hasCeased) << name;
        EXPECT_EQ(request->group, group);
    }
}

}  // namespace
}  // namespace vantrace
