#include "dialogs/ui/click_label.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <utility>

namespace vantrace {

void ClickLabel::paintEvent(QPaintEvent* event) {
    QLabel::paintEvent(event);
    if (!hasFocus()) return;
    QPainter painter(this);
    painter.setPen(palette().color(QPalette::Highlight));
    painter.drawRect(rect().adjusted(0, 0, -1, -1));
}

void ClickLabel::mousePressEvent(QMouseEvent* event) {
    m_isPressed = event->button() == Qt::LeftButton;
    event->setAccepted(m_isPressed);
}

void ClickLabel::mouseReleaseEvent(QMouseEvent* event) {
    const bool wasPressed = std::exchange(m_isPressed, false);
    if (wasPressed && rect().contains(event->position().toPoint())) click();
}

void ClickLabel::keyPressEvent(QKeyEvent* event) {
    switch (event->key()) {
        case Qt::Key_Return:
        case Qt::Key_Enter:
        case Qt::Key_Space:
            click();
            break;
        default:
            QLabel::keyPressEvent(event);
    }
}

void ClickLabel::click() {
    if (onClick) onClick();
}

}  // namespace vantrace
