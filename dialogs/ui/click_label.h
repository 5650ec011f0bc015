// A label that can be clicked.
#pragma once

#include <QLabel>
#include <functional>

namespace vantrace {

/// With the left button of the mouse, or with Enter or the space bar while it has the focus.
class ClickLabel final : public QLabel {
  public:
    using QLabel::QLabel;

    std::function<void()> onClick;

  protected:
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

  private:
    void click();

    bool m_isPressed = false;
};

}  // namespace vantrace
