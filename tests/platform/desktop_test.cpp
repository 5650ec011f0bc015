#include "platform/desktop.h"

#include "tests/support/testing.h"

namespace vantrace {
namespace {

TEST(IsOpenableAddress, TakesPagesAndMailInAnyCase) {
    for (const char* const address :
         {"http://vantrace.example", "https://vantrace.example/help/?a=1&b=%20#top",
          "HTTPS://Vantrace.Example:8080/", "https://user@host/", "https://[::1]/",
          "mailto:maintainer@vantrace.example?subject=Satellite%20Info%20Request%20for%20ISS_(ZARYA)",
          "MailTo:a@b"}) {
        EXPECT_TRUE(isOpenableAddress(address)) << address;
    }
}

TEST(IsOpenableAddress, RefusesWhatStartsProgramsOrReadsFiles) {
    for (const char* const address :
         {"", "vantrace.example", "//vantrace.example/", "/etc/passwd", "file:///etc/passwd",
          "javascript:alert(1)", "ftp://vantrace.example/", "data:text/html,x", "smb://host/share",
          "httpx://host/", "view-source:https://host/", "--help", "-http://host/", " https://host/"}) {
        EXPECT_FALSE(isOpenableAddress(address)) << address;
    }
}

TEST(IsOpenableAddress, RefusesAddressesWithoutAPlace) {
    for (const char* const address :
         {"http:", "http:host", "https://", "https:///etc/passwd", "http://?q", "http://:80/", "http://@host",
          "mailto:", "mailto:?attach=/etc/passwd", "mailto://host"}) {
        EXPECT_FALSE(isOpenableAddress(address)) << address;
    }
}

TEST(IsOpenableAddress, RefusesSignsThatNoAddressHolds) {
    using namespace std::string_view_literals;
    for (const std::string_view address :
         {"https://host/a b"sv, "https://host/\n"sv, "https://host/\0file"sv, "https://host/\x1b[2J"sv,
          "https://host/\x7f"sv, "https://host/\"quoted\""sv, "https://host/`id`"sv, "https://host\\share"sv,
          "https://host/<b>"sv, "https://host/{a,b}|c"sv, "https://h\xC3\xB6st/"sv, "https://host/\x9b"sv}) {
        EXPECT_FALSE(isOpenableAddress(address)) << address;
    }
}

TEST(NoDesktop, SaysThatThereIsNoneToOpenAnything) {
    NoDesktop desktop;
    try {
        desktop.openAddress("https://vantrace.example/");
        FAIL();
    } catch (const DesktopError& failure) {
        EXPECT_STREQ(failure.what(), "there is no desktop to open https://vantrace.example/");
    }
    EXPECT_THROW(desktop.openTextFile("/etc/passwd"), DesktopError);
    EXPECT_FALSE(desktop.hasSystemInformation());
    EXPECT_THROW(desktop.startSystemInformation(), DesktopError);
}

}  // namespace
}  // namespace vantrace
