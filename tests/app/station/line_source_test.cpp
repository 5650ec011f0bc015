#include "app/station/line_source.h"

#include "tests/app/station/tcp_daemon.h"
#include "tests/support/testing.h"

namespace vantrace {
namespace {

TEST(LineSourceTest, AConnectionThatSaysNothingIsMadeAnewWithoutAWord) {
    TcpDaemon tracker{[](const std::string&) { return std::string(); }};
    Texts told;
    std::string last;
    LineSource source(
        tracker.address(), [&](std::string_view line) { last = line; },
        [&](std::string_view text) { told.emplace_back(text); });
    source.tick(0);
    ASSERT_TRUE(eventually([&] { return tracker.arrivals == 1 && told.size() == 1; }));
    source.tick(20);
    tracker.tell("one\n");
    ASSERT_TRUE(eventually([&] { return last == "one"; }));
    source.tick(49);
    QTest::qWait(50);
    EXPECT_EQ(tracker.arrivals, 1) << "it has spoken since";
    source.tick(51);
    ASSERT_TRUE(eventually([&] { return tracker.arrivals == 2; }));
    EXPECT_TRUE(eventually([&] {
        tracker.tell("two\n");
        QTest::qWait(20);
        return last == "two";
    }));
    EXPECT_EQ(told.size(), 1U);
    tracker.die();
    EXPECT_TRUE(eventually([&] { return told.size() == 2; }));
}

}  // namespace
}  // namespace vantrace
