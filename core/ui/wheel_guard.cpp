#include "core/ui/wheel_guard.h"

#include <QEvent>
#include <QWidget>

namespace vantrace {

WheelGuard::WheelGuard(QWidget& control) : QObject(&control), m_control(control) {
    control.setFocusPolicy(Qt::StrongFocus);
    control.installEventFilter(this);
}

bool WheelGuard::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() != QEvent::Wheel || m_control.hasFocus()) return QObject::eventFilter(watched, event);
    // What isn't accepted goes on to the parent.
    event->ignore();
    return true;
}

}  // namespace vantrace
