// What the information pane is made of: it has a look of its own, dark at all times, so that the colours of
// its lines can be read.
#pragma once

#include <QAbstractButton>
#include <QColor>
#include <QWidget>

#include "platform/colour.h"

namespace vantrace {

/// What the pane's lines stand on.
class PaneBack final : public QWidget {
  public:
    explicit PaneBack(QWidget* parent = nullptr) : QWidget(parent) {}

  protected:
    void paintEvent(QPaintEvent* event) override;
};

/// A line of the pane, in small print; a longer one is cut at the pane's edge and told whole by its tip.
class PaneLine final : public QWidget {
  public:
    explicit PaneLine(QWidget* parent = nullptr);

    void setColour(Colour colour);
    /// A bold line with a rule behind it.
    void setHeading(const QString& text);
    void setText(const QString& text);

  protected:
    void paintEvent(QPaintEvent* event) override;

  private:
    QString m_text;
    QColor m_colour = Qt::white;
    bool m_isHeading = false;
};

/// A button of a pair, of which one is pressed: bright, the other one darker.
class PaneButton final : public QAbstractButton {
  public:
    explicit PaneButton(QWidget* parent = nullptr);

    QSize sizeHint() const override;

  protected:
    void paintEvent(QPaintEvent* event) override;
};

/// The bar at the pane's edge, with an arrow to where it goes.
class PaneBar final : public QAbstractButton {
  public:
    explicit PaneBar(QWidget* parent = nullptr);

    void setOpen(bool isOpen);

  protected:
    void paintEvent(QPaintEvent* event) override;

  private:
    bool m_isOpen = true;
};

/// The face of the pane's lines.
QFont paneFont();

}  // namespace vantrace
