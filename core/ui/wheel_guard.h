// The wheel of the mouse over a control that the user only scrolls past.
#pragma once

#include <QObject>

class QWidget;

namespace vantrace {

/// Lets the wheel change a control only while that has the focus, which the wheel itself no longer gives it.
/// Otherwise what stands around the control scrolls.
class WheelGuard final : public QObject {
  public:
    /// Belongs to the control and ends with it.
    explicit WheelGuard(QWidget& control);

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    QWidget& m_control;
};

}  // namespace vantrace
