#include "flares/flare_request.h"

#include "core/program_state.h"
#include "tests/support/test_services.h"
#include "tests/support/testing.h"

namespace vantrace {
namespace {

class FlareRequestTest : public ::testing::Test {
  protected:
    FlareRequestTest() {
        fakes.folder.write("hosts.dat", "flareHost=flares.test:8080\r\n");
        state.AppPath = fakes.folder.appPath();
    }
    /// What is asked for an observer at that place, between the host and the fixed end.
    std::string place(double latitude, double longitudeWest) {
        state.ObserverLatitude = latitude;
        state.ObserverLongitude = longitudeWest;
        const std::string url = flareUrl(state);
        const std::string start = "http://flares.test:8080/iridium.asp?";
        const std::string end = "&alt=0&loc=Unspecified&TZ=UCT&Dur=7";
        EXPECT_TRUE(url.starts_with(start) && url.ends_with(end)) << url;
        return url.substr(start.size(), url.size() - start.size() - end.size());
    }

    TestServices fakes;
    ProgramState state;
};

TEST_F(FlareRequestTest, LongitudesAreTurnedToTheEast) {
    EXPECT_EQ(place(-33.9, 151.2), "lat=-33.9&lng=-151.2");
    EXPECT_EQ(place(0, 0), "lat=0&lng=0");
    EXPECT_EQ(place(0.5, 359.5), "lat=.5&lng=.5");
    EXPECT_EQ(place(90, 180), "lat=90&lng=180");
    EXPECT_EQ(place(1.0 / 3.0, 179.999), "lat=.333333333333333&lng=-179.999");
    EXPECT_THROW(place(std::numeric_limits<double>::quiet_NaN(), 0), std::range_error);
}

TEST_F(FlareRequestTest, OnlyAnExactOneTurnsTheProxyOn) {
    for (const char* value : {"0", "true", "-1", "01", "1 "}) {
        fakes.settings.set("ProxyON", value);
        fakes.settings.set("ProxyHost", "proxy.test");
        fetchFlares(fakes.services, "http://a/", "file");
        EXPECT_TRUE(fakes.fetcher.requests.back().proxy.empty()) << value;
    }
    EXPECT_FALSE(fakes.settings.get("ProxyPort")) << "nobody has asked for it yet";
    fakes.settings.set("ProxyON", "1");
    fakes.settings.set("ProxyUser", "me");
    fetchFlares(fakes.services, "http://a/", "file");
    EXPECT_EQ(fakes.fetcher.requests.back().proxy, (Texts{"proxy.test", "80", "me", ""}));
    EXPECT_EQ(fakes.settings.get("ProxyPort"), "80") << "the first reader fixes it";
    fakes.settings.set("ProxyPort", "1080");
    fetchFlares(fakes.services, "http://a/", "file");
    EXPECT_EQ(fakes.fetcher.requests.back().proxy.at(1), "1080");
}

TEST_F(FlareRequestTest, APageIsOneTextWithoutLineEnds) {
    const std::pair<std::string, std::string> cases[] = {
        {std::string("one\r\n\r\n two\n\0three\r\n", 20), std::string("one two\0three", 13)},
        {"<TD>5\r Mar\r\r\n</TD>\r", "<TD>5 Mar</TD>"},  // a carriage return alone is a line end
        {"Iridium\xA0\r\n7", "Iridium\u00A07"},          // a page of Windows
        {"", ""}};
    for (const auto& [content, page] : cases) {
        fakes.folder.write("page", content);
        EXPECT_EQ(readFlarePage(fakes.folder.appPath() + "page"), page);
    }
    EXPECT_THROW(readFlarePage(fakes.folder.appPath() + "none"), FileError);
    EXPECT_THROW(readFlarePage(fakes.folder.appPath()), FileError);
}

}  // namespace
}  // namespace vantrace
