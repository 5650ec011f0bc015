#include "core/files.h"

#include "tests/support/temporary_folder.h"
#include "tests/support/testing.h"

namespace vantrace {
namespace {

TEST(FileExists, FindsFilesAndFoldersByName) {
    const TemporaryFolder folder;
    folder.write("faves.dat", "");
    EXPECT_TRUE(FileExists(folder.appPath() + "faves.dat"));
    EXPECT_TRUE(FileExists(folder.path()));
    EXPECT_FALSE(FileExists(folder.appPath() + "groups.dat"));
    EXPECT_FALSE(FileExists(folder.appPath() + "none/faves.dat"));
    EXPECT_FALSE(FileExists(""));
}

TEST(FileExists, TakesStarAndQuestionMarkInTheLastComponent) {
    const TemporaryFolder folder;
    EXPECT_FALSE(FileExists(folder.appPath() + "*")) << "nothing there yet";
    folder.write("weather.txt", "");
    folder.write("sub/amateur.txt", "");
    for (const char* const pattern : {"*", "*.txt", "w*r.*t", "weather.t?t", "?eather.txt", "w*",
                                      "*weather.txt*", "s?b", "sub/*.txt", "**"}) {
        EXPECT_TRUE(FileExists(folder.appPath() + pattern)) << pattern;
    }
    for (const char* const pattern : {"*.dat", "weather.t?", "?weather.txt", "amateur.*", "s*/amateur.txt",
                                      "none/*", "weather.txt/*", "[w]*"}) {
        EXPECT_FALSE(FileExists(folder.appPath() + pattern)) << pattern;
    }
}

TEST(ShortPathOf, IsTheCanonicalPathAndLeavesNoFileWhereThereWasNone) {
    const TemporaryFolder folder;
    folder.write("a b/file.wav", "sound");
    std::filesystem::create_symlink("a b", folder.path() / "link");
    EXPECT_EQ(ShortPathOf(folder.path() / "link/../link/file.wav"), folder.appPath() + "a b/file.wav");
    EXPECT_EQ(folder.read("a b/file.wav"), "sound");
    EXPECT_EQ(ShortPathOf(folder.path() / "new file.wav"), folder.appPath() + "new file.wav");
    EXPECT_FALSE(folder.exists("new file.wav"));
    EXPECT_EQ(ShortPathOf(folder.path() / "none/file.wav"), "");
}

}  // namespace
}  // namespace vantrace
