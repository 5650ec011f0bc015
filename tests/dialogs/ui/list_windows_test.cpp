// The windows of the groups and of the places, as the user works them.
#include "tests/dialogs/ui/dialog_windows_test.h"

namespace vantrace {
namespace {

class ListWindowsTest : public DialogWindowsTest {
  protected:
    static QModelIndex entry(QWidget* window, const char* list, int row) {
        return childOf<ChoiceList>(window, list)->model()->index(row, 0);
    }
    static int count(QWidget* window, const char* list) {
        return childOf<ChoiceList>(window, list)->model()->rowCount();
    }
    static std::string name(QWidget* window, const char* list, int row) {
        return entry(window, list, row).data().toString().toStdString();
    }
    static bool isTicked(QWidget* window, const char* list, int row) {
        return entry(window, list, row).data(Qt::CheckStateRole).toInt() == Qt::Checked;
    }
    /// On the name of a row, or on its tick.
    static void clickRow(QWidget* window, const char* list, int row, bool onTick = false) {
        auto* const view = childOf<ChoiceList>(window, list);
        view->scrollTo(view->model()->index(row, 0));
        const QRect place = view->visualRect(view->model()->index(row, 0));
        const QPoint point(onTick ? place.left() + 11 : place.left() + 60, place.center().y());
        QTest::mouseClick(view->viewport(), Qt::LeftButton, Qt::NoModifier, point);
    }
    static int rowOf(QWidget* window, const char* list, const char* text) {
        for (int row = 0; row < count(window, list); ++row) {
            if (name(window, list, row) == text) return row;
        }
        return -1;
    }
    Texts favourites() {
        Texts names;
        for (int i = 1; i <= program.state.FavouriteCount; ++i) {
            names.push_back(program.state.Favourites[i].Name);
        }
        return names;
    }
};

constexpr const char* satellites = "SatelliteList";
constexpr const char* groups = "GroupList";

TEST_F(ListWindowsTest, TicksOfTheMouseAndOfTheKeyboardAreFavourites) {
    auto* const window = open<frmCONGroups>("mnuCONgroups");
    EXPECT_EQ(window->windowTitle().toStdString(), "Vantrace - Satellite Groups and Favourites");
    ASSERT_EQ(name(window, groups, 0), "Space Stations");
    const Texts before = favourites();
    const int station = rowOf(window, satellites, "ISS (ZARYA)");
    ASSERT_GE(station, 0);
    EXPECT_TRUE(isTicked(window, satellites, station));
    clickRow(window, satellites, station, true);
    EXPECT_FALSE(isTicked(window, satellites, station));
    EXPECT_EQ(favourites().size(), before.size() - 1);
    const std::string details = textOf(window, "Details");
    EXPECT_NE(details, "No Information.") << "the entry of the tick is selected";
    EXPECT_EQ(childOf<ChoiceList>(window, satellites)->currentIndex().row(), station);
    clickRow(window, satellites, station == 0 ? 1 : 0);
    EXPECT_NE(textOf(window, "Details"), details);
    EXPECT_EQ(childOf<QWidget>(window, "Details")->accessibleName().toStdString(),
              "Selected Satellite Information: " + textOf(window, "Details"))
        << "what is heard of it";
    clickRow(window, satellites, station);
    EXPECT_EQ(textOf(window, "Details"), details);
    EXPECT_FALSE(isTicked(window, satellites, station)) << "on the name nothing is ticked";
    QTest::keyClick(childOf<ChoiceList>(window, satellites), Qt::Key_Space);
    EXPECT_TRUE(isTicked(window, satellites, station));
    EXPECT_EQ(favourites().back(), "ISS (ZARYA)");
    const auto* const bar = childOf<QScrollArea>(window, "detailsArea")->verticalScrollBar();
    EXPECT_TRUE(QTest::qWaitFor([&] { return bar->maximum() > 0; })) << "long notes are read to their end";
    savePicture(*window, "groups-settings-ticked");
    close(window);
    EXPECT_TRUE(program.fakes.folder.read("faves.dat").ends_with("ISS (ZARYA)\r\n"));
}

TEST_F(ListWindowsTest, AKeyLeavesTheFlagOfSelectAllAsItWas) {
    auto* const window = open<frmCONGroups>("mnuCONgroups");
    click(window, "BUTsel");
    const std::size_t all = favourites().size();
    auto* const list = childOf<ChoiceList>(window, groups);
    list->setFocus();
    QTest::keyClick(list, Qt::Key_Down);
    QTest::keyClick(list, Qt::Key_Up);
    const std::size_t doubled = favourites().size();
    EXPECT_GT(doubled, all) << "required as it is";
    childOf<ChoiceList>(window, satellites)->setFocus();
    QTest::keyClick(childOf<ChoiceList>(window, satellites), Qt::Key_Space);
    QTest::keyClick(list, Qt::Key_Down);
    QTest::keyClick(list, Qt::Key_Up);
    EXPECT_GT(favourites().size(), doubled);
    clickRow(window, satellites, 0);
    const std::size_t released = favourites().size();
    QTest::keyClick(list, Qt::Key_Down);
    EXPECT_EQ(favourites().size(), released);
    click(window, "BUTdesel");
    for (int row = 0; row < count(window, satellites); ++row) {
        EXPECT_FALSE(isTicked(window, satellites, row));
    }
}

TEST_F(ListWindowsTest, AGroupWithoutItsFileIsToldOnceForEachClick) {
    program.start();
    program.state.Groups[2].Url = "gone.txt";
    auto* const window = open<frmCONGroups>("mnuCONgroups");
    const int listed = count(window, satellites);
    clickRow(window, groups, 1);
    EXPECT_EQ(messages().size(), 1U);
    EXPECT_EQ(count(window, satellites), listed);
    clickRow(window, groups, 1);
    EXPECT_EQ(messages().size(), 2U);
}

TEST_F(ListWindowsTest, GroupsAreAddedAndDeleted) {
    auto* const window = open<frmCONGroups>("mnuCONgroups");
    const int before = count(window, groups);
    click(window, "BUTaddCelestrak");
    EXPECT_EQ(messages(), Texts{"Select a group first, then click this button"});
    EXPECT_EQ(childOf<QComboBox>(window, "COMCelestrak")->placeholderText(),
              QStringLiteral("Select a Celestrak Group"));
    pick(window, "COMCelestrak", 4);
    click(window, "BUTaddCelestrak");
    EXPECT_EQ(name(window, groups, before), "Geodetic");
    program.fakes.dialogs.typed = "mine.txt";
    click(window, "BUTaddgroup");
    EXPECT_EQ(name(window, groups, before + 1), "mine.txt");
    clickRow(window, groups, before);
    click(window, "BUTdeletegroup");
    EXPECT_EQ(count(window, groups), before + 1);
    EXPECT_EQ(program.state.GroupCount, before + 1);
    EXPECT_EQ(childOf<ChoiceList>(window, groups)->currentIndex().row(), 0);
    close(window);
    EXPECT_TRUE(program.fakes.folder.read("groups.dat").ends_with("mine.txt,mine.txt,1\r\n"));
}

TEST_F(ListWindowsTest, ASatelliteWithoutDataIsAskedForByAClick) {
    program.fakes.folder.write("satellite.dat", "");
    auto* const window = open<frmCONGroups>("mnuCONgroups");
    click(window, "Details");
    clickRow(window, satellites, 1);
    EXPECT_TRUE(textOf(window, "Details").starts_with("You can still track"));
    click(window, "Details");
    QTest::keyClick(childOf<QLabel>(window, "Details"), Qt::Key_Return);
    EXPECT_EQ(messages().size(), 2U);
    click(window, "BUTfindInfo");
    EXPECT_EQ(program.fakes.desktop.opened.size(), 3U);
    click(window, "BUTmakeprime");
    EXPECT_TRUE(messages().back().starts_with("Primary Favourite Satellite changed from "));
}

TEST_F(ListWindowsTest, AGroupOfFifteenThousandOpensWithinASecond) {
    program.start();
    std::string text;
    for (int i = 0; i < 15000; ++i) {
        text += "SAT " + std::to_string(i) + "\r\n1 25544U 98067A   26233.53315667  .0\r\n2 25544  51.6\r\n";
    }
    program.fakes.folder.write("stations.txt", text);
    QElapsedTimer timer;
    timer.start();
    program.fakes.host.handle("test", [this] { program.fakes.windows.show("frmCONGroups"); });
    auto* const window = windowOnScreen<frmCONGroups>();
    ASSERT_EQ(count(window, satellites), 15000);
    window->grab();
    EXPECT_LT(timer.elapsed(), 1000);
    clickRow(window, satellites, 14999, true);
    EXPECT_EQ(favourites().back(), "SAT 14999");
}

TEST_F(ListWindowsTest, PlacesAreTickedAddedAndDeleted) {
    auto* const window = open<frmCONlocations>("mnuCONlocations");
    EXPECT_EQ(window->windowTitle().toStdString(), "Locations");
    const char* const list = "ListLocations";
    const int before = count(window, list);
    ASSERT_EQ(name(window, list, 0), "London");
    EXPECT_TRUE(isTicked(window, list, 0));
    clickRow(window, list, 0, true);
    EXPECT_FALSE(isTicked(window, list, 0));
    EXPECT_EQ(program.state.Locations[1].Shown, "0");
    clickRow(window, list, 0);
    QTest::keyClick(childOf<ChoiceList>(window, list), Qt::Key_Space);
    EXPECT_EQ(program.state.Locations[1].Shown, "1");
    program.fakes.dialogs.typed = "12";
    click(window, "BUTaddlocations");
    EXPECT_EQ(name(window, list, before), "12");
    EXPECT_FALSE(isTicked(window, list, before));
    clickRow(window, list, 0);
    click(window, "BUTremovelocations");
    EXPECT_EQ(count(window, list), before);
    QTest::keyClick(window, Qt::Key_Escape);
    ViewProgram::settle();
    EXPECT_EQ(windowOnScreen<frmCONlocations>(), nullptr);
    EXPECT_EQ(program.fakes.folder.read("locations.dat").find("London"), std::string::npos);
    EXPECT_TRUE(program.fakes.folder.read("locations.dat").ends_with("12;12;12;12\r\n"));
}

TEST_F(ListWindowsTest, WhatIsAddedToALongListIsSeen) {
    program.start();
    for (int i = 1; i <= 38; ++i) program.state.Groups[i] = {"G" + std::to_string(i), "stations.txt", "1"};
    program.state.GroupCount = 38;
    for (int i = 1; i <= 100; ++i) program.state.Locations[i] = {"P" + std::to_string(i), "1", "2", 3, "1"};
    const auto isLastSeen = [](QWidget* window, const char* list) {
        const auto* const view = childOf<ChoiceList>(window, list);
        const QRect last = view->visualRect(entry(window, list, count(window, list) - 1));
        return view->viewport()->rect().contains(last.center());
    };
    QWidget* window = open<frmCONGroups>("mnuCONgroups");
    EXPECT_FALSE(isLastSeen(window, groups));
    pick(window, "COMCelestrak", 4);
    click(window, "BUTaddCelestrak");
    EXPECT_TRUE(isLastSeen(window, groups));
    EXPECT_EQ(childOf<ChoiceList>(window, groups)->currentIndex().row(), 0) << "and not selected";
    close(window);
    window = open<frmCONlocations>("mnuCONlocations");
    EXPECT_FALSE(isLastSeen(window, "ListLocations"));
    program.fakes.dialogs.typed = "12";
    click(window, "BUTaddlocations");
    EXPECT_TRUE(isLastSeen(window, "ListLocations"));
}

TEST_F(ListWindowsTest, AListThatCannotBeStoredIsTold) {
    auto* const window = open<frmCONGroups>("mnuCONgroups");
    std::filesystem::remove(program.fakes.folder.path() / "faves.dat");
    std::filesystem::create_directory(program.fakes.folder.path() / "faves.dat");
    close(window);
    ASSERT_EQ(messages().size(), 1U);
    EXPECT_NE(messages()[0].find("faves.dat"), std::string::npos) << messages()[0];
}

TEST_F(ListWindowsTest, EverythingHasItsPlaceInBothLooksAndItsCaption) {
    takePictures<frmCONGroups>("mnuCONgroups", "groups-settings");
    takePictures<frmCONlocations>("mnuCONlocations", "locations-settings");
    expectCaptions(
        open<frmCONGroups>("mnuCONgroups"),
        {"captionGroups=Satellite Groups", "captionSatellites=Favourite Satellites in selected Group",
         "frameDetails=Selected Satellite Information", "Details=No Information.",
         "BUTaddCelestrak=Add This to your Groups", "BUTaddgroup=Add New Group",
         "BUTdeletegroup=Delete Group", "BUTsel=Select All", "BUTdesel=Deselect All",
         "BUTmakeprime=Make Primary Satellite", "BUTfindInfo=Find more info on Internet"});
    expectCaptions(open<frmCONlocations>("mnuCONlocations"),
                   {"BUTaddlocations=Add Location", "BUTremovelocations=Delete Location"});
}

}  // namespace
}  // namespace vantrace
