#include "core/ui/scrolled_contents.h"

#include <QLayout>
#include <QList>
#include <QScrollArea>
#include <algorithm>

namespace vantrace {

void makeTransparent(QScrollArea& area) {
    area.viewport()->setAutoFillBackground(false);
    area.widget()->setAutoFillBackground(false);
}

void growToContents(QWidget& window, const QScrollArea& area) {
    // The sizes of a sheet are known only to controls that have taken it up, which they'd do when they are
    // shown.
    const QList<QWidget*> controls = area.widget()->findChildren<QWidget*>();
    for (QWidget* const control : controls) control->ensurePolished();
    // Controls and layouts inside others remember the sizes that they had before.
    for (QWidget* const control : controls) control->updateGeometry();
    for (QLayout* const inner : area.widget()->findChildren<QLayout*>()) inner->invalidate();
    area.widget()->layout()->activate();
    QSize size = window.size().expandedTo(area.widget()->sizeHint());
    // Texts that are wrapped tell their height by the width that they get.
    const QLayout& layout = *area.widget()->layout();
    if (layout.hasHeightForWidth()) {
        size.setHeight(std::max(size.height(), layout.totalHeightForWidth(size.width())));
    }
    window.resize(size);
}

}  // namespace vantrace
