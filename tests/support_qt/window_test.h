// What the tests of windows share: the real host over fake ports, and pictures of the windows.
#pragma once

#include <QApplication>
#include <QPixmap>
#include <QTest>
#include <QTimer>
#include <QWheelEvent>
#include <QWidget>

#include "core/ui/window_host.h"
#include "tests/support/test_services.h"
#include "tests/support/testing.h"

namespace vantrace {

struct WindowTestServices : TestServices {
    WindowTestServices()
        : host(windows, dialogs, errorLog), withHost{clock,   host,           settings,      speech,
                                                     dialogs, desktop,        displayMode,   process,
                                                     capture, pictures,       textPainter,   printer,
                                                     fetcher, timeClient,     linePublisher, errorLog,
                                                     windows, services.format} {}
    ~WindowTestServices() {
        windows.close();
        windows.releaseUnloaded();
    }
    WindowTestServices(const WindowTestServices&) = delete;
    WindowTestServices& operator=(const WindowTestServices&) = delete;

    WindowHost host;
    /// The services with the real event queue.
    Services withHost;
};

/// The window on screen of that class; null where there is none.
template <class Window>
Window* windowOnScreen() {
    for (QWidget* const widget : QApplication::topLevelWidgets()) {
        auto* const window = dynamic_cast<Window*>(widget);
        if (window != nullptr && window->isVisible()) return window;
    }
    return nullptr;
}

/// A child by the name that its form gives it. The test fails where there is none.
template <class Child>
Child* childOf(QWidget* window, const char* name) {
    Child* const child = window == nullptr ? nullptr : window->findChild<Child*>(QString::fromLatin1(name));
    EXPECT_NE(child, nullptr) << name;
    return child;
}

inline std::string textOf(QWidget* window, const char* name) {
    const QWidget* const child = childOf<QWidget>(window, name);
    return child == nullptr ? "" : child->property("text").toString().toStdString();
}

/// One tick of a timer, whatever its interval.
inline void tick(QWidget* window, const char* name) {
    if (QTimer* const timer = childOf<QTimer>(window, name)) QMetaObject::invokeMethod(timer, "timeout");
}

/// The wheel of the mouse, one notch, over a control.
inline void turnWheel(QWidget& control) {
    const QPointF place = QRectF(control.rect()).center();
    QWheelEvent event(place, control.mapToGlobal(place), {}, {0, -120}, Qt::NoButton, Qt::NoModifier,
                      Qt::NoScrollPhase, false);
    QApplication::sendEvent(&control, &event);
}

/// Writes a picture of a window to the folder of the build.
inline void savePicture(QWidget& window, const std::string& name) {
    QTest::qWait(1);  // the layout follows texts later
    std::filesystem::create_directories(VANTRACE_SCREENS_FOLDER);
    const QPixmap picture = window.grab();
    EXPECT_TRUE(picture.save(QString::fromLatin1(VANTRACE_SCREENS_FOLDER "/") +
                             QString::fromStdString(name + ".png")));
}

}  // namespace vantrace
