#include "mapview/ui/pane_controls.h"

#include <QPainter>

#include "core/ui/row_model.h"

namespace vantrace {

namespace {

/// The back colours of a pair of buttons.
constexpr Colour pressedColour = 0xFFFFC0;
constexpr Colour restingColour = 0xC0C000;
const QColor paneBack(0x0B, 0x14, 0x20);
const QColor buttonText(0x04, 0x20, 0x26);

void drawFocus(QPainter& painter, const QRect& area) {
    painter.setPen(QPen(QColor(0xFF, 0xFF, 0x00), 1));
    painter.setBrush(Qt::NoBrush);
    painter.drawRect(area.adjusted(1, 1, -2, -2));
}

}  // namespace

QFont paneFont() {
    constexpr int sizePixels = 10;
    constexpr int widthPercent = 90;
    QFont font(QStringLiteral("DejaVu Sans"));
    font.setPixelSize(sizePixels);
    // The longest line, that of the next pass, has to fit.
    font.setStretch(widthPercent);
    font.setStyleHint(QFont::SansSerif);
    return font;
}

void PaneBack::paintEvent(QPaintEvent* /*event*/) {
    QPainter(this).fillRect(rect(), paneBack);
}

PaneLine::PaneLine(QWidget* parent) : QWidget(parent) {
    setAttribute(Qt::WA_OpaquePaintEvent);
    setFont(paneFont());
}

void PaneLine::setColour(Colour colour) {
    m_colour = toQColor(colour);
    update();
}

void PaneLine::setHeading(const QString& text) {
    m_isHeading = true;
    QFont font = paneFont();
    font.setBold(true);
    setFont(font);
    setText(text);
}

void PaneLine::setText(const QString& text) {
    m_text = text;
    setAccessibleName(text);
    setToolTip(fontMetrics().horizontalAdvance(text) > width() - 6 ? text : QString());
    update();
}

void PaneLine::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    painter.fillRect(rect(), paneBack);
    painter.setPen(m_colour);
    painter.drawText(rect().adjusted(6, 0, 0, 0), Qt::AlignLeft | Qt::AlignVCenter | Qt::TextSingleLine,
                     m_text);
    if (!m_isHeading) return;
    const int left = 12 + painter.fontMetrics().horizontalAdvance(m_text);
    QColor line = m_colour;
    line.setAlphaF(0.35F);
    painter.setPen(line);
    painter.drawLine(left, height() / 2, width() - 6, height() / 2);
}

PaneButton::PaneButton(QWidget* parent) : QAbstractButton(parent) {
    setCheckable(true);
    setFocusPolicy(Qt::StrongFocus);
    QFont font = paneFont();
    font.setBold(true);
    setFont(font);
}

QSize PaneButton::sizeHint() const {
    return {fontMetrics().horizontalAdvance(text()) + 16, fontMetrics().height() + 6};
}

void PaneButton::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    QColor back = toQColor(isChecked() ? pressedColour : restingColour);
    if (isDown()) back = back.darker(120);
    if (underMouse() && !isDown()) back = back.lighter(108);
    painter.fillRect(rect(), back);
    painter.setPen(back.darker(170));
    painter.drawRect(rect().adjusted(0, 0, -1, -1));
    painter.setPen(buttonText);
    painter.drawText(rect(), Qt::AlignCenter, text());
    if (hasFocus()) {
        painter.setPen(QPen(buttonText, 1, Qt::DotLine));
        painter.drawRect(rect().adjusted(2, 2, -3, -3));
    }
}

PaneBar::PaneBar(QWidget* parent) : QAbstractButton(parent) {
    setFocusPolicy(Qt::StrongFocus);
    setOpen(true);
}

void PaneBar::setOpen(bool isOpen) {
    m_isOpen = isOpen;
    const QString what =
        isOpen ? QStringLiteral("Close the information pane") : QStringLiteral("Open the information pane");
    setAccessibleName(what);
    setToolTip(what);
    update();
}

void PaneBar::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    QLinearGradient gradient(0, 0, width(), 0);
    const QColor base = underMouse() ? QColor(0x1E, 0x5A, 0x66) : QColor(0x16, 0x3C, 0x48);
    gradient.setColorAt(0, base.lighter(125));
    gradient.setColorAt(1, isDown() ? base : base.darker(125));
    painter.fillRect(rect(), gradient);
    const double middle = height() / 2.0;
    const double tip = m_isOpen ? width() - 4.0 : 4.0;
    const double foot = m_isOpen ? 4.0 : width() - 4.0;
    painter.setPen(QPen(QColor(0xC0, 0xFF, 0xFF), 1.6, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    for (const double at : {middle - 14, middle, middle + 14}) {
        painter.drawPolyline(QPolygonF({{foot, at - 5}, {tip, at}, {foot, at + 5}}));
    }
    painter.setRenderHint(QPainter::Antialiasing, false);
    if (hasFocus()) drawFocus(painter, rect());
}

}  // namespace vantrace
