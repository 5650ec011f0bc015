#include <sys/stat.h>
#include <unistd.h>

#include "platform/file_settings_store.h"
#include "platform/settings_document.h"
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

TEST_F(FileSettingsStoreTest, TwoProgramsKeepEachOthersChangesAndReadThemWhenTold) {
    FileSettingsStore first(path);
    FileSettingsStore second(path);
    first.set("Skin", "0");
    second.set("Voice", "3");
    first.set("DMS", "1");
    EXPECT_EQ(onDisk(), "[Vantrace/Settings]\nSkin=0\nVoice=3\nDMS=1\n");
    EXPECT_EQ(second.get("DMS"), std::nullopt) << "a read looks at no disk";
    second.refresh();
    EXPECT_EQ(second.get("DMS"), "1");
    std::filesystem::remove(path);
    second.refresh();
    EXPECT_EQ(second.get("Skin"), std::nullopt);
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
    constexpr off_t hugeBytes = 100'000'000;
    folder.write("file", "");
    for (const std::string kind : {"folder", "pipe", "huge file", "place under a file"}) {
        SCOPED_TRACE(kind);
        std::filesystem::path file = path;
        std::filesystem::remove_all(path);
        if (kind == "folder") std::filesystem::create_directories(path);
        if (kind == "pipe") mkfifo(path.c_str(), 0600);
        if (kind == "huge file") {
            writeToDisk("Voice=3\n");
            ASSERT_EQ(truncate(path.c_str(), hugeBytes), 0);
        }
        if (kind == "place under a file") file = folder.path() / "file/vantrace/settings.conf";
        FileSettingsStore store(file);
        store.set("Skin", "0");
        EXPECT_EQ(store.get("Skin"), "0");
        EXPECT_EQ(std::filesystem::is_directory(path), kind == "folder");
        EXPECT_EQ(std::filesystem::is_fifo(path), kind == "pipe");
        if (kind == "huge file") {
            EXPECT_EQ(std::filesystem::file_size(path), static_cast<std::uintmax_t>(hugeBytes));
        }
        store.removeAll();
        EXPECT_EQ(store.get("Skin"), std::nullopt);
    }
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

TEST_F(FileSettingsStoreTest, ADefaultGivesWayToWhatTheFileHoldsInTheEnd) {
    std::filesystem::create_directories(path);
    FileSettingsStore store(path);
    for (const char* const key : {"Latitude", "Skin", "DMS", "Voice"}) store.setDefault(key, "0");
    store.set("Skin", "0");
    EXPECT_EQ(store.get("Latitude"), "0");
    std::filesystem::remove(path);
    writeToDisk("Latitude=48\nSkin=1\nDMS=\n");
    store.refresh();
    EXPECT_EQ(store.get("Latitude"), "48");
    EXPECT_EQ(onDisk(), "[Vantrace/Settings]\nLatitude=48\nSkin=0\nDMS=0\nVoice=0\n")
        << "the user chose the skin, if only what was the default";
}

TEST_F(FileSettingsStoreTest, ABinaryFileKeepsItsBytesBesideTheSettings) {
    std::string junk;
    for (int i = 0; i < 5000; ++i) junk += static_cast<char>(i * 37);
    folder.write("config/vantrace/settings.conf", junk);
    FileSettingsStore(path).set("Skin", "0");
    EXPECT_TRUE(onDisk().starts_with(junk));
    EXPECT_EQ(FileSettingsStore(path).get("Skin"), "0");
}

constexpr std::string_view heading = "Vantrace/Settings";

std::string valueIn(const SettingsDocument& document, std::string_view key) {
    const std::string* const value = document.find(key);
    return value == nullptr ? "(none)" : *value;
}

/// What comes back when a setting was written to a file and read again.
std::string roundTrip(std::string_view key, std::string_view value) {
    SettingsDocument document("", heading);
    document.set(key, value);
    document.set("Behind", "untouched");
    const SettingsDocument readAgain(document.text(), heading);
    EXPECT_EQ(valueIn(readAgain, "Behind"), "untouched");
    return valueIn(readAgain, key);
}

TEST(SettingsDocument, EveryValueSurvivesTheFile) {
    using namespace std::string_view_literals;
    for (const std::string_view value :
         {""sv, "plain"sv, "  blanks at both ends  "sv, " "sv, "\ttab\t"sv, "a=b=c"sv, "two\nlines\r\n"sv,
          "\r"sv, "C:\\new\\x41"sv, "\\"sv, "[Other/Section]"sv, "# no remark"sv, "zero\0inside"sv,
          "\x7f\x01"sv, "Zürich °"sv, "broken \xc3( \xff\xfe"sv, "\xed\xa0\x80 \xc0\xaf"sv}) {
        EXPECT_EQ(roundTrip("Key", value), value);
        EXPECT_EQ(roundTrip(value, "value of an odd key"), "value of an odd key") << value;
    }
    std::string allBytes;
    for (int byte = 0; byte < 256; ++byte) allBytes += static_cast<char>(byte);
    EXPECT_EQ(roundTrip("Key", allBytes), allBytes);
}

TEST(SettingsDocument, WritesPlainTextWhereItCan) {
    SettingsDocument document("", heading);
    document.set("Location Name", "Zürich Süd");
    document.set("ProxyHost", "");
    document.set("Odd", " a\nb");
    EXPECT_EQ(document.text(), "[Vantrace/Settings]\nLocation Name=Zürich Süd\nProxyHost=\nOdd=\\x20a\\nb\n");
}

TEST(SettingsDocument, TheFirstSpellingOfAKeyStays) {
    SettingsDocument document("", heading);
    EXPECT_TRUE(document.set("Altworld", "0"));
    EXPECT_FALSE(document.set("AltWorld", "0"));
    EXPECT_TRUE(document.set("ALTWORLD", "1"));
    EXPECT_EQ(valueIn(document, "altworld"), "1");
    EXPECT_EQ(document.text(), "[Vantrace/Settings]\nAltworld=1\n");
}

TEST(SettingsDocument, ReadsWhatAHandTyped) {
    const SettingsDocument document(
        "MapUpdate=7\r\n  [Vantrace/Settings]  \r\n MapUpdate = 5 \r\n# Skin=9\r\nno "
        "sign\r\nSkin=0\r\nSkin=1",
        heading);
    EXPECT_EQ(valueIn(document, "MapUpdate"), "5");
    EXPECT_EQ(valueIn(document, "Skin"), "1") << "the later line counts";
    EXPECT_EQ(valueIn(document, "# Skin"), "(none)");
}

TEST(SettingsDocument, LeavesWhatIsNotItsOwn) {
    const std::string before = "junk \x01\xff\n[Other/Section]\nMapUpdate=9\n";
    SettingsDocument document(before + "[Vantrace/Settings]\n# a remark\nSkin=1\n\n[Third/One]\na=b\n",
                              heading);
    document.set("MapUpdate", "3");
    EXPECT_EQ(document.text(),
              before + "[Vantrace/Settings]\n# a remark\nSkin=1\nMapUpdate=3\n\n[Third/One]\na=b\n");
    document.removeAll();
    EXPECT_EQ(valueIn(document, "Skin"), "(none)");
    document.set("Skin", "0");
    EXPECT_EQ(document.text(), before + "[Vantrace/Settings]\n# a remark\nSkin=0\n\n[Third/One]\na=b\n");
}

}  // namespace
}  // namespace vantrace
