// The windows of the predictions over the data that ships.
#include <QCalendarWidget>
#include <QCheckBox>
#include <QComboBox>
#include <QLineEdit>
#include <QListView>
#include <QProgressBar>
#include <QPushButton>
#include <QScrollArea>
#include <QScrollBar>
#include <QStackedWidget>
#include <QTreeView>

#include "passes/job_file.h"
#include "passes/ui/pass_prediction_window.h"
#include "passes/ui/pass_wizard_window.h"
#include "tests/support_qt/view_program.h"

namespace vantrace {
namespace {

class PassWindowsTest : public ::testing::Test, public ViewProgram {
  protected:
    PassWindowsTest() {
        fakes.folder.write(
            "pass.dat",
            "Radio\r\nISS (ZARYA);\r\nOSCAR 7 (AO-7);\r\n2\r\n1\r\n0\r\nOther\r\nHST;\r\n1\r\n0\r\n0\r\n");
        fakes.windows.registerWindow("PassPrediction", [this] {
            return std::make_unique<PassPrediction>(fakes.host, state, services);
        });
        fakes.windows.registerWindow(
            "PassWizard", [this] { return std::make_unique<PassWizard>(fakes.host, state, services); });
    }

    PassPrediction* open() {
        if (windowOnScreen<Main>() == nullptr) start();
        choose(windowOnScreen<Main>(), "Mpass");
        auto* const window = windowOnScreen<PassPrediction>();
        EXPECT_NE(window, nullptr);
        return window;
    }
    /// The wizard over the job of that number.
    PassWizard* edit(PassPrediction* window, int job) {
        select(window, "ListPresets", job);
        click(window, "BUTeditjob");
        settle();
        auto* const wizard = windowOnScreen<PassWizard>();
        EXPECT_NE(wizard, nullptr);
        return wizard;
    }
    Texts jobsOfFile() const { return jobNames(fakes.folder.read("pass.dat")); }
    static void click(QWidget* window, const char* button) {
        QTest::mouseClick(childOf<QPushButton>(window, button), Qt::LeftButton);
    }
    /// As the user picks an entry of a drop-down.
    static void pick(QWidget* window, const char* name, const char* entry) {
        auto* const box = childOf<QComboBox>(window, name);
        const int index = box->findText(QString::fromLatin1(entry));
        ASSERT_GE(index, 0) << entry;
        box->setCurrentIndex(index);
        emit box->activated(index);
    }
    static std::string shownText(QWidget* window, const char* name) {
        const auto* const box = childOf<QComboBox>(window, name);
        return (box->currentIndex() < 0 ? box->placeholderText() : box->currentText()).toStdString();
    }
    static void select(QWidget* window, const char* list, int row) {
        auto* const view = childOf<QListView>(window, list);
        view->setCurrentIndex(view->model()->index(row, 0));
    }
    static Texts entries(QWidget* window, const char* list) {
        const auto* const model = childOf<QListView>(window, list)->model();
        Texts texts;
        for (int row = 0; row < model->rowCount(); ++row) {
            texts.push_back(model->index(row, 0).data().toString().toStdString());
        }
        return texts;
    }
    static QAbstractItemModel* results(QWidget* window) {
        return childOf<QTreeView>(window, "LISTpasses")->model();
    }
    static int resultCount(QWidget* window) { return results(window)->rowCount(); }
    static std::string result(QWidget* window, int row, int column) {
        return results(window)->index(row, column).data().toString().toStdString();
    }
};

TEST_F(PassWindowsTest, CalculatesWhatIsPickedAndAsksAnew) {
    PassPrediction* const window = open();
    EXPECT_EQ(window->windowTitle().toStdString(), "Vantrace - Satellite Pass Predictions");
    EXPECT_EQ(childOf<QCalendarWidget>(window, "Calendar")->selectedDate(), QDate(2026, 8, 23));
    EXPECT_EQ(shownText(window, "Groupname"), "Select Satellite Group");
    EXPECT_EQ(shownText(window, "SatelliteName"), "Select Satellite");
    EXPECT_EQ(shownText(window, "FavouriteName"), "Select Favourite");
    pick(window, "Groupname", "Space Stations");
    pick(window, "SatelliteName", "ISS (ZARYA)");
    EXPECT_EQ(window->focusWidget(), childOf<QPushButton>(window, "BUTcalc"));
    QTest::keyClick(window->focusWidget(), Qt::Key_Return);
    ASSERT_GT(resultCount(window), 3);
    EXPECT_EQ(result(window, 0, 0), "ISS (ZARYA)");
    EXPECT_EQ(result(window, 0, 1), "23 AUG");
    EXPECT_EQ(shownText(window, "Groupname"), "Select Satellite Group");
    EXPECT_EQ(shownText(window, "SatelliteName"), "Select a Satellite");
    EXPECT_EQ(shownText(window, "FavouriteName"), "Select a Favourite");
    click(window, "BUTcalc");
    ASSERT_EQ(fakes.dialogs.messages.size(), 1U);
    EXPECT_TRUE(fakes.dialogs.messages[0].starts_with("You must select either one of the "));

    const int once = resultCount(window);
    auto* const calendar = childOf<QCalendarWidget>(window, "Calendar");
    calendar->setSelectedDate(QDate(2026, 8, 25));
    childOf<QCheckBox>(window, "CHvisOnly")->setChecked(true);
    pick(window, "FavouriteName", "CSS (TIANHE)");
    click(window, "BUTcalc");
    EXPECT_EQ(result(window, 0, 1), "23 AUG");
    for (int row = once; row < resultCount(window); ++row) {
        EXPECT_EQ(result(window, row, 0), "CSS (TIANHE)");
        EXPECT_EQ(result(window, row, 8), "Yes");
    }
    click(window, "BUTclearResults");
    EXPECT_EQ(resultCount(window), 0);
    click(window, "BUTexit");
    settle();
    EXPECT_FALSE(fakes.windows.isLoaded("PassPrediction"));
    EXPECT_NE(windowOnScreen<Main>(), nullptr);
}

/// The texts of a window, by the names of their controls.
void expectTexts(QWidget* window, const std::map<std::string, std::string>& texts) {
    for (const auto& [name, text] : texts) {
        auto* const control = childOf<QWidget>(window, name.c_str());
        ASSERT_NE(control, nullptr) << name;
        const char* const property = control->inherits("QGroupBox") ? "title" : "text";
        EXPECT_EQ(control->property(property).toString().toStdString(), text) << name;
    }
}

TEST_F(PassWindowsTest, SaysWhatItsControlsAreFor) {
    PassPrediction* const window = open();
    expectTexts(window, {{"CHvisOnly", "Visible Passes Only"},
                         {"BUTcalc", "Calculate"},
                         {"BUTsortChron", "Sort Results Chronologically"},
                         {"BUTclearResults", "Clear Results"},
                         {"BUTsaveresults", "Save Results to file"},
                         {"BUTprint", "Print Results"},
                         {"PresetGo", "Run Selected Job"},
                         {"PresetAdd", "Add New Job"},
                         {"BUTeditjob", "Edit Selected Job"},
                         {"PresetDelete", "Delete Selected Job"}});
    Texts headings;
    for (int column = 0; column < results(window)->columnCount(); ++column) {
        headings.push_back(results(window)->headerData(column, Qt::Horizontal).toString().toStdString());
    }
    EXPECT_EQ(headings, (Texts{"Satellite", "Date", "Time", "Start AZ", "Max Elevation", "Duration", "End Az",
                               "Sunlit", "Visible"}));
    click(window, "PresetAdd");
    expectTexts(windowOnScreen<PassWizard>(), {{"CHsave", "Save Predictions to File"},
                                               {"CHprint", "Print Predictions"},
                                               {"BUTadd", "Add Satellite to List"},
                                               {"BUTremove", "Remove Satellite"},
                                               {"BUTSaveJob", "Save this Job"},
                                               {"BUTcancel", "Cancel + Close"},
                                               {"Frame5", "Pass Prediction Job Wizard Help"}});
}

TEST_F(PassWindowsTest, TheMarkedDayCountsOnEveryPageOfTheCalendar) {
    PassPrediction* const window = open();
    auto* const calendar = childOf<QCalendarWidget>(window, "Calendar");
    auto* const calculate = childOf<QPushButton>(window, "BUTcalc");
    pick(window, "FavouriteName", "ISS (ZARYA)");
    EXPECT_NE(window->focusWidget(), calculate) << "a favourite doesn't lead to the button";
    calendar->setSelectedDate(QDate(2026, 8, 31));
    calendar->setCurrentPage(2026, 9);
    EXPECT_EQ(calendar->selectedDate(), QDate(2026, 9, 30));
    pick(window, "FavouriteName", "ISS (ZARYA)");
    EXPECT_EQ(calendar->monthShown(), 9) << "the page stays";
    emit calendar->clicked(QDate(2026, 9, 30));
    EXPECT_EQ(window->focusWidget(), calculate);
    click(window, "BUTcalc");
    ASSERT_GT(resultCount(window), 0);
    EXPECT_EQ(result(window, resultCount(window) - 1, 1), "30 SEP");

    click(window, "BUTmin");
    EXPECT_TRUE(window->isMinimized());
    window->close();
    settle();
    EXPECT_FALSE(fakes.windows.isLoaded("PassPrediction"));
    EXPECT_NE(windowOnScreen<Main>(), nullptr) << "by its frame, too";
}

TEST_F(PassWindowsTest, WithoutAReadableFileOfJobsItOpensAndTells) {
    std::filesystem::remove(fakes.folder.path() / "pass.dat");
    std::filesystem::create_directory(fakes.folder.path() / "pass.dat");
    PassPrediction* const window = open();
    EXPECT_EQ(fakes.dialogs.messages.size(), 1U);
    EXPECT_TRUE(entries(window, "ListPresets").empty());
}

TEST_F(PassWindowsTest, RunsAJobSortsSavesAndPrints) {
    PassPrediction* const window = open();
    EXPECT_EQ(entries(window, "ListPresets"), (Texts{"Radio", "Other"}));
    fakes.dialogs.chosen = fakes.folder.path() / "out.txt";
    select(window, "ListPresets", 0);
    click(window, "PresetGo");
    ASSERT_GT(resultCount(window), 10);
    EXPECT_NE(fakes.folder.read("out.txt").find("OSCAR 7 (AO-7)"), std::string::npos);
    EXPECT_TRUE(fakes.printer.titles.empty());
    click(window, "BUTprint");
    EXPECT_EQ(fakes.printer.documents.size(), 1U);

    // Looks at the window in the middle of the sort.
    auto* const place = childOf<QStackedWidget>(window, "resultsPlace");
    auto* const bar = childOf<QProgressBar>(window, "PROsorting");
    EXPECT_FALSE(bar->isVisible());
    bool isWaiting = false;
    QTimer::singleShot(0, window, [&] {
        isWaiting = place->currentWidget()->objectName() == QStringLiteral("Label8") && bar->isVisible();
        savePicture(*window, "pass-prediction-sorting");
    });
    click(window, "BUTsortChron");
    EXPECT_TRUE(isWaiting);
    EXPECT_EQ(textOf(window, "Label8"), "Please Wait...");
    EXPECT_EQ(place->currentWidget()->objectName(), QStringLiteral("LISTpasses"));
    EXPECT_FALSE(bar->isVisible());
    for (int row = 1; row < resultCount(window); ++row) {
        EXPECT_LE(result(window, row - 1, 1) + result(window, row - 1, 2),
                  result(window, row, 1) + result(window, row, 2));
    }
    savePicture(*window, "pass-prediction");
}

TEST_F(PassWindowsTest, AJobIsEditedInTheWizardAndComesBackAtTheEnd) {
    PassPrediction* const window = open();
    PassWizard* const wizard = edit(window, 0);
    EXPECT_EQ(wizard->windowTitle().toStdString(), "Pass Prediction Job Wizard");
    EXPECT_EQ(wizard->focusWidget(), childOf<QLineEdit>(wizard, "Tname"));
    EXPECT_EQ(textOf(wizard, "Tname"), "Radio");
    EXPECT_EQ(textOf(wizard, "Tnumofdays"), "2");
    EXPECT_TRUE(childOf<QCheckBox>(wizard, "CHsave")->isChecked());
    EXPECT_FALSE(childOf<QCheckBox>(wizard, "CHprint")->isChecked());
    EXPECT_EQ(entries(wizard, "SatList"), (Texts{"ISS (ZARYA)", "OSCAR 7 (AO-7)"}));
    EXPECT_EQ(entries(window, "ListPresets"), Texts{"Other"});
    EXPECT_EQ(jobsOfFile(), Texts{"Other"});

    pick(wizard, "COMgroup", "Space Stations");
    pick(wizard, "COMsatname", "CSS (TIANHE)");
    click(wizard, "BUTadd");
    select(wizard, "SatList", 0);
    click(wizard, "BUTremove");
    QTest::keyClicks(childOf<QLineEdit>(wizard, "Tname"), " 2");
    savePicture(*wizard, "pass-wizard");
    click(wizard, "BUTSaveJob");
    settle();
    EXPECT_EQ(windowOnScreen<PassWizard>(), nullptr);
    EXPECT_EQ(entries(window, "ListPresets"), (Texts{"Other", "Radio 2"}));
    EXPECT_TRUE(fakes.folder.read("pass.dat")
                    .ends_with("Radio 2\r\nOSCAR 7 (AO-7);\r\nCSS (TIANHE);\r\n2\r\n1\r\n0\r\n"));
}

TEST_F(PassWindowsTest, ASecondJobIsEditedOnlyWhenTheFirstIsGivenUp) {
    PassPrediction* const window = open();
    edit(window, 0);
    PassWizard* const first = edit(window, 0);
    EXPECT_EQ(fakes.dialogs.titles, Texts{"Cancel Job"});
    EXPECT_EQ(textOf(first, "Tname"), "Radio");
    EXPECT_EQ(jobsOfFile(), Texts{"Other"});
    fakes.dialogs.saysYes = true;
    PassWizard* const wizard = edit(window, 0);
    EXPECT_EQ(textOf(wizard, "Tname"), "Other");
    EXPECT_EQ(entries(wizard, "SatList").size(), 1U) << "none of the first job's";
}

TEST_F(PassWindowsTest, TheWizardOutlivesItsParentAndAsksBeforeItGoes) {
    PassPrediction* const window = open();
    click(window, "PresetAdd");
    PassWizard* const wizard = windowOnScreen<PassWizard>();
    ASSERT_NE(wizard, nullptr);
    QTest::keyClicks(childOf<QLineEdit>(wizard, "Tname"), "La");
    click(window, "PresetAdd");
    EXPECT_EQ(textOf(wizard, "Tname"), "La") << "what is typed stays when the window is asked for again";
    click(window, "BUTexit");
    settle();
    ASSERT_FALSE(fakes.windows.isLoaded("PassPrediction"));
    wizard->close();
    wizard->activateWindow();  // `Main` has come to the front
    settle();
    QTest::keyClick(wizard, Qt::Key_Escape);
    EXPECT_EQ(fakes.dialogs.titles, Texts(2, "Cancel Job"));
    ASSERT_NE(windowOnScreen<PassWizard>(), nullptr);

    QTest::keyClicks(childOf<QLineEdit>(wizard, "Tname"), "te");
    QTest::keyClicks(childOf<QLineEdit>(wizard, "Tnumofdays"), "1");
    pick(wizard, "COMgroup", "Space Stations");
    pick(wizard, "COMsatname", "ISS (ZARYA)");
    click(wizard, "BUTadd");
    click(wizard, "BUTSaveJob");
    settle();
    EXPECT_EQ(windowOnScreen<PassWizard>(), nullptr);
    EXPECT_FALSE(fakes.windows.isLoaded("PassPrediction")) << "no window is made for the item";
    EXPECT_EQ(jobsOfFile(), (Texts{"Radio", "Other", "Late"}));
    fakes.dialogs.saysYes = true;
    fakes.windows.show("PassWizard");
    click(windowOnScreen<PassWizard>(), "BUTcancel");
    EXPECT_EQ(windowOnScreen<PassWizard>(), nullptr);
}

/// Whether all texts of a window's buttons and labels have their room, and nothing needs to be scrolled.
void expectRoomForTexts(QWidget* window) {
    ViewProgram::settle();
    for (const QPushButton* const button : window->findChildren<QPushButton*>()) {
        EXPECT_GE(button->width(), button->minimumSizeHint().width()) << button->objectName().toStdString();
        EXPECT_GE(button->height(), button->minimumSizeHint().height()) << button->objectName().toStdString();
    }
    const auto* const area = childOf<QScrollArea>(window, "centre");
    EXPECT_FALSE(area->verticalScrollBar()->isVisible());
    EXPECT_FALSE(area->horizontalScrollBar()->isVisible());
}

TEST_F(PassWindowsTest, WithoutTheSkinAndInBothLooksEverythingHasItsPlace) {
    for (const char* skin : {"1", "0"}) {
        fakes.settings.set("Skin", skin);
        PassPrediction* const window = open();
        select(window, "ListPresets", 1);
        click(window, "PresetGo");
        click(window, "PresetAdd");
        PassWizard* const wizard = windowOnScreen<PassWizard>();
        expectRoomForTexts(window);
        expectRoomForTexts(wizard);
        if (*skin == '0') {
            savePicture(*window, "pass-prediction-without-skin");
            savePicture(*wizard, "pass-wizard-without-skin");
        }
        fakes.windows.unload("PassWizard");
        fakes.windows.unload("PassPrediction");
        settle();
    }
}

}  // namespace
}  // namespace vantrace
