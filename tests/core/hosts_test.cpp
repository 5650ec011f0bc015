#include "core/hosts.h"

#include <tuple>

#include "core/program_state.h"
#include "tests/support/temporary_folder.h"
#include "tests/support/testing.h"

namespace vantrace {

static auto all(const Hosts& hosts) {
    return std::tie(hosts.homePage, hosts.helpPage, hosts.videoPlaylists, hosts.searchPage, hosts.maintainer,
                    hosts.flareHost, hosts.elementHost, hosts.updateHost, hosts.timeHost);
}
bool operator==(const Hosts& left, const Hosts& right) {
    return all(left) == all(right);
}

namespace {

class HostsTest : public ::testing::Test {
  protected:
    Hosts read(std::string_view content) {
        folder.write("hosts.dat", content);
        state.AppPath = folder.appPath();
        return readHosts(state);
    }

    TemporaryFolder folder;
    ProgramState state;
};

TEST_F(HostsTest, TheFileThatShipsSaysWhatIsCompiledInWithEveryKey) {
    state.AppPath = VANTRACE_DATA_FOLDER "/";
    EXPECT_EQ(readHosts(state), Hosts());
    const std::string text = TemporaryFolder().read(state.AppPath + "hosts.dat");
    for (const char* const key : {"homePage", "helpPage", "videoPlaylists", "searchPage", "maintainer",
                                  "flareHost", "elementHost", "updateHost", "timeHost"}) {
        EXPECT_NE(text.find("\r\n" + std::string(key) + "="), std::string::npos) << key;
    }
}

TEST_F(HostsTest, ReadsEveryKeyInAnyCaseAndAroundBlanks) {
    const Hosts hosts = read(
        "# homePage=https://remark/\r\n  # helpPage=https://remark/\n\n"
        "HOMEPAGE = http://a/?x=1=2 \nhelppage=HTTPS://b\nvideoPlaylists=http://c/\n "
        "searchPage=http://d/?q=\n"
        "maintainer=e@f.example\nflareHost=localhost:8080\nelementHost=1.2.3.4\nupdateHost=g-h.example\n"
        "timeHost=first\ntimeHost=second");
    Hosts expected;
    expected.homePage = "http://a/?x=1=2";
    expected.helpPage = "HTTPS://b";
    expected.videoPlaylists = "http://c/";
    expected.searchPage = "http://d/?q=";
    expected.maintainer = "e@f.example";
    expected.flareHost = "localhost:8080";
    expected.elementHost = "1.2.3.4";
    expected.updateHost = "g-h.example";
    expected.timeHost = "second";
    EXPECT_EQ(hosts, expected);
}

TEST_F(HostsTest, ALineThatMakesNoSenseCostsItselfAlone) {
    const std::vector<std::pair<std::string, Texts>> wrong{
        {"homePage=",
         {"", "  ", "file:///etc/passwd", "javascript:alert(1)", "mailto:a@b", "https://a b/",
          std::string("https://a/\0", 11), "vantrace.example"}},
        {"maintainer=", {"a", "@a", "a@", "a@b@c", "a@b?attach=x", "mailto:a@b", "a b@c", "a@b,c"}},
        {"flareHost=",
         {"http://a/", "a/b", "a b", "a_b", "user@a", "a:", "a:0", "a:65536", "a:80x", "a:+80", ":80", "-a",
          "..", "\xC3\xB6"}},
        {"", {"homePage", "=https://a/", "homePages=https://a/", "home Page=https://a/"}}};
    Hosts expected;
    expected.timeHost = "time.example";
    for (const auto& [key, values] : wrong)
        for (const std::string& value : values)
            EXPECT_EQ(read(key + value + "\r\ntimeHost=time.example\r\n"), expected) << key << value;
}

TEST_F(HostsTest, WithoutAReadableFileEverythingIsAsCompiledIn) {
    state.AppPath = folder.appPath() + "none/";
    EXPECT_EQ(readHosts(state), Hosts());
    EXPECT_EQ(read("timeHost=a\n" + std::string(65536, '#')), Hosts()) << "too long";
    EXPECT_EQ(read("timeHost=a\n" + std::string(65536 - 11, '#')).timeHost, "a");
    std::filesystem::remove(folder.path() / "hosts.dat");
    std::filesystem::create_directory(folder.path() / "hosts.dat");
    EXPECT_EQ(readHosts(state), Hosts()) << "a folder";
}

}  // namespace
}  // namespace vantrace
