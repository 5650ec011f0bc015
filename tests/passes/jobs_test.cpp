#include "passes/jobs.h"

#include "core/labels.h"
#include "passes/job_file.h"
#include "passes/job_run.h"
#include "passes/pass_prediction.h"
#include "passes/pass_windows.h"
#include "tests/passes/passes_test.h"

namespace vantrace {
namespace {

/// A window that notes the job it is shown.
class FakeWizard final : public RegisteredWindow, public PassWizardWindow {
  public:
    explicit FakeWizard(std::vector<JobToEdit>& jobs) : m_jobs(jobs) {}
    void load() override {}
    void show() override { m_isShown = true; }
    void hide() override { m_isShown = false; }
    bool isOnScreen() const override { return m_isShown; }
    void showJob(const JobToEdit& job) override { m_jobs.push_back(job); }

  private:
    std::vector<JobToEdit>& m_jobs;
    bool m_isShown = false;
};

class JobsTest : public PassesTest {
  protected:
    JobsTest() {
        openWindow();
        fakes.windows.registerWindow("PassWizard", [this] { return std::make_unique<FakeWizard>(shown); });
    }
    /// Opens the list of jobs over a file, with the first one selected.
    void load(const std::string& text) {
        fakes.folder.write("pass.dat", text);
        form = PassPredictionForm();
        Form_Load(form, state, services);
        form.ListPresets.selected = 0;
    }
    Texts dates() const {
        Texts all;
        for (const ResultRow& row : rows()) {
            if (all.empty() || all.back() != row.texts[1]) all.push_back(row.texts[1]);
        }
        return all;
    }
    void run() { PresetGo_Click(form, state, services); }
    void edit() { BUTeditjob_Click(form, state, services); }

    std::vector<JobToEdit> shown;
};

TEST_F(JobsTest, WithoutASelectionEachButtonTellsSo) {
    edit();
    PresetDelete_Click(form, state, services);
    run();
    EXPECT_EQ(messages(), (Texts{"you must select a preset to edit", "you must select a preset to delete",
                                 "You must select a preset first"}));
    EXPECT_FALSE(fakes.windows.isLoaded("PassWizard"));
    PresetAdd_Click(services);
    EXPECT_TRUE(fakes.windows.isOnScreen("PassWizard") && shown.empty());
}

TEST_F(JobsTest, EditingMovesTheJobFromTheFileIntoTheWizard) {
    load("A\nX;\n2\n1\n0\nB\nY;\n1\n0\n0\n");
    edit();
    ASSERT_EQ(shown.size(), 1U);
    EXPECT_EQ(shown[0].name, "A");
    EXPECT_TRUE(fakes.windows.isOnScreen("PassWizard"));
    EXPECT_EQ(jobs(), "B\r\nY;\r\n1\r\n0\r\n0\r\n");
    EXPECT_EQ(form.ListPresets.list, Texts{"B"});
    EXPECT_FALSE(form.ListPresets.isSelected());
}

TEST_F(JobsTest, WhatCannotBeEditedStaysWhereItIs) {
    load("A\nX;\n2\n1\n");
    edit();
    EXPECT_EQ(shown.at(0).satellites, Texts{"X"}) << "what there was";
    EXPECT_EQ(jobs(), "A\nX;\n2\n1\n") << "but the file ended too early";
    EXPECT_EQ(form.ListPresets.list, Texts{"A"});

    form.ListPresets.list[0] = "A ";
    edit();
    std::filesystem::remove(fakes.folder.path() / "pass.dat");
    edit();
    EXPECT_EQ(messages(), (Texts{"There is a possible problem with your PASS.DAT file",
                                 "Can't file PASS.DAT in your Vantrace folder"}));
    EXPECT_EQ(shown.size(), 1U);
    std::filesystem::create_directory(fakes.folder.path() / "pass.dat");
    edit();
    EXPECT_EQ(messages().size(), 2U) << "a failure ends it quietly";
    EXPECT_TRUE(fakes.logLines().empty());
}

TEST_F(JobsTest, DeletingAsksNothingAndAVanishedFileGoesToTheCaller) {
    load("A\nX;\n2\n1\n0\nB\nY;\n1\n0\n0\n");
    form.ListPresets.selected = 1;
    PresetDelete_Click(form, state, services);
    EXPECT_EQ(jobNames(jobs()), Texts{"A"});
    EXPECT_EQ(form.ListPresets.list, Texts{"A"});
    EXPECT_TRUE(messages().empty());
    form.ListPresets.selected = 0;
    std::filesystem::remove(fakes.folder.path() / "pass.dat");
    EXPECT_THROW(PresetDelete_Click(form, state, services), FileError);
    EXPECT_EQ(form.ListPresets.list, Texts{"A"});
}

TEST_F(JobsTest, ARunPutsAllSatellitesOfEachDayBehindTheRows) {
    load("A\nISS (ZARYA); remark;\nFUNCUBE-1 (AO-73);\n2\n0\n0\n");
    form.Calendar = {31, 8, 2026};
    run();
    EXPECT_EQ(fakes.events.yields, 4);
    Texts order;
    for (const ResultRow& row : rows()) {
        const std::string each = row.texts[0].substr(0, 3);
        if (order.empty() || order.back() != each) order.push_back(each);
    }
    EXPECT_EQ(order, (Texts{"ISS", "FUN", "ISS", "FUN"}));
    EXPECT_TRUE(std::ranges::count(dates(), "31 AUG") > 0 && std::ranges::count(dates(), "01 SEP") > 0);
    EXPECT_TRUE(fakes.dialogs.requests.empty() && fakes.printer.titles.empty());
    const std::size_t once = rows().size();
    run();
    EXPECT_EQ(rows().size(), 2 * once);
    form.Calendar = {31, 12, 2026};
    run();
    EXPECT_GT(std::ranges::count(dates(), "01 JAN"), 0);
    EXPECT_EQ(dateParts(rows().back().startLocal).year, 2027);
}

TEST_F(JobsTest, ARunSavesAndPrintsWhereTheJobSaysSo) {
    load("A\nISS (ZARYA);\n1\n1\n1\n");
    fakes.dialogs.chosen = fakes.folder.path() / "out.txt";
    run();
    EXPECT_TRUE(fakes.folder.read("out.txt").find("ISS (ZARYA)") != std::string::npos);
    EXPECT_EQ(fakes.printer.documents.size(), 1U);
    EXPECT_TRUE(fakes.logLines().empty());
}

TEST_F(JobsTest, WhatFailsInARunIsLoggedAndPassedOver) {
    load("A\nNOBODY;\nISS (ZARYA);\nmany\n1\n1\n");
    fakes.dialogs.chosen = fakes.folder.path() / "no such" / "out.txt";
    run();
    EXPECT_TRUE(rows().empty()) << "days that are no number are none";
    EXPECT_EQ(fakes.logged(labels::passPrePresetGo), 2);
    EXPECT_EQ(fakes.printer.documents.size(), 1U) << "the print follows a save that failed";

    load("A\nNOBODY;\nISS (ZARYA);\n1\n0\n0\n");
    run();
    EXPECT_FALSE(rows().empty());
    EXPECT_EQ(fakes.logged(labels::passPrePresetGo), 3);
}

TEST_F(JobsTest, AJobThatIsNotThereIsTold) {
    load("A\nISS (ZARYA);\n1\n0\n0\n");
    form.ListPresets.list[0] = "B";
    run();
    std::filesystem::remove(fakes.folder.path() / "pass.dat");
    run();
    load("A\nISS (ZARYA);\n1\n0\n0\n");
    edit();
    form.ListPresets.add("A");
    form.ListPresets.selected = 0;
    run();
    EXPECT_EQ(messages(), Texts(3, "There was a problem finding that Job")) << "nor when it is being edited";
    EXPECT_TRUE(rows().empty());
}

TEST_F(JobsTest, ANameTypedWithABlankIsFoundNoMoreUntilTheListIsReadAnew) {
    load("");
    appendJob(state, {"Late ", {"ISS (ZARYA)"}, "1", false, false, true});
    form.ListPresets.add("Late ");
    form.ListPresets.selected = 0;
    edit();
    run();
    EXPECT_THROW(PresetDelete_Click(form, state, services), FileError);
    EXPECT_EQ(messages(), (Texts{"There is a possible problem with your PASS.DAT file",
                                 "There was a problem finding that Job"}));
    load(jobs());
    EXPECT_EQ(form.ListPresets.list, Texts{"Late"});
    run();
    EXPECT_FALSE(rows().empty());
}

TEST_F(JobsTest, TheFiftyFirstSatelliteIsPassedOver) {
    std::string text = "A\n";
    for (int i = 0; i < 52; ++i) text += "ISS (ZARYA);\n";
    load(text + "1\n0\n0\n");
    run();
    EXPECT_EQ(fakes.events.yields, 50);
    EXPECT_EQ(fakes.logged(labels::passPrePresetGo), 1);
}

TEST_F(JobsTest, AFileThatEndsWithinTheJobComputesNothing) {
    for (const char* text : {"A\nISS (ZARYA);\n", "A\n", "A"}) {
        load(text);
        run();
        EXPECT_TRUE(rows().empty());
    }
    load("A\nISS (ZARYA);\n1\n");
    run();
    EXPECT_FALSE(rows().empty()) << "the days are there; nothing is saved or printed";
    EXPECT_TRUE(messages().empty());
}

TEST_F(JobsTest, ARunEndsWithTheView) {
    load("A\nISS (ZARYA);\n30\n1\n1\n");
    fakes.events.onYield = [&] {
        if (fakes.events.yields == 3) state.MainTag = "menu";
    };
    run();
    EXPECT_EQ(fakes.events.yields, 3);
    EXPECT_TRUE(fakes.dialogs.requests.empty() && fakes.printer.titles.empty());
}

TEST(JobDaysTest, CountFromMonthToMonthAndKnowNoLeapDay) {
    const std::pair<CalendarDate, CalendarDate> table[] = {
        {{31, 8, 2026}, {31, 8, 2026}}, {{32, 8, 2026}, {1, 9, 2026}}, {{31, 9, 2026}, {1, 10, 2026}},
        {{32, 12, 2026}, {1, 1, 2027}}, {{29, 2, 2028}, {1, 3, 2028}}, {{28, 2, 2028}, {28, 2, 2028}}};
    for (auto [date, wanted] : table) {
        carryIntoMonth(date);
        EXPECT_EQ(date, wanted) << wanted.day;
    }
}

}  // namespace
}  // namespace vantrace
