// The program as a whole: every entry of every menu opens what it names, and each window stands by itself.
#include <QAbstractButton>
#include <QMenu>

#include "horizon/ui/horizon_window.h"
#include "mapview/ui/world_view_window.h"
#include "tests/app/ui/whole_program.h"
#include "tests/support/testing.h"

namespace vantrace {
namespace {

class MenusTest : public ::testing::Test, protected WholeProgram {
  protected:
    /// The windows that are on screen besides `Main`.
    std::set<std::string> others() const {
        std::set<std::string> names;
        for (const char* const name : {"Tabular", "Horizon", "WorldView", "PassPrediction", "PassWizard",
                                       "IridiumFlares", "Record", "frmTracker", "frmCONUpdates", "frmCONmain",
                                       "frmCON2D", "frmCONGroups", "frmCONlocations", "About"}) {
            if (fakes.windows.isOnScreen(name)) names.insert(name);
        }
        return names;
    }
    void closeOthers() {
        for (const std::string& name : others()) fakes.windows.unload(name);
        settle();
    }
    void expectAlone(QWidget* window, const char* entry, const char* opened) {
        choose(window, entry);
        EXPECT_TRUE(others().contains(opened)) << entry;
        closeOthers();
        ASSERT_NE(windowOnScreen<Main>(), nullptr) << entry;
    }
};

using Entry = std::pair<const char*, const char*>;

TEST_F(MenusTest, OfTheMainWindowOpenWhatTheyName) {
    start();
    for (const auto& [entry, window] :
         {Entry{"mnuCONmain", "frmCONmain"}, Entry{"mnuCONupdate", "frmCONUpdates"},
          Entry{"mnuCONgroups", "frmCONGroups"}, Entry{"mnuCONlocations", "frmCONlocations"},
          Entry{"mnu2Dsettings", "frmCON2D"}, Entry{"Mflares", "IridiumFlares"}, Entry{"Mabout", "About"},
          Entry{"Msgp4", "About"}, Entry{"Mworldview", "WorldView"}, Entry{"Mnorthwest", "WorldView"},
          Entry{"Mpanoramic", "Horizon"}, Entry{"Mtabular", "Tabular"}, Entry{"Mpass", "PassPrediction"}}) {
        expectAlone(windowOnScreen<Main>(), entry, window);
    }
    EXPECT_TRUE(fakes.logLines().empty());
    EXPECT_TRUE(fakes.dialogs.messages.empty());
}

TEST_F(MenusTest, OfTheViewsOpenWhatTheyName) {
    start();
    for (const auto& [entry, window] :
         {Entry{"mnuHorizon", "Horizon"}, Entry{"mnuPassPred", "PassPrediction"},
          Entry{"mnu2Dcontrols", "frmCON2D"}, Entry{"mnuRadRot", "frmTracker"}}) {
        choose(windowOnScreen<Main>(), "Mworldview");
        expectAlone(windowOnScreen<WorldView>(), entry, window);
    }
    for (const auto& [entry, window] : {Entry{"mnuPass", "PassPrediction"}, Entry{"mnuWorld", "WorldView"}}) {
        choose(windowOnScreen<Main>(), "Mpanoramic");
        expectAlone(windowOnScreen<Horizon>(), entry, window);
    }
    EXPECT_TRUE(fakes.logLines().empty());
}

/// What a reader for the blind would say of a control.
bool hasSpokenName(const QWidget& control) {
    if (!control.accessibleName().isEmpty()) return true;
    if (control.inherits("QAbstractButton")) return !control.property("text").toString().isEmpty();
    for (const QLabel* const label : control.window()->findChildren<QLabel*>()) {
        if (label->buddy() == &control) return true;
    }
    return false;
}

TEST_F(MenusTest, NoControlThatTakesTheFocusIsWithoutAName) {
    start();
    for (const char* const name :
         {"PassPrediction", "PassWizard", "IridiumFlares", "Record", "frmTracker", "frmCONUpdates",
          "frmCONmain", "frmCON2D", "frmCONGroups", "frmCONlocations", "About", "Tabular"}) {
        if (std::string_view(name) == "Tabular") state.MainTag = "tabular";
        fakes.windows.show(name);
        auto* const window = dynamic_cast<QWidget*>(fakes.windows.refer(name));
        ASSERT_NE(window, nullptr) << name;
        for (const QWidget* const control : window->findChildren<QWidget*>()) {
            // Parts of a control have no name of their own.
            if (control->objectName().isEmpty() || control->objectName().startsWith(QLatin1String("qt_")))
                continue;
            if ((control->focusPolicy() & Qt::TabFocus) == 0 || !control->isVisibleTo(window)) continue;
            EXPECT_TRUE(hasSpokenName(*control)) << name << '.' << control->objectName().toStdString();
        }
        fakes.windows.unload(name);
        settle();
    }
}

}  // namespace
}  // namespace vantrace
