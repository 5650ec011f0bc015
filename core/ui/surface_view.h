// Shows a Surface.
#pragma once

#include <QImage>
#include <QWidget>
#include <functional>

namespace vantrace {

class Surface;

/// Shows the picture that it was given last, which stays as it was while the next one is being painted. Until
/// that one is there a picture of another size is stretched.
class SurfaceView final : public QWidget {
  public:
    explicit SurfaceView(QWidget* parent = nullptr);

    void show(const Surface& surface);
    using QWidget::show;

    /// Called when a button of the mouse has gone down, with the place in pixels from the top left corner.
    std::function<void(Qt::MouseButton button, QPointF place)> onPressed;

  protected:
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;

  private:
    QImage m_picture;
};

}  // namespace vantrace
