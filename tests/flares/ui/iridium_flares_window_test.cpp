// The window of the flares over a service that the test writes.
#include "flares/ui/iridium_flares_window.h"

#include <QHeaderView>
#include <QLabel>
#include <QPushButton>
#include <QScrollBar>
#include <QToolButton>
#include <QTreeView>

#include "core/program_state.h"
#include "tests/flares/flare_pages.h"
#include "tests/support_qt/window_test.h"

namespace vantrace {
namespace {

class IridiumFlaresWindowTest : public ::testing::Test {
  protected:
    IridiumFlaresWindowTest() {
        fakes.folder.write("hosts.dat", "flareHost=flares.test\r\n");
        fakes.clock.setUtc({2026, 8, 23, 10, 30, 0}, 120);
        state.AppPath = fakes.folder.appPath();
        state.ObserverName = "Vienna";
        fakes.windows.registerWindow("IridiumFlares", [this] {
            return std::make_unique<IridiumFlares>(fakes.host, state, fakes.withHost);
        });
        fakes.fetcher.onFetch = [this](const FakeFetcher::Request&) {
            if (onFetch) onFetch();
            fakes.folder.write("flares.tmp", page);
            return std::nullopt;
        };
    }

    IridiumFlares* open() {
        fakes.windows.show("IridiumFlares");
        auto* const window = windowOnScreen<IridiumFlares>();
        EXPECT_NE(window, nullptr);
        return window;
    }
    static void click(QWidget* window, const char* button) {
        QTest::mouseClick(childOf<QAbstractButton>(window, button), Qt::LeftButton);
    }
    static int rowCount(QWidget* window) {
        return childOf<QTreeView>(window, "LSTflares")->model()->rowCount();
    }
    static std::string cell(QWidget* window, int row, int column) {
        const auto* const model = childOf<QTreeView>(window, "LSTflares")->model();
        return model->index(row, column).data().toString().toStdString();
    }
    static std::string manyFlares() {
        std::string rows;
        const char* const satellites[] = {"Iridium 7", "Iridium 23", "Iridium 100", "Iridium 14 (tumbling)"};
        for (int i = 0; i < 14; ++i) {
            const std::string number = std::to_string(10 + i);
            rows += flareRow({number + " Aug", number + ":05:33", satellites[i % 4]});
        }
        return pageStart + rows + pageEnd;
    }
    /// All columns, headings and cells alike, are in sight without scrolling.
    static void expectAllColumnsInFull(QWidget* window) {
        QTest::qWait(1);
        auto* const list = childOf<QTreeView>(window, "LSTflares");
        EXPECT_FALSE(list->horizontalScrollBar()->isVisible());
        ASSERT_EQ(list->header()->count(), 8);
        for (int column = 0; column < 8; ++column) {
            EXPECT_GE(list->header()->sectionSize(column), list->header()->sectionSizeHint(column)) << column;
            for (int row = 0; row < list->model()->rowCount(); ++row) {
                const QRect place = list->visualRect(list->model()->index(row, column));
                EXPECT_GE(place.width(), list->sizeHintForIndex(list->model()->index(row, column)).width())
                    << cell(window, row, column);
            }
        }
    }

    WindowTestServices fakes;
    ProgramState state;
    std::string page = manyFlares();
    /// Runs while the page arrives.
    std::function<void()> onFetch;
};

TEST_F(IridiumFlaresWindowTest, FetchesSavesPrintsAndCloses) {
    IridiumFlares* const window = open();
    EXPECT_EQ(window->windowTitle().toStdString(), "Vantrace - Iridium Flare Predictions");
    EXPECT_EQ(textOf(window, "Label1"), " (Requires Internet Connection)");
    EXPECT_EQ(textOf(window, "Label2"), "Predictions Supplied by...");
    EXPECT_EQ(childOf<QAbstractButton>(window, "Picture1")->toolTip().toStdString(),
              "Click here to go to the Orbisky Web Site");
    EXPECT_TRUE(childOf<QLabel>(window, "hint")->isVisible());
    savePicture(*window, "iridium-flares-empty");

    onFetch = [&] {
        EXPECT_EQ(textOf(window, "Label1"), " (Requires Internet Connection) - Connecting");
        EXPECT_FALSE(childOf<QLabel>(window, "hint")->isVisible());
    };
    QTest::keyClick(window->focusWidget(), Qt::Key_Return);
    EXPECT_EQ(fakes.fetcher.requests.size(), 1U);
    ASSERT_EQ(rowCount(window), 14);
    EXPECT_EQ(cell(window, 0, 0) + " " + cell(window, 0, 1), "10 AUG 12:05:33");
    EXPECT_EQ(cell(window, 13, 5), "12.3 km");
    EXPECT_EQ(textOf(window, "Label1"), "Complete ! - Results are saved to memory");
    EXPECT_EQ(window->focusWidget(), childOf<QPushButton>(window, "BUTgetFlares"));
    EXPECT_FALSE(childOf<QLabel>(window, "hint")->isVisible());
    expectAllColumnsInFull(window);
    savePicture(*window, "iridium-flares");

    fakes.dialogs.chosen = fakes.folder.path() / "out.txt";
    click(window, "BUTsave");
    EXPECT_NE(fakes.folder.read("out.txt").find("Iridium 100"), std::string::npos);
    click(window, "BUTprint");
    EXPECT_EQ(fakes.printer.documents.size(), 1U);
    fakes.printer.failure = "no paper";
    click(window, "BUTprint");
    EXPECT_EQ(fakes.dialogs.messages.back(), "no paper");
    click(window, "Picture1");
    EXPECT_EQ(fakes.desktop.opened, Texts{"http://flares.test"});

    click(window, "closeButton");
    QTest::qWait(1);
    EXPECT_FALSE(fakes.windows.isLoaded("IridiumFlares"));
    IridiumFlares* const again = open();
    EXPECT_EQ(rowCount(again), 14) << "as they were stored";
    EXPECT_EQ(textOf(again, "Label1"), " (Requires Internet Connection)");
    QTest::qWait(1);
    QTest::keyClick(again, Qt::Key_Escape);
    EXPECT_FALSE(fakes.windows.isOnScreen("IridiumFlares"));
}

TEST_F(IridiumFlaresWindowTest, ABadPageLeavesTheListAsFarAsItCame) {
    page = pageStart + flareRow() + flareRow({"never", "1:00"});
    IridiumFlares* const window = open();
    fakes.dialogs.onMessage = [&] {
        EXPECT_EQ(textOf(window, "Label1"), " (Requires Internet Connection) - Error in Data");
    };
    click(window, "BUTgetFlares");
    EXPECT_EQ(rowCount(window), 2);
    ASSERT_EQ(fakes.dialogs.messages.size(), 1U);
    EXPECT_TRUE(fakes.dialogs.messages[0].starts_with("There was a problem with the Flare Results"));
}

TEST_F(IridiumFlaresWindowTest, AnEmptyListTellsWhetherThereAreNoFlaresOrNoneYet) {
    IridiumFlares* const window = open();
    const std::string whatToDo = textOf(window, "hint");
    page = pageStart + pageEnd;
    click(window, "BUTgetFlares");
    EXPECT_TRUE(childOf<QLabel>(window, "hint")->isVisible());
    EXPECT_NE(textOf(window, "hint").find("no flares that can be seen"), std::string::npos);
    page = "busy";
    click(window, "BUTgetFlares");
    EXPECT_EQ(textOf(window, "hint"), whatToDo);
}

TEST_F(IridiumFlaresWindowTest, AVeryLongCellIsCutOnTheScreen) {
    page = pageStart + flareRow({"5 Jan", "1:00", std::string(1'000'000, 'x')}) + pageEnd;
    IridiumFlares* const window = open();
    click(window, "BUTgetFlares");
    EXPECT_EQ(cell(window, 0, 7), std::string(260, 'x'));
    EXPECT_GT(fakes.folder.read("flares.dat").size(), 1'000'000U);
}

TEST_F(IridiumFlaresWindowTest, WithoutTheSkinEverythingHasItsPlace) {
    fakes.settings.set("Skin", "0");
    IridiumFlares* const window = open();
    savePicture(*window, "iridium-flares-empty-without-skin");
    click(window, "BUTgetFlares");
    expectAllColumnsInFull(window);
    savePicture(*window, "iridium-flares-without-skin");
}

}  // namespace
}  // namespace vantrace
