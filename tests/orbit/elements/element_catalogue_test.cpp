#include "orbit/elements/element_catalogue.h"

#include <sys/stat.h>
#include <unistd.h>

#include "orbit/engine_error.h"
#include "tests/orbit/element_texts.h"
#include "tests/support/temporary_folder.h"

namespace vantrace {
namespace {

std::string setText(const std::string& name, int number, const std::string& epoch = "26233.50000000") {
    return elementText({.name = name, .number = number, .epoch = epoch});
}

class ElementCatalogueTest : public ::testing::Test {
  protected:
    bool refresh() { return catalogue.refresh(folder.path()); }
    /// The number of the set that answers a name; -1 for none.
    int numberOf(std::string_view name) const {
        const CatalogueEntry* entry = catalogue.find(name);
        return entry == nullptr ? -1 : entry->set->catalogNumber;
    }
    const ElementFile* fileNamed(const std::string& name) const {
        for (const ElementFile* file : catalogue.files()) {
            if (file->name == name) return file;
        }
        return nullptr;
    }

    TemporaryFolder folder;
    ElementCatalogue catalogue;
};

TEST_F(ElementCatalogueTest, AnswersANameThatSeveralFilesHoldFromItsNewestEpoch) {
    folder.write("a.txt", setText("TWICE", 1, "26233.50000000") + setText("ONLY A", 2));
    folder.write("b.txt", setText("TWICE", 3, "26233.50000001") + setText("TWICE", 4, "26100.00000000"));
    folder.write("c.txt", setText("TWICE", 5, "99365.00000000"));
    refresh();
    EXPECT_EQ(numberOf("TWICE"), 3);
    EXPECT_EQ(catalogue.find("TWICE")->file->name, "b.txt");
    EXPECT_EQ(numberOf("ONLY A"), 2);
    EXPECT_EQ(catalogue.nameList(), "TWICE\nONLY A\n");
    EXPECT_EQ(catalogue.entries().size(), 2U);
}

TEST_F(ElementCatalogueTest, CountsDifferentCatalogueNumbers) {
    folder.write("a.txt", setText("ONE", 1) + setText("TWO", 2) + setText("ONE AGAIN", 1));
    folder.write("b.txt", setText("ONE", 1) + setText("THREE", 99999));
    folder.write("c.txt", shippedText("alpha5.txt"));
    refresh();
    EXPECT_EQ(catalogue.satelliteCount(), 3 + 16);
}

TEST_F(ElementCatalogueTest, LooksNamesUpTrimmedAndExact) {
    folder.write("a.txt", setText("0 HST  ", 20580) + setText("hst", 1));
    refresh();
    EXPECT_EQ(numberOf("HST"), 20580);
    EXPECT_EQ(numberOf("  HST   "), 20580);
    EXPECT_EQ(numberOf("0 HST"), 20580);
    EXPECT_EQ(numberOf("hst"), 1);
    for (const char* name : {"Hst", "HS", "HST 2", "", "   "}) EXPECT_EQ(numberOf(name), -1) << name;
}

TEST_F(ElementCatalogueTest, AnswersNamesThatWereCutTo15Characters) {
    folder.write("a.txt", setText("METEOR-M2 3 LONG NAME", 1) + setText("METEOR-M2 3 LONG OTHER", 2) +
                              setText("FENGYUN 3D AND X", 3) + setText("EXACTLY15LETTER", 4) +
                              setText("EXACTLY15LETTERS", 5));
    refresh();
    EXPECT_EQ(numberOf("METEOR-M2 3 LON"), 1);  // the first of two in the order of the file
    EXPECT_EQ(numberOf("FENGYUN 3D AND "), 3);  // cut behind a blank
    EXPECT_EQ(numberOf("FENGYUN 3D AND"), 3);   // and trimmed
    EXPECT_EQ(numberOf("EXACTLY15LETTER"), 4);  // an exact name comes first
    EXPECT_EQ(numberOf("METEOR-M2 3 LO"), -1);  // a shorter beginning is no cut name
    EXPECT_EQ(numberOf("METEOR-M2 3 LONG"), -1);
}

TEST_F(ElementCatalogueTest, NothingChangedKeepsEveryPointer) {
    folder.write("a.txt", setText("ONE", 1));
    folder.write("b.txt", setText("TWO", 2));
    EXPECT_TRUE(refresh());
    const ElementSet* one = catalogue.find("ONE")->set;
    const ElementSet* two = catalogue.find("TWO")->set;
    EXPECT_FALSE(refresh());
    EXPECT_EQ(catalogue.find("ONE")->set, one);
    EXPECT_EQ(catalogue.find("TWO")->set, two);
    // Another file changes: this one is not read again.
    folder.write("b.txt", setText("TWO", 2) + setText("THREE", 3));
    EXPECT_TRUE(refresh());
    EXPECT_EQ(catalogue.find("ONE")->set, one);
    EXPECT_EQ(numberOf("THREE"), 3);
}

TEST_F(ElementCatalogueTest, SeesFilesThatChangeComeAndGoAndAnotherFolder) {
    folder.write("a.txt", setText("ONE", 1));
    refresh();
    folder.write("a.txt", setText("TWO", 2));  // of the same size
    EXPECT_TRUE(refresh());
    EXPECT_EQ(numberOf("ONE"), -1);
    EXPECT_EQ(numberOf("TWO"), 2);
    folder.write("new.txt", setText("THREE", 3));
    std::filesystem::rename(folder.path() / "new.txt", folder.path() / "a.txt");  // put over the old one
    EXPECT_TRUE(refresh());
    EXPECT_EQ(catalogue.nameList(), "THREE\n");
    std::filesystem::remove(folder.path() / "a.txt");
    EXPECT_TRUE(refresh());
    EXPECT_EQ(catalogue.satelliteCount(), 0);
    EXPECT_EQ(catalogue.nameList(), "");
    folder.write("another/a.txt", setText("FOUR", 4));
    EXPECT_TRUE(catalogue.refresh(folder.path() / "another"));
    EXPECT_EQ(catalogue.nameList(), "FOUR\n");
}

TEST_F(ElementCatalogueTest, GoesByContentAndPassesScratchFilesOver) {
    for (const char* name : {"x.tmp", "x.txt.new", "x.part", "x.txt~"}) folder.write(name, setText("X", 9));
    folder.write("elements", setText("NO ENDING", 1));
    folder.write("picture.jpg", setText("ODD ENDING", 2));
    folder.write(".hidden", setText("HIDDEN", 3));
    folder.write("notes.txt", "Nothing but words.\n");
    refresh();
    EXPECT_EQ(numberOf("X"), -1);
    EXPECT_EQ(numberOf("NO ENDING"), 1);
    EXPECT_EQ(numberOf("ODD ENDING"), 2);
    EXPECT_EQ(numberOf("HIDDEN"), 3);
    EXPECT_EQ(fileNamed("notes.txt"), nullptr);
}

TEST_F(ElementCatalogueTest, OddThingsInTheFolderCostNothing) {
    folder.write("good.txt", setText("GOOD", 1));
    std::filesystem::create_directory(folder.path() / "folder.txt");
    ASSERT_EQ(mkfifo((folder.path() / "fifo.txt").c_str(), 0600), 0);
    std::filesystem::create_symlink("nowhere", folder.path() / "dangling.txt");
    std::filesystem::create_symlink("good.txt", folder.path() / "link.txt");
    std::filesystem::create_symlink("/dev/zero", folder.path() / "device.txt");
    folder.write("empty.txt", "");
    folder.write("rubbish.txt", std::string(70000, '\x81'));
    folder.write("zeros.txt", std::string(70000, '\0'));
    refresh();
    EXPECT_EQ(numberOf("GOOD"), 1);
    EXPECT_EQ(catalogue.satelliteCount(), 1);
    EXPECT_EQ(catalogue.files().size(), 2U);  // the good one, by its own name and by the link
    EXPECT_FALSE(refresh());
}

TEST_F(ElementCatalogueTest, AnUnreadableFileIsToldAndReadWhenItMayBe) {
    if (geteuid() == 0) GTEST_SKIP() << "root reads everything";
    folder.write("good.txt", setText("GOOD", 1));
    folder.write("secret.txt", setText("SECRET", 2));
    ASSERT_EQ(chmod((folder.path() / "secret.txt").c_str(), 0), 0);
    refresh();
    EXPECT_EQ(numberOf("GOOD"), 1);
    ASSERT_NE(fileNamed("secret.txt"), nullptr);
    EXPECT_FALSE(fileNamed("secret.txt")->failure.empty());
    ASSERT_EQ(chmod((folder.path() / "secret.txt").c_str(), 0600), 0);
    EXPECT_TRUE(refresh());
    EXPECT_EQ(numberOf("SECRET"), 2);
}

TEST_F(ElementCatalogueTest, AFileTooLargeForElementsIsToldAndNotRead) {
    folder.write("good.txt", setText("GOOD", 1));
    folder.write("huge.txt", setText("HUGE", 2));
    std::filesystem::resize_file(folder.path() / "huge.txt", std::uintmax_t{100} << 20);
    refresh();
    EXPECT_EQ(numberOf("GOOD"), 1);
    EXPECT_EQ(numberOf("HUGE"), -1);
}

TEST_F(ElementCatalogueTest, KeepsTheRemarksOfEachFile) {
    folder.write("a.txt", setText("GOOD", 1) + "BAD\n1 00002U 26001A\n" + setText("BEHIND", 3));
    std::string spoilt = setText("SPOILT", 4);
    spoilt[spoilt.size() - 2] = spoilt[spoilt.size() - 2] == '0' ? '1' : '0';
    folder.write("b.txt", spoilt);
    refresh();
    EXPECT_EQ(fileNamed("a.txt")->sets.size(), 2U);
    ASSERT_EQ(fileNamed("b.txt")->remarks.size(), 1U);
    EXPECT_EQ(fileNamed("b.txt")->remarks.front().name, "SPOILT");
    EXPECT_EQ(fileNamed("b.txt")->remarks.front().line, 3U);
    EXPECT_EQ(numberOf("SPOILT"), -1);
}

TEST_F(ElementCatalogueTest, AFolderThatIsNoneIsAnErrorAndLosesNothing) {
    folder.write("a.txt", setText("ONE", 1));
    refresh();
    for (const auto& none : {folder.path() / "missing", folder.path() / "a.txt", std::filesystem::path()}) {
        EXPECT_THROW(catalogue.refresh(none), EngineError) << none;
    }
    EXPECT_EQ(numberOf("ONE"), 1);
}

}  // namespace
}  // namespace vantrace
