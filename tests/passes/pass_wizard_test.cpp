#include "passes/pass_wizard.h"

#include "passes/job_file.h"
#include "tests/passes/passes_test.h"

namespace vantrace {
namespace {

/// The other window, as far as the wizard knows it.
class FakePassPrediction final : public RegisteredWindow, public PassPredictionWindow {
  public:
    explicit FakePassPrediction(Texts& presets) : m_presets(presets) {}
    void load() override {}
    void show() override {}
    void hide() override {}
    bool isOnScreen() const override { return true; }
    void addPreset(std::string_view name) override { m_presets.emplace_back(name); }
    WindowCorner corner() const override { return {30, -40}; }

  private:
    Texts& m_presets;
};

class PassWizardTest : public PassesTest {
  protected:
    PassWizardTest() {
        fakes.windows.registerWindow("PassPrediction",
                                     [this] { return std::make_unique<FakePassPrediction>(presets); });
        showFake("PassWizard");
    }
    bool isOpen() const { return fakes.windows.isLoaded("PassWizard"); }
    void fill() {
        wizard.Tname = " Weather ";
        wizard.Tnumofdays = " 3 ";
        wizard.SatList.add("ISS (ZARYA)");
    }

    Texts presets;
    PassWizardForm wizard;
};

TEST_F(PassWizardTest, OpensBesideItsParentWithAllGroups) {
    Form_Load(wizard, state, services);
    EXPECT_FALSE(wizard.corner.has_value());
    EXPECT_FALSE(fakes.windows.isLoaded("PassPrediction")) << "asking makes no window";
    fakes.windows.show("PassPrediction");
    PassWizardForm second;
    Form_Load(second, state, services);
    EXPECT_EQ(second.corner, (WindowCorner{130, 60}));
    EXPECT_EQ(second.COMgroup.list.size(), 3U);
    EXPECT_TRUE(second.skin.isApplied);
}

TEST_F(PassWizardTest, SatellitesAreAddedAlsoThePromptItselfAndRemovedWhenSelected) {
    BUTadd_Click(wizard, services);
    EXPECT_EQ(messages(), Texts{"First select a Group, then a satellite, then click the add button"});
    wizard.COMgroup.text = "Space Stations";
    COMgroup_Click(wizard, state, services);
    EXPECT_EQ(wizard.COMsatname.list.size(), 2U);
    EXPECT_EQ(wizard.COMsatname.text, "Select a Satellite");
    BUTadd_Click(wizard, services);
    wizard.COMsatname.text = "ISS (ZARYA)";
    BUTadd_Click(wizard, services);
    BUTadd_Click(wizard, services);
    EXPECT_EQ(wizard.SatList.list, (Texts{"Select a Satellite", "ISS (ZARYA)", "ISS (ZARYA)"}));
    EXPECT_EQ(messages().size(), 1U) << "the check for an unchosen satellite never fires";
    wizard.COMgroup.text = "Missing";
    COMgroup_Click(wizard, state, services);
    EXPECT_TRUE(messages().back().starts_with("missing.txt satellite group keps are not updated yet"));
    BUTremove_Click(wizard, services);
    EXPECT_EQ(messages().back(), "Select a satellite on the list first");
    wizard.SatList.selected = 1;
    BUTremove_Click(wizard, services);
    EXPECT_EQ(wizard.SatList.list, (Texts{"Select a Satellite", "ISS (ZARYA)"}));
}

TEST_F(PassWizardTest, AJobIsSavedWhenItIsWhole) {
    fakes.windows.show("PassPrediction");
    BUTSaveJob_Click(wizard, state, services);
    wizard.Tname = " Weather ";
    wizard.Tnumofdays = "  ";
    BUTSaveJob_Click(wizard, state, services);
    wizard.Tnumofdays = " soon ";
    BUTSaveJob_Click(wizard, state, services);
    EXPECT_EQ(messages(), (Texts{"you must choose a job name", "You must fill in the days box",
                                 "You havn't chosen any satellites"}));
    EXPECT_FALSE(fakes.folder.exists("pass.dat"));
    fill();
    wizard.CHprint = true;
    BUTSaveJob_Click(wizard, state, services);
    EXPECT_EQ(jobs(), "Weather\r\nISS (ZARYA);\r\n3\r\n0\r\n1\r\n");
    EXPECT_EQ(presets, Texts{" Weather "}) << "as typed";
    EXPECT_FALSE(isOpen());
    fakes.windows.unload("PassPrediction");
    BUTSaveJob_Click(wizard, state, services);
    EXPECT_EQ(jobNames(jobs()), (Texts{"Weather", "Weather"}));
    EXPECT_FALSE(fakes.windows.isLoaded("PassPrediction")) << "the job is saved without its parent";
}

TEST_F(PassWizardTest, AFileThatCannotBeWrittenLeavesTheWindowWithItsJob) {
    std::filesystem::create_directory(fakes.folder.path() / "pass.dat");
    fakes.windows.show("PassPrediction");
    fill();
    BUTSaveJob_Click(wizard, state, services);
    EXPECT_TRUE(isOpen() && presets.empty() && messages().empty());
    EXPECT_EQ(wizard.Tname, " Weather ");
}

TEST_F(PassWizardTest, CancelAsks) {
    BUTcancel_Click(wizard, services);
    EXPECT_EQ(messages(), Texts{"You will loose the information for this job, Are you sure ?"});
    EXPECT_EQ(fakes.dialogs.titles, Texts{"Cancel Job"});
    EXPECT_TRUE(isOpen());
    fakes.dialogs.saysYes = true;
    BUTcancel_Click(wizard, services);
    EXPECT_FALSE(isOpen());
}

TEST_F(PassWizardTest, AJobInItAloneGoesOnlyWhereTheUserAgrees) {
    EXPECT_TRUE(Form_QueryUnload(wizard, services)) << "nothing is in it";
    showJob(wizard, {"Radio", {"B", "C"}, "5", false, true, true});
    EXPECT_EQ(wizard.SatList.list, (Texts{"B", "C"}));
    EXPECT_TRUE(wizard.CHprint && !wizard.CHsave);
    EXPECT_FALSE(Form_QueryUnload(wizard, services));
    EXPECT_EQ(fakes.dialogs.titles, Texts{"Cancel Job"});
    fakes.dialogs.saysYes = true;
    EXPECT_TRUE(Form_QueryUnload(wizard, services));
    BUTSaveJob_Click(wizard, state, services);
    EXPECT_TRUE(Form_QueryUnload(wizard, services));
    EXPECT_EQ(messages().size(), 2U) << "a saved job isn't asked about";
}

}  // namespace
}  // namespace vantrace
