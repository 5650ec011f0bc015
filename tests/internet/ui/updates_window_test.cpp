// The window of the updates, by the names of its controls.
#include "internet/ui/updates_window.h"

#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QScrollArea>
#include <QScrollBar>

#include "core/program_state.h"
#include "tests/support_qt/window_test.h"

namespace vantrace {
namespace {

class UpdatesWindowTest : public ::testing::Test {
  protected:
    UpdatesWindowTest() {
        state.AppPath = fakes.folder.appPath();
        state.GroupCount = 12;
        for (std::size_t i = 1; i <= 12; ++i) {
            state.Groups[i] = {"Group", "elements.example/group-" + std::to_string(i) + ".txt", "0"};
        }
        fakes.fetcher.onFetch = [this](const FakeFetcher::Request& request) {
            fakes.folder.write(std::filesystem::path(request.file).filename(), std::string(3000, '#'));
            return std::optional<FetchError>();
        };
        fakes.windows.registerWindow("frmCONUpdates", [this] {
            return std::make_unique<frmCONUpdates>(fakes.host, state, fakes.withHost);
        });
    }
    frmCONUpdates* open() {
        fakes.windows.show("frmCONUpdates");
        return windowOnScreen<frmCONUpdates>();
    }
    static void click(QWidget* window, const char* button) {
        QTest::mouseClick(childOf<QPushButton>(window, button), Qt::LeftButton);
    }
    static std::string status(QWidget* window) {
        return childOf<QPlainTextEdit>(window, "txtStatus")->toPlainText().toStdString();
    }

    WindowTestServices fakes;
    ProgramState state;
};

TEST_F(UpdatesWindowTest, TheThreeJobsTellWhatTheyDoAndTheLastLineIsInSight) {
    frmCONUpdates* const window = open();
    ASSERT_NE(window, nullptr);
    EXPECT_EQ(window->windowTitle().toStdString(), "Internet Update");
    EXPECT_EQ(window->focusWidget(), childOf<QPushButton>(window, "BUTupdateKeps"));
    bool wasHeld = false;
    QTimer::singleShot(0, window, [&] {
        wasHeld = !childOf<QPushButton>(window, "BUTupdateDB")->isEnabled() &&
                  status(window) == "Updating Keplerian Elements...\n";
    });
    click(window, "BUTupdateKeps");
    EXPECT_TRUE(wasHeld) << "while a job runs its words are seen, and no other starts";
    EXPECT_TRUE(
        status(window).ends_with("http://elements.example/group-12.txt   -  Size : 2.9 Kb OK\nDone.\n"))
        << status(window);
    EXPECT_EQ(window->focusWidget(), childOf<QPushButton>(window, "BUTupdateKeps"));
    click(window, "BUTupdateDB");
    EXPECT_EQ(fakes.fetcher.requests.back().file, state.AppPath + "satellite.dat");
    fakes.timeClient.queryResult = 1;
    click(window, "BUTsyncClock");
    EXPECT_TRUE(status(window).ends_with(" on port 13")) << status(window);
    QTest::qWait(1);
    const QScrollBar* const bar = childOf<QPlainTextEdit>(window, "txtStatus")->verticalScrollBar();
    EXPECT_GT(bar->maximum(), 0);
    EXPECT_EQ(bar->value(), bar->maximum());
    EXPECT_TRUE(childOf<QPlainTextEdit>(window, "txtStatus")->isReadOnly());
}

TEST_F(UpdatesWindowTest, TheFieldsOfTheProxyFollowTheChoiceAndAreKept) {
    frmCONUpdates* const window = open();
    auto* const host = childOf<QLineEdit>(window, "txtProxyHost");
    auto* const password = childOf<QLineEdit>(window, "txtProxyPass");
    EXPECT_TRUE(childOf<QRadioButton>(window, "OPproxyON_0")->isChecked());
    EXPECT_FALSE(host->isEnabled());
    EXPECT_EQ(textOf(window, "txtProxyPort"), "1080");
    childOf<QRadioButton>(window, "OPproxyON_1")->click();
    EXPECT_TRUE(host->isEnabled());
    QTest::keyClicks(host, "proxy.example");
    QTest::keyClicks(childOf<QLineEdit>(window, "txtProxyUser"), "anna");
    QTest::keyClicks(password, "secret");
    EXPECT_EQ(password->displayText().indexOf(QStringLiteral("secret")), -1);
    click(window, "BUTupdateDB");
    EXPECT_EQ(fakes.fetcher.requests.at(0).proxy, (Texts{"proxy.example", "1080", "anna", "secret"}));
    QTest::keyClick(window, Qt::Key_Escape);
    QTest::qWait(1);
    EXPECT_FALSE(fakes.windows.isLoaded("frmCONUpdates"));
    EXPECT_EQ(fakes.settings.get("ProxyPass"), "secret");
    EXPECT_TRUE(childOf<QRadioButton>(open(), "OPproxyON_1")->isChecked());
    EXPECT_EQ(textOf(windowOnScreen<frmCONUpdates>(), "txtProxyUser"), "anna");
    click(windowOnScreen<frmCONUpdates>(), "closeButton");
    EXPECT_EQ(windowOnScreen<frmCONUpdates>(), nullptr);
}

TEST_F(UpdatesWindowTest, ClosedInTheMiddleItFetchesNoMore) {
    frmCONUpdates* const window = open();
    fakes.fetcher.onFetch = [&](const FakeFetcher::Request&) {
        QTimer::singleShot(0, window, &QWidget::close);
        return std::optional<FetchError>();
    };
    click(window, "BUTupdateKeps");
    EXPECT_EQ(fakes.fetcher.requests.size(), 1U);
    EXPECT_FALSE(fakes.windows.isLoaded("frmCONUpdates"));
}

TEST_F(UpdatesWindowTest, InBothLooksEverythingHasItsPlace) {
    for (const char* skin : {"1", "0"}) {
        fakes.settings.set("Skin", skin);
        frmCONUpdates* const window = open();
        childOf<QRadioButton>(window, "OPproxyON_1")->setChecked(*skin == '0');
        click(window, "BUTupdateKeps");
        QTest::qWait(1);
        const auto* const area = childOf<QScrollArea>(window, "centre");
        EXPECT_FALSE(area->verticalScrollBar()->isVisible());
        EXPECT_FALSE(area->horizontalScrollBar()->isVisible());
        for (const QPushButton* const button : window->findChildren<QPushButton*>()) {
            EXPECT_GE(button->width(), button->minimumSizeHint().width())
                << button->objectName().toStdString();
        }
        savePicture(*window, *skin == '1' ? "internet-update" : "internet-update-without-skin");
        fakes.windows.unload("frmCONUpdates");
        QTest::qWait(1);
    }
}

}  // namespace
}  // namespace vantrace
