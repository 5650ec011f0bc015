#include "platform/file_settings_store.h"

#include <sys/stat.h>
#include <unistd.h>

#include "tests/support/temporary_folder.h"
#include "tests/support/testing.h"

namespace vantrace {
namespace {

class FileSettingsStoreTest : public testing::Test {
  protected:
    std::string onDisk() const { return folder.read("config/vantrace/settings.conf"); }
    void writeToDisk(std::string_view settings) const {
        folder.write("config/vantrace/settings.conf", "[Vantrace/Settings]\n" + std::string(settings));
    }
    ino_t inode() const {
        struct stat status {};
        return stat(path.c_str(), &status) == 0 ? status.st_ino : 0;
    }
    mode_t mode(const std::filesystem::path& of) const {
        struct stat status {};
        return stat(of.c_str(), &status) == 0 ? status.st_mode & mode_t{0777} : mode_t{0};
    }

    const TemporaryFolder folder;
    const std::filesystem::path path = folder.path() / "config/vantrace/settings.conf";
};

TEST_F(FileSettingsStoreTest, KeepsValuesForTheUserAlone) {
    FileSettingsStore(path).set("ProxyPass", "secret \n=");
    EXPECT_EQ(FileSettingsStore(path).get("proxypass"), "secret \n=");
    EXPECT_EQ(FileSettingsStore(path).get("ProxyUser"), std::nullopt);
    EXPECT_EQ(mode(path), 0600U);
    EXPECT_EQ(mode(path.parent_path()), 0700U);
    EXPECT_EQ(mode(folder.path() / "config"), 0700U);

    chmod(path.c_str(), 0644);
    FileSettingsStore(path).set("Skin", "0");
    EXPECT_EQ(mode(path), 0600U);
}

TEST_F(FileSettingsStoreTest, SavingTheHeldValueWritesNothing) {
    FileSettingsStore store(path);
    store.set("Skin", "1");
    const ino_t before = inode();
    store.set("Skin", "1");
    store.set("SKIN", "1");
    EXPECT_EQ(inode(), before) << "a write makes a new file";
    store.set("Skin", "0");
    EXPECT_NE(inode(), before);
}

TEST_F(FileSettingsStoreTest, ABatchIsWrittenOnceAtItsEnd) {
    FileSettingsStore store(path);
    {
        const SettingsBatch outer(store);
        store.set("WinPosX", "1");
        {
            const SettingsBatch inner(store);
            store.set("WinPosY", "2");
        }
        EXPECT_EQ(store.get("WinPosY"), "2");
        EXPECT_FALSE(std::filesystem::exists(path));
    }
    EXPECT_EQ(onDisk(), "[Vantrace/Settings]\nWinPosX=1\nWinPosY=2\n");
}

TEST_F(FileSettingsStoreTest, ReadsAgainOnlyWhenTheFileChanged) {
    writeToDisk("Skin=1\n");
    FileSettingsStore store(path);
    writeToDisk("Skin=0\nVoice=3\n");
    EXPECT_EQ(store.get("Skin"), "1") << "a read looks at no disk";
    store.refresh();
    EXPECT_EQ(store.get("Skin"), "0");
    std::filesystem::remove(path);
    store.refresh();
    EXPECT_EQ(store.get("Skin"), std::nullopt);
}

TEST_F(FileSettingsStoreTest, TwoProgramsKeepEachOthersChanges) {
    FileSettingsStore first(path);
    FileSettingsStore second(path);
    first.set("Skin", "0");
    second.set("Voice", "3");
    first.set("DMS", "1");
    EXPECT_EQ(onDisk(), "[Vantrace/Settings]\nSkin=0\nVoice=3\nDMS=1\n");
    second.refresh();
    EXPECT_EQ(second.get("DMS"), "1");
}

TEST_F(FileSettingsStoreTest, ResetRemovesEveryKeyForGood) {
    FileSettingsStore store(path);
    store.set("Skin", "0");
    store.removeAll();
    EXPECT_EQ(store.get("Skin"), std::nullopt);
    EXPECT_EQ(FileSettingsStore(path).get("Skin"), std::nullopt);
    store.set("skin", "1");
    EXPECT_EQ(onDisk(), "[Vantrace/Settings]\nskin=1\n");
}

TEST_F(FileSettingsStoreTest, AFileThatCannotBeReadIsLeftAndValuesLiveOn) {
    std::filesystem::create_directories(path);
    FileSettingsStore onFolder(path);
    onFolder.set("Skin", "0");
    EXPECT_EQ(onFolder.get("Skin"), "0");
    EXPECT_TRUE(std::filesystem::is_directory(path));

    std::filesystem::remove(path);
    ASSERT_EQ(mkfifo(path.c_str(), 0600), 0);
    FileSettingsStore onPipe(path);
    onPipe.set("Skin", "0");
    EXPECT_EQ(onPipe.get("Skin"), "0");
    EXPECT_TRUE(std::filesystem::is_fifo(path));

    std::filesystem::remove(path);
    writeToDisk("Voice=3\n");
    constexpr off_t hugeBytes = 100'000'000;
    ASSERT_EQ(truncate(path.c_str(), hugeBytes), 0);
    FileSettingsStore onHuge(path);
    onHuge.set("Skin", "0");
    EXPECT_EQ(onHuge.get("Skin"), "0");
    EXPECT_EQ(std::filesystem::file_size(path), static_cast<std::uintmax_t>(hugeBytes));
}

TEST_F(FileSettingsStoreTest, WhatCouldNotBeStoredIsStoredLater) {
    std::filesystem::create_directories(path);
    FileSettingsStore store(path);
    store.set("Skin", "0");
    std::filesystem::remove(path);
    writeToDisk("Skin=1\nVoice=3\n");
    store.refresh();
    EXPECT_EQ(store.get("Skin"), "0");
    EXPECT_EQ(store.get("Voice"), "3");
    EXPECT_EQ(onDisk(), "[Vantrace/Settings]\nSkin=0\nVoice=3\n");
}

TEST_F(FileSettingsStoreTest, ABinaryFileKeepsItsBytesBesideTheSettings) {
    std::string junk;
    for (int i = 0; i < 5000; ++i) junk += static_cast<char>(i * 37);
    folder.write("config/vantrace/settings.conf", junk);
    FileSettingsStore(path).set("Skin", "0");
    EXPECT_TRUE(onDisk().starts_with(junk));
    EXPECT_EQ(FileSettingsStore(path).get("Skin"), "0");
}

TEST_F(FileSettingsStoreTest, WithoutAPlaceValuesLiveInMemory) {
    folder.write("file", "");
    FileSettingsStore store(folder.path() / "file/vantrace/settings.conf");
    store.set("Skin", "0");
    EXPECT_EQ(store.get("Skin"), "0");
    store.removeAll();
    EXPECT_EQ(store.get("Skin"), std::nullopt);
}

}  // namespace
}  // namespace vantrace
