#include "platform/settings_document.h"

#include "tests/support/testing.h"

namespace vantrace {
namespace {

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
