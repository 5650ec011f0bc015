#include "platform/daytime_reply.h"

#include "tests/support/testing.h"

namespace vantrace {
namespace {

using namespace std::chrono;
using namespace std::chrono_literals;

constexpr UtcTime november23 = sys_days{2023y / 11 / 23} + 6h + 18min + 38s;

UtcTime readAs(const std::string& text, UtcTime machine = november23, minutes ahead = 60min) {
    const auto reply = readDaytimeReply(text);
    return reply ? instantOf(*reply, machine, ahead) : UtcTime{};
}

TEST(DaytimeReply, ATextOfNistIsUtcAndAsFarAheadAsItSaysUnlessTheServerIsntWell) {
    EXPECT_EQ(readAs("\n60271 23-11-23 06:18:38 00 0 0 895.3 UTC(NIST) * \n"), november23 - 895ms);
    EXPECT_EQ(readAs("60271 23-11-23 06:18:38 50 1 0  50.0 UTC(NIST) *"), november23 - 50ms);
    for (const std::string health : {"1", "2", "3", "4", "9", "x"}) {
        EXPECT_FALSE(readDaytimeReply("60271 23-11-23 06:18:38 00 0 " + health + " 895.3 UTC(NIST) *\n"))
            << health;
    }
}

TEST(DaytimeReply, FormsWithAZoneTellTheirInstant) {
    // Without a fraction, the middle of the second.
    for (const std::string text :
         {"Thursday, November 23, 2023 06:18:38-UTC\r\n", "Thu, Nov, 23, 2023, 06:18:38-UTC",
          "23 NOV 23 06:18:38 UTC", "23-NOV-2023 06:18:38 GMT", "Wednesday, November 22, 2023 22:18:38-PST",
          "22 nov 23 22:18:38 pst", "Thu Nov 23 07:18:38 CET 2023\n", "Thu, 23 Nov 2023 07:18:38 +0100",
          "2023-11-23T06:18:38Z", "2023-11-23 11:48:38 +05:30", "2023-11-23T01:18:38-05"}) {
        EXPECT_EQ(readAs(text), november23 + 500ms) << text;
    }
    EXPECT_EQ(readAs("2023-11-23T06:18:38.25Z"), november23 + 250ms);
    EXPECT_EQ(readAs("31 DEC 2023 23:59:60 UTC"), sys_days{2024y / 1 / 1} + 500ms) << "a leap second";
}

TEST(DaytimeReply, WithoutAZoneTheReadingNextToTheMachinesClockCounts) {
    const auto machine = november23 + 3min;
    EXPECT_EQ(readAs("Thu Nov 23 06:18:38 2023\n", machine, 60min), november23 + 500ms) << "UTC";
    EXPECT_EQ(readAs("Thu Nov 23 07:18:38 2023\n", machine, 60min), november23 + 500ms) << "local";
    EXPECT_EQ(readAs("Wed Nov 22 22:18:38 2023\n", machine, -480min), november23 + 500ms) << "local, west";
}

TEST(DaytimeReply, DatesWithSlashesAreReadByTheirNumbersOrElseByTheMachinesClock) {
    for (const std::string text :
         {"6:18:38 AM 11/23/2023\n", "11/23/2023 6:18:38 AM", "23/11/2023 06:18:38", "7:18:38 am 11/23/23"}) {
        EXPECT_EQ(readAs(text), november23 + 500ms) << text;
    }
    EXPECT_EQ(readAs("12:00:00 AM 11/23/2023 UTC"), sys_days{2023y / 11 / 23} + 500ms);
    EXPECT_EQ(readAs("12:00:00 PM 11/23/2023 UTC"), sys_days{2023y / 11 / 23} + 12h + 500ms);
    for (const auto day : {sys_days{2023y / 11 / 10}, sys_days{2023y / 10 / 11}}) {
        EXPECT_EQ(readAs("18:18:38 11/10/2023", day + 18h), day + 18h + 18min + 38s + 500ms);
    }
    for (const std::string text :
         {"6:18:38 AM 13/23/2023", "6:18:38 AM PM 11/23/2023", "13:18:38 PM 11/23/2023",
          "0:18:38 AM 11/23/2023", "AM 11/23/2023", "6:18:38 11/23", "6:18:38 1/1/1/2023"}) {
        EXPECT_FALSE(readDaytimeReply(text)) << text;
    }
}

TEST(DaytimeReply, WhatIsntATimeIsRefused) {
    const std::vector<std::pair<const char*, Texts>> wrong{
        {"no time",
         {"", "\r\n \r\n", "hello", "06:18:38", "2023-11-23", "HTTP/1.1 400 Bad Request", "<html>",
          "220 mail.example ESMTP", "23 24 25 NOV 06:18:38", std::string(100'000, '9')}},
        {"a part that can't be",
         {"23 NOV 2023 24:00:00 UTC", "23 NOV 2023 06:60:00 UTC", "30 FEB 2023 06:18:38 UTC",
          "0 NOV 2023 06:18:38 UTC", "23 NOV 2023 06:18:38 XYZ", "23 NOV 1970 06:18:38 UTC",
          "23 NOV 2150 06:18:38 UTC", "23 NOV 2023 06:18:38 +99:00", "2026-257-01 06:18:38 UTC",
          "99999999999999999999 NOV 2023"}},
        {"a part too many or too few",
         {"23 NOV 2023 06:18:38 UTC UTC", "23 NOV 2023 06:18:38 06:18:38", "23 NOV 2023 06:18",
          "23 NOV 2023 06:18:38 UTC\x01", std::string("23 NOV 2023 06:18:38\0UTC", 24)}},
        {"half of a text of NIST",
         {"60271 23-11-23 06:18:38", "60271 23-11-279 06:18:38 00 0 0 50.0 UTC(NIST) *",
          "60271 23-11-23 06:18:38 00 0 0 895 UTC(NIST) *"}}};
    for (const auto& [reason, texts] : wrong)
        for (const std::string& text : texts) EXPECT_FALSE(readDaytimeReply(text)) << reason << ": " << text;
}

}  // namespace
}  // namespace vantrace
