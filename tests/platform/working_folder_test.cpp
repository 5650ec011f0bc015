// The current directory, and new names in it.
#include "platform/working_folder.h"

#include "platform/file_renaming.h"
#include "tests/support/temporary_folder.h"
#include "tests/support/testing.h"

namespace vantrace {
namespace {

namespace fs = std::filesystem;

class WorkingFolderTest : public ::testing::Test {
  protected:
    ~WorkingFolderTest() override { fs::current_path("/"); }

    TemporaryFolder folder;
    TemporaryFolder refuge;
};

TEST_F(WorkingFolderTest, AFolderThatTakesFilesStays) {
    fs::current_path(folder.path());
    leaveUnwritableFolder(refuge.path());
    EXPECT_EQ(fs::current_path(), fs::canonical(folder.path()));
    EXPECT_TRUE(folder.names().empty()) << "the trial leaves nothing";
}

TEST_F(WorkingFolderTest, OneThatTakesNoneIsLeft) {
    // Folders of the system itself refuse even those who may write everything.
    fs::current_path("/proc/self");
    leaveUnwritableFolder(refuge.path() / "nowhere");
    EXPECT_EQ(fs::current_path().parent_path(), "/proc") << "there is no such refuge";
    leaveUnwritableFolder(refuge.path());
    EXPECT_EQ(fs::current_path(), fs::canonical(refuge.path()));

    fs::create_directory(folder.path() / "gone");
    fs::current_path(folder.path() / "gone");
    fs::remove(folder.path() / "gone");
    leaveUnwritableFolder(refuge.path());
    EXPECT_EQ(fs::current_path(), fs::canonical(refuge.path()));
}

TEST_F(WorkingFolderTest, ANewNameNeverCostsAFileNorLeavesTheFolder) {
    folder.write("inner/sound.wav", "sound");
    folder.write("inner/taken.wav", "taken");
    const fs::path file = folder.path() / "inner" / "sound.wav";
    const std::string withZero("a\0b", 3);
    for (const std::string& name :
         {std::string("taken.wav"), std::string("../sound.wav"), std::string("/sound.wav"), std::string(".."),
          std::string("."), std::string(), std::string(256, 'n'), withZero}) {
        EXPECT_FALSE(renameInItsFolder(file, name)) << name;
        EXPECT_EQ(folder.read("inner/sound.wav"), "sound") << name;
    }
    EXPECT_EQ(folder.read("inner/taken.wav"), "taken");
    EXPECT_TRUE(renameInItsFolder(file, "A B, C.wav"));
    EXPECT_EQ(folder.read("inner/A B, C.wav"), "sound");
    EXPECT_FALSE(renameInItsFolder(file, "again.wav"));
}

}  // namespace
}  // namespace vantrace
