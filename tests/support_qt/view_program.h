// `Main` over the data that ships, with real pictures and print: what tests of the views start from.
#pragma once

#include <QAction>
#include <filesystem>
#include <memory>
#include <string>

#include "core/program_state.h"
#include "core/shell/ui/information_windows.h"
#include "core/shell/ui/main_window.h"
#include "platform/qt/qt_pictures.h"
#include "platform/qt/qt_text_painter.h"
#include "tests/support_qt/window_test.h"

namespace vantrace {

struct ViewProgram {
    ViewProgram() {
        std::filesystem::copy(VANTRACE_SHIPPED_FOLDER, fakes.folder.path());
        fakes.settings.set("Location Name", "Vienna");
        fakes.settings.set("Latitude", "48.21");
        fakes.settings.set("Longitude", "343.63");
        fakes.clock.setUtc({2026, 8, 23, 10, 30, 0}, 120);
        state.AppPath = fakes.folder.appPath();
        WindowRegistry& windows = fakes.windows;
        windows.registerWindow("frmSplash",
                               [this] { return std::make_unique<frmSplash>(fakes.host, services); });
        windows.registerWindow("Main",
                               [this] { return std::make_unique<Main>(fakes.host, state, services); });
    }

    /// Starts the program with that command line.
    void start(const std::string& commandLine = {}) {
        state.CommandLine = commandLine;
        fakes.host.handle("test", [this] { fakes.windows.show("frmSplash"); });
        settle();
    }
    /// An entry of a window's menus, by its name.
    static void choose(QWidget* window, const char* entry) {
        if (QAction* const action = childOf<QAction>(window, entry)) action->trigger();
        settle();
    }
    /// Serves what is queued: the focus, the end of unloaded windows.
    static void settle() { QTest::qWait(1); }

    WindowTestServices fakes;
    QtPictures pictures;
    QtTextPainter textPainter;
    Services services{
        fakes.clock,    fakes.host,        fakes.settings,       fakes.speech,     fakes.dialogs,
        fakes.desktop,  fakes.displayMode, fakes.process,        fakes.capture,    pictures,
        textPainter,    fakes.printer,     fakes.fetcher,        fakes.timeClient, fakes.linePublisher,
        fakes.errorLog, fakes.windows,     fakes.services.format};
    ProgramState state;
};

}  // namespace vantrace
