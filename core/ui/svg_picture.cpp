#include "core/ui/svg_picture.h"

#include <QLabel>
#include <QPainter>
#include <QPixmap>
#include <QSvgRenderer>

// In a static library the pictures are left out of the program unless something asks for them; the macro must
// stand outside of any namespace.
static void takeInPictures() {
    Q_INIT_RESOURCE(pictures);
}

namespace vantrace {

void providePictures() {
    takeInPictures();
}

void showPicture(QLabel& label, const QString& resource) {
    QSvgRenderer picture(resource);
    const QSize size = label.minimumSize().isEmpty() ? picture.defaultSize() : label.minimumSize();
    const qreal scale = label.devicePixelRatioF();
    QPixmap pixmap((QSizeF(size) * scale).toSize());
    pixmap.fill(Qt::transparent);
    QPainter painter(&pixmap);
    picture.render(&painter);
    painter.end();
    pixmap.setDevicePixelRatio(scale);
    label.setPixmap(pixmap);
}

}  // namespace vantrace
