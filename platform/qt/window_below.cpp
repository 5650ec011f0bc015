#include "platform/qt/window_below.h"

#include <QApplication>
#include <QWidget>

namespace vantrace {

QWidget* windowBelow() {
    if (QWidget* const active = QApplication::activeWindow()) return active;
    for (QWidget* const window : QApplication::topLevelWidgets()) {
        if (window->isVisible()) return window;
    }
    return nullptr;
}

}  // namespace vantrace
