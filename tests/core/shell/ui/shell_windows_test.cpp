#include <QAction>
#include <QMenu>
#include <QPushButton>
#include <QTreeView>

#include "core/labels.h"
#include "core/shell/ui/tabular_window.h"
#include "core/version.h"
#include "tests/support/fake_window.h"
#include "tests/support_qt/view_program.h"

namespace vantrace {
namespace {

/// The whole shell over the data that ships.
class ShellWindowsTest : public ::testing::Test {
  private:
    // Before the registry, which destroys the windows.
    WindowScript m_wizard;

  protected:
    ShellWindowsTest() {
        fakes.settings.set("HASL", "170");
        fakes.windows.registerWindow(
            "Tabular", [this] { return std::make_unique<Tabular>(fakes.host, state, program.services); });
        fakes.windows.registerWindow(
            "About", [this] { return std::make_unique<About>(fakes.host, program.services); });
    }

    void start() { program.start(); }
    static void settle() { ViewProgram::settle(); }
    static void choose(const char* entry) { ViewProgram::choose(windowOnScreen<Main>(), entry); }

    ViewProgram program;
    WindowTestServices& fakes = program.fakes;
    ProgramState& state = program.state;
    WindowScript& wizard = m_wizard;
};

TEST_F(ShellWindowsTest, TheSplashGivesWayToMainWhichShowsTheStateOfElementsPlaceAndSun) {
    frmSplash splash(fakes.host, program.services);
    splash.load();
    EXPECT_EQ(textOf(&splash, "lblVersion"), "Version " + std::string(shortVersion));
    splash.show();
    savePicture(splash, "splash");
    splash.hide();
    start();
    EXPECT_EQ(windowOnScreen<frmSplash>(), nullptr);
    Main* const main = windowOnScreen<Main>();
    ASSERT_NE(main, nullptr);
    tick(main, "Timer1");
    EXPECT_EQ(main->windowTitle().toStdString(), "Vantrace v" + std::string(shortVersion));
    EXPECT_EQ(textOf(main, "Label2"), "v" + std::string(shortVersion));
    EXPECT_EQ(textOf(main, "Status3"), "Current Location settings are: Vienna");
    EXPECT_EQ(textOf(main, "LABdatetime"), "UTC: 10:30:00 - Local: 12:30:00");
    EXPECT_NE(textOf(main, "lblSunRiseSet"), "");
    EXPECT_TRUE(fakes.logLines().empty());
    savePicture(*main, "main");
}

TEST_F(ShellWindowsTest, WhatComesFromFilesIsNoMarkup) {
    fakes.settings.set("Location Name", "<b>Vienna</b>");
    start();
    auto* const label = childOf<QLabel>(windowOnScreen<Main>(), "Status3");
    EXPECT_EQ(label->textFormat(), Qt::PlainText);
    EXPECT_EQ(label->text(), "Current Location settings are: <b>Vienna</b>");
}

TEST_F(ShellWindowsTest, TheTableTracksEveryFavourite) {
    start();
    choose("Mtabular");
    EXPECT_EQ(windowOnScreen<Main>(), nullptr);
    Tabular* const table = windowOnScreen<Tabular>();
    ASSERT_NE(table, nullptr);
    tick(table, "Timer1");
    const QAbstractItemModel* const rows = childOf<QTreeView>(table, "TabList")->model();
    ASSERT_EQ(rows->rowCount(), state.FavouriteCount);
    EXPECT_EQ(rows->headerData(6, Qt::Horizontal).toString(), "Logitude (deg)");
    EXPECT_EQ(rows->index(0, 0).data().toString(), "ISS (ZARYA)");
    EXPECT_FALSE(rows->index(0, 3).data().toString().isEmpty());
    EXPECT_EQ(textOf(table, "Sgmt"), "10:30:00");
    EXPECT_EQ(textOf(table, "Sheight"), "170 mtrs ");
    table->resize(950, 520);  // the screen of the offscreen platform is smaller
    savePicture(*table, "tabular");

    QTest::mouseClick(childOf<QPushButton>(table, "BUTexit"), Qt::LeftButton);
    settle();
    EXPECT_EQ(windowOnScreen<Tabular>(), nullptr);
    EXPECT_NE(windowOnScreen<Main>(), nullptr);
    EXPECT_EQ(state.MainTag, "menu");
}

TEST_F(ShellWindowsTest, WithoutTheSkinTheDesktopsLookStays) {
    fakes.settings.set("Skin", "0");
    start();
    EXPECT_EQ(windowOnScreen<Main>()->palette().color(QPalette::Window),
              QApplication::palette().color(QPalette::Window));
    choose("Mtabular");
    tick(windowOnScreen<Tabular>(), "Timer1");
    savePicture(*windowOnScreen<Tabular>(), "tabular-without-skin");
}

TEST_F(ShellWindowsTest, AboutTellsTheVersionAndCloses) {
    start();
    choose("Mabout");
    About* const about = windowOnScreen<About>();
    ASSERT_NE(about, nullptr);
    EXPECT_EQ(textOf(about, "lblVersion"), "Version " + std::string(shortVersion));
    EXPECT_NE(windowOnScreen<Main>(), nullptr) << "beside Main";
    savePicture(*about, "about");
    QTest::mouseClick(childOf<QPushButton>(about, "BUTsysinfo"), Qt::LeftButton);
    EXPECT_EQ(fakes.desktop.opened, Texts{"system information"});
    QTest::keyClick(about, Qt::Key_Escape);
    settle();
    EXPECT_EQ(windowOnScreen<About>(), nullptr);
}

TEST_F(ShellWindowsTest, EveryEntryHasItsShortcutOnceAndItsMnemonicOnceInItsMenu) {
    Main main(fakes.host, state, program.services);
    QStringList shortcuts;
    int entries = 0;
    for (const QAction* const action : main.findChildren<QAction*>()) {
        if (!action->objectName().isEmpty() && action->menu() == nullptr) ++entries;
        if (!action->shortcut().isEmpty()) shortcuts << action->shortcut().toString();
    }
    EXPECT_EQ(entries, 28);
    EXPECT_EQ(shortcuts.removeDuplicates(), 0);
    for (const QMenu* const menu : main.findChildren<QMenu*>()) {
        QStringList mnemonics;
        for (const QAction* const action : menu->actions()) {
            const QString caption = action->text().toUpper();
            if (caption.contains('&')) mnemonics << caption.mid(caption.indexOf('&') + 1, 1);
        }
        EXPECT_EQ(mnemonics.removeDuplicates(), 0) << menu->title().toStdString();
    }
}

TEST_F(ShellWindowsTest, EveryEntryCanBeChosenOneAfterTheOther) {
    start();
    Texts entries;
    for (const QAction* const action : windowOnScreen<Main>()->findChildren<QAction*>()) {
        const std::string name = action->objectName().toStdString();
        if (!name.empty() && action->menu() == nullptr && name != "Mexit") entries.push_back(name);
    }
    for (const std::string& entry : entries) {
        choose(entry.c_str());
        if (Tabular* const table = windowOnScreen<Tabular>()) table->close();
        settle();
        ASSERT_NE(windowOnScreen<Main>(), nullptr) << entry;
    }
    EXPECT_EQ(fakes.desktop.opened.size(), 5u) << "help, history, home page and two playlists";
    EXPECT_EQ(fakes.dialogs.messages.size(), 2u) << "the question of the reset, and that there is no voice";
    EXPECT_TRUE(fakes.logLines().empty());
}

TEST_F(ShellWindowsTest, AHandlerThatFailsTellsAndTheProgramLives) {
    start();
    fakes.host.handle("Tabular", [] { throw std::runtime_error("out of paper"); });
    EXPECT_EQ(fakes.dialogs.messages, Texts{"out of paper"});
    EXPECT_EQ(fakes.logged("Tabular"), 1);
    EXPECT_NE(windowOnScreen<Main>(), nullptr);
    for (int second = 0; second < 3; ++second) {
        fakes.host.handleTick("Tabular", [] { throw std::runtime_error("out of ink"); });
    }
    EXPECT_EQ(fakes.dialogs.messages.size(), 2u) << "one message box for a tick that fails each second";
    EXPECT_EQ(fakes.logged("Tabular"), 4);
}

TEST_F(ShellWindowsTest, AnObserverBeyondAllSenseIsLoggedAndTheTableGoesOn) {
    fakes.settings.set("HASL", "1e200");
    start();
    choose("Mtabular");
    tick(windowOnScreen<Tabular>(), "Timer1");
    EXPECT_EQ(fakes.dialogs.messages.size(), 0u);
    EXPECT_EQ(textOf(windowOnScreen<Tabular>(), "Sgmt"), "10:30:00");
    EXPECT_GT(fakes.logged(labels::globalSatcalc), 0);
}

TEST_F(ShellWindowsTest, TheExitEndsTheProgram) {
    start();
    wizard.staysOpen = true;
    registerFake(fakes.windows, "PassWizard", wizard);
    fakes.windows.show("PassWizard");
    choose("Mexit");
    ASSERT_NE(windowOnScreen<Main>(), nullptr) << "a job is being edited, and the user doesn't give it up";
    wizard.staysOpen = false;
    choose("Mexit");
    EXPECT_EQ(windowOnScreen<Main>(), nullptr);
    EXPECT_EQ(state.OrbitEngine, nullptr);
    EXPECT_EQ(state.MainTag, "exit");
}

TEST_F(ShellWindowsTest, GoingToAndFroLeavesNothingBehind) {
    start();
    const auto goAndComeBack = [this](int times) {
        for (int i = 0; i < times; ++i) {
            choose("Mtabular");
            tick(windowOnScreen<Tabular>(), "Timer1");
            QTest::mouseClick(childOf<QPushButton>(windowOnScreen<Tabular>(), "BUTexit"), Qt::LeftButton);
            settle();
        }
    };
    const auto openFiles = [] {
        const std::filesystem::directory_iterator entries("/proc/self/fd");
        return std::distance(begin(entries), end(entries));
    };
    goAndComeBack(3);
    const auto filesBefore = openFiles();
    const auto widgetsBefore = QApplication::allWidgets().size();
    goAndComeBack(20);
    EXPECT_EQ(openFiles(), filesBefore);
    EXPECT_EQ(QApplication::allWidgets().size(), widgetsBefore);
}

}  // namespace
}  // namespace vantrace
