// Clock, number and date format, priority: what the machine tells and takes.
#include <locale.h>
#include <sys/resource.h>
#include <unistd.h>

#include <cstdlib>
#include <ctime>
#include <iostream>
#include <thread>

#include "platform/dialogs.h"
#include "platform/machine_format.h"
#include "platform/process_priority.h"
#include "platform/system_clock.h"
#include "tests/support/temporary_folder.h"
#include "tests/support/testing.h"

namespace vantrace {
namespace {

std::time_t secondsOf(const ClockParts& parts) {
    std::tm time{
        parts.second, parts.minute, parts.hour, parts.day, parts.month - 1, parts.year - 1900, 0, 0, 0, 0,
        nullptr};
    return timegm(&time);
}

TEST(SystemClock, TellsOneInstantInTheZoneOfTheMoment) {
    const SystemClock clock;
    setenv("TZ", "IST-5:30", 1);
    const std::time_t before = std::time(nullptr);
    const ClockReading india = clock.read();
    EXPECT_EQ(secondsOf(india.local) - secondsOf(india.utc), 330 * 60);
    EXPECT_GE(secondsOf(india.utc), before);
    EXPECT_LE(secondsOf(india.utc), std::time(nullptr));
    EXPECT_GE(india.utcMicroseconds, 0);
    EXPECT_LT(india.utcMicroseconds, 1000000);
    setenv("TZ", "NST3:30", 1);
    const ClockReading newfoundland = SystemClock().read();
    EXPECT_EQ(secondsOf(newfoundland.local) - secondsOf(newfoundland.utc), -210 * 60);
}

TEST(MachineFormat, WritesIsoUnlessToldOtherwise) {
    const ClockParts parts{2024, 3, 5, 7, 8, 9};
    EXPECT_EQ(MachineFormat().dateTimeText(parts), "2024-03-05 07:08:09");
    EXPECT_EQ(MachineFormat().longDateText(parts), "Tuesday, 5 March 2024");
    setenv("LC_ALL", "C", 1);
    EXPECT_EQ(machineFormatFromEnvironment().dateTimeText(parts), "2024-03-05 07:08:09");
    setenv("LC_ALL", "no_SUCH.locale", 1);
    EXPECT_EQ(machineFormatFromEnvironment().dateTimeText(parts), "2024-03-05 07:08:09");
}

/// Makes a locale with numbers of one country and times of another. False where the machine can't.
bool makeLocale(const TemporaryFolder& folder, const std::string& numbers, const std::string& times) {
    std::string source;
    for (const char* const category : {"LC_CTYPE", "LC_COLLATE", "LC_MONETARY", "LC_MESSAGES"}) {
        source += std::string(category) + "\ncopy \"POSIX\"\nEND " + category + "\n";
    }
    source += "LC_NUMERIC\ncopy \"" + numbers + "\"\nEND LC_NUMERIC\n";
    source += "LC_TIME\ncopy \"" + times + "\"\nEND LC_TIME\n";
    folder.write(numbers, source);
    const std::string command = "localedef -c -i " + folder.appPath() + numbers + " -f UTF-8 " +
                                folder.appPath() + numbers + ".UTF-8 >/dev/null 2>&1";
    // The categories that are left out earn a warning and a bad exit code.
    return std::system(command.c_str()) != -1 && folder.exists(numbers + ".UTF-8/LC_TIME");
}

/// What a process in that environment writes; it tells on its error stream and ends.
[[noreturn]] void tellFormat(const TemporaryFolder& folder, const std::string& locale) {
    setenv("LOCPATH", folder.path().c_str(), 1);
    setenv("LC_ALL", locale.c_str(), 1);
    const MachineFormat format = machineFormatFromEnvironment();
    std::cerr << "mark " << format.decimalMark << " at " << format.dateTimeText({2024, 3, 5, 17, 8, 9})
              << " on " << format.longDateText({2024, 3, 5}) << " in " << setlocale(LC_ALL, nullptr)
              << std::endl;
    // Not exit: the platform's library never frees the path of locales, and leak checkers run there.
    _exit(0);
}

TEST(MachineFormat, FollowsTheEnvironmentAndLeavesTheProcessAlone) {
    const TemporaryFolder folder;
    if (!makeLocale(folder, "de_DE", "de_DE") || !makeLocale(folder, "ps_AF", "de_DE") ||
        !makeLocale(folder, "en_US", "en_US") || !makeLocale(folder, "zh_CN", "zh_CN")) {
        GTEST_SKIP() << "this machine can't make locales";
    }
    // The decimal mark of ps_AF has several bytes.
    const std::vector<std::pair<const char*, const char*>> told{
        {"de_DE.UTF-8", "mark , at 05.03.2024 17:08:09 on Dienstag, 5 März 2024 in C"},
        {"en_US.UTF-8", "on Tuesday, March 5, 2024 in C"},
        {"zh_CN.UTF-8", "on 2024年03月05日 星期二 in C"},
        {"ps_AF.UTF-8", "mark \\. at 05.03.2024 17:08:09 on Dienstag, 5 März 2024 in C"}};
    for (const auto& [locale, text] : told)
        EXPECT_EXIT(tellFormat(folder, locale), testing::ExitedWithCode(0), text);
}

TEST(ProcessPriority, GoesDownOnlyWhereItCanComeBack) {
    if (getpriority(PRIO_PROCESS, 0) != 0) GTEST_SKIP() << "run at a nice value of its own";
    // A nice value is a thread's own here; a thread that ends takes it along.
    std::thread([] {
        ASSERT_TRUE(setProcessPriority(PriorityClass::Normal));
        const bool lowered = setProcessPriority(PriorityClass::Idle);
        EXPECT_EQ(getpriority(PRIO_PROCESS, 0), lowered ? 19 : 0);
        EXPECT_TRUE(setProcessPriority(PriorityClass::Normal));
        EXPECT_EQ(getpriority(PRIO_PROCESS, 0), 0);
    }).join();
    std::thread([] {
        ASSERT_EQ(setpriority(PRIO_PROCESS, 0, 5), 0);
        EXPECT_FALSE(setProcessPriority(PriorityClass::Idle)) << "the user chose 5";
        EXPECT_EQ(getpriority(PRIO_PROCESS, 0), 5);
    }).join();
}

TEST(StreamDialogs, AMessageIsALine) {
    std::ostringstream stream;
    StreamDialogs(stream).message("One");
    EXPECT_EQ(stream.str(), "One\n");
}

}  // namespace
}  // namespace vantrace
