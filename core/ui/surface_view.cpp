#include "core/ui/surface_view.h"

#include <QMouseEvent>
#include <QPainter>

#include "platform/surface.h"

namespace vantrace {

SurfaceView::SurfaceView(QWidget* parent) : QWidget(parent) {
    // Each picture covers all of it.
    setAttribute(Qt::WA_OpaquePaintEvent);
}

void SurfaceView::show(const Surface& surface) {
    const QImage shared(reinterpret_cast<const uchar*>(surface.words().data()), surface.deviceWidth(),
                        surface.deviceHeight(), QImage::Format_RGB32);
    m_picture = shared.copy();
    update();
}

void SurfaceView::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    if (m_picture.isNull()) {
        painter.fillRect(rect(), Qt::black);
        return;
    }
    painter.drawImage(QRectF(rect()), m_picture);
}

void SurfaceView::mousePressEvent(QMouseEvent* event) {
    if (onPressed) onPressed(event->button(), event->position());
}

}  // namespace vantrace
