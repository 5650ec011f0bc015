// What the wiring tests of the settings dialogs share: the program's own menus over the data that ships.
#pragma once

#include <QAbstractItemView>
#include <QCheckBox>
#include <QComboBox>
#include <QElapsedTimer>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QScrollArea>
#include <QScrollBar>
#include <QSlider>
#include <memory>
#include <utility>
#include <vector>

#include "core/ui/choice_list.h"
#include "core/ui/scrolled_contents.h"
#include "dialogs/ui/groups_window.h"
#include "dialogs/ui/locations_window.h"
#include "dialogs/ui/main_settings_window.h"
#include "dialogs/ui/map_settings_window.h"
#include "tests/support/testing.h"
#include "tests/support_qt/view_program.h"

namespace vantrace {

class DialogWindowsTest : public ::testing::Test {
  protected:
    DialogWindowsTest() {
        WindowRegistry& windows = program.fakes.windows;
        add<frmCONmain>(windows, "frmCONmain");
        add<frmCON2D>(windows, "frmCON2D");
        add<frmCONGroups>(windows, "frmCONGroups");
        add<frmCONlocations>(windows, "frmCONlocations");
    }

    /// Opens a dialog by its entry in the menu of `Main`.
    template <class Window>
    Window* open(const char* entry) {
        if (windowOnScreen<Main>() == nullptr) program.start();
        ViewProgram::choose(windowOnScreen<Main>(), entry);
        Window* const window = windowOnScreen<Window>();
        EXPECT_NE(window, nullptr) << entry;
        return window;
    }
    static void close(QWidget* window) {
        window->close();
        ViewProgram::settle();
    }
    static void click(QWidget* window, const char* name) {
        QTest::mouseClick(childOf<QWidget>(window, name), Qt::LeftButton);
    }
    static void pick(QWidget* window, const char* name, int entry) {
        auto* const box = childOf<QComboBox>(window, name);
        box->setCurrentIndex(entry);
        emit box->activated(entry);
    }
    static void retype(QWidget* window, const char* name, const char* text) {
        auto* const field = childOf<QLineEdit>(window, name);
        field->selectAll();
        QTest::keyClick(field, Qt::Key_Delete);
        QTest::keyClicks(field, QString::fromLatin1(text));
    }
    /// Captions stand on the controls as the user reads them: "control=caption".
    static void expectCaptions(QWidget* window, const Texts& captions) {
        for (const std::string& each : captions) {
            const std::size_t sign = each.find('=');
            const auto* const control = childOf<QWidget>(window, each.substr(0, sign).c_str());
            if (control == nullptr) continue;
            const bool isBox = qobject_cast<const QGroupBox*>(control) != nullptr;
            QString text = control->property(isBox ? "title" : "text").toString();
            text.remove(QLatin1Char('&'));
            EXPECT_EQ(text.toStdString(), each.substr(sign + 1)) << each;
        }
    }
    std::string stored(const char* key) { return program.fakes.settings.get(key).value_or("(none)"); }
    const Texts& messages() const { return program.fakes.dialogs.messages; }

    /// A picture in each look, in which nothing is cut off.
    template <class Window>
    void takePictures(const char* entry, const std::string& name) {
        for (const char* skin : {"1", "0"}) {
            program.fakes.settings.set("Skin", skin);
            Window* const window = open<Window>(entry);
            expectRoom(window);
            savePicture(*window, *skin == '1' ? name : name + "-without-skin");
            close(window);
        }
    }

  private:
    template <class Window>
    void add(WindowRegistry& windows, const char* name) {
        windows.registerWindow(name, [this] {
            return std::make_unique<Window>(program.fakes.host, program.state, program.services);
        });
    }
    /// All controls have their room, a name for those who don't see them, and a place in the order of keys.
    static void expectRoom(QWidget* window) {
        const auto* const area = window->findChild<QScrollArea*>(QStringLiteral("centre"));
        // The screen of the tests is smaller.
        if (area != nullptr) growToContents(*window, *area);
        ViewProgram::settle();
        for (const QWidget* const control : window->findChildren<QWidget*>()) {
            const std::string name = control->objectName().toStdString();
            if (!control->isVisible() || name.empty() || name.starts_with("qt_")) continue;
            EXPECT_GE(control->width(), control->minimumSizeHint().width()) << name;
            EXPECT_GE(control->height(), control->minimumSizeHint().height()) << name;
        }
        if (area != nullptr) {
            EXPECT_FALSE(area->verticalScrollBar()->isVisible());
            EXPECT_FALSE(area->horizontalScrollBar()->isVisible());
        }
    }

  protected:
    ViewProgram program;
};

}  // namespace vantrace
