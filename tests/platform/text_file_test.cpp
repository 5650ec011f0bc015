#include "platform/text_file.h"

#include <sys/stat.h>

#include "tests/support/temporary_folder.h"
#include "tests/support/testing.h"

namespace vantrace {
namespace {

using Lines = std::vector<std::string_view>;

std::string failureOfReading(const std::filesystem::path& path, std::size_t limitBytes) {
    try {
        readTextFile(path, limitBytes);
    } catch (const FileError& failure) {
        return failure.what();
    }
    return "";
}

TEST(SplitLines, TakesBothEndsAndALastLineWithoutOne) {
    EXPECT_EQ(splitLines(""), Lines{});
    EXPECT_EQ(splitLines("\n"), Lines{""});
    EXPECT_EQ(splitLines("a"), Lines{"a"});
    EXPECT_EQ(splitLines("a\r\nb\nc\r\n"), (Lines{"a", "b", "c"}));
    EXPECT_EQ(splitLines("a\n\n\nb"), (Lines{"a", "", "", "b"}));
    EXPECT_EQ(splitLines("a\rb\r\r\nc"), (Lines{"a\rb\r", "c"})) << "a lone CR ends nothing";
    EXPECT_EQ(splitLines("a\r\nb\r"), (Lines{"a", "b"})) << "a file cut within its last line end";
    EXPECT_EQ(splitLines("\xEF\xBB\xBF"
                         "a\nb"),
              (Lines{"a", "b"}))
        << "a mark at the start is no text";
}

TEST(ReadTextFile, ReadsEveryByteUpToTheLimit) {
    const TemporaryFolder folder;
    const std::string content("a\0b\r\n\xff", 6);
    folder.write("file", content);
    EXPECT_EQ(readTextFile(folder.path() / "file", content.size()), content);
    EXPECT_EQ(failureOfReading(folder.path() / "file", content.size() - 1),
              folder.appPath() + "file: longer than 5 bytes");
}

TEST(ReadTextFile, HoldsAFileThatTellsNoSizeToTheLimit) {
    // Files of this file system are 0 bytes long until they are read.
    EXPECT_NE(readTextFile("/proc/self/status", 100000).find("Name:"), std::string::npos);
    EXPECT_EQ(failureOfReading("/proc/self/status", 10), "/proc/self/status: longer than 10 bytes");
}

TEST(ReadTextFile, RefusesWhatIsNoFileAndNeverWaits) {
    const TemporaryFolder folder;
    ASSERT_EQ(mkfifo((folder.appPath() + "pipe").c_str(), 0600), 0);
    EXPECT_EQ(failureOfReading(folder.path() / "pipe", 100), folder.appPath() + "pipe: not a regular file");
    EXPECT_EQ(failureOfReading("/dev/zero", 100), "/dev/zero: not a regular file");
    EXPECT_EQ(failureOfReading(folder.path(), 100), folder.path().string() + ": not a regular file");
    EXPECT_EQ(failureOfReading(folder.path() / "none", 100),
              folder.appPath() + "none: No such file or directory");
}

}  // namespace
}  // namespace vantrace
