#include "core/ui/choice_list.h"

#include <QItemSelectionModel>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPointer>

namespace vantrace {

namespace {

void tell(const std::function<void()>& listener) {
    if (listener) listener();
}

}  // namespace

void ChoiceList::selectQuietly(int row) {
    m_isQuiet = true;
    const QModelIndex index = model()->index(row, 0);
    if (index.isValid()) {
        setCurrentIndex(index);
    } else {
        selectionModel()->clear();
    }
    m_isQuiet = false;
}

void ChoiceList::currentChanged(const QModelIndex& current, const QModelIndex& previous) {
    QListView::currentChanged(current, previous);
    // The focus makes an entry the current one without selecting it.
    if (m_isQuiet || !selectionModel()->isSelected(current)) return;
    m_isTold = true;
    choose();
}

void ChoiceList::mousePressEvent(QMouseEvent* event) {
    m_isTold = false;
    const QPointer<ChoiceList> self(this);
    tell(onMouseDown);
    if (!self) return;
    // A press on a tick would leave the entry unselected otherwise.
    const QModelIndex pressed = indexAt(event->position().toPoint());
    if (event->button() == Qt::LeftButton && pressed.isValid()) setCurrentIndex(pressed);
    if (self) QListView::mousePressEvent(event);
}

/// The second press of two quick ones.
void ChoiceList::mouseDoubleClickEvent(QMouseEvent* event) {
    m_isTold = true;
    tell(onMouseDown);
    QListView::mouseDoubleClickEvent(event);
}

void ChoiceList::mouseReleaseEvent(QMouseEvent* event) {
    const QPointer<ChoiceList> self(this);
    QListView::mouseReleaseEvent(event);
    if (!self) return;
    tell(onMouseUp);
    const QModelIndex index = indexAt(event->position().toPoint());
    if (!m_isTold && index.isValid() && selectionModel()->isSelected(index)) choose();
    m_isTold = false;
}

void ChoiceList::keyPressEvent(QKeyEvent* event) {
    const bool isTickKey = event->key() == Qt::Key_Space || event->key() == Qt::Key_Select;
    if (isTickKey) tell(onTickKeyDown);
    QListView::keyPressEvent(event);
    if (isTickKey) tell(onTickKeyUp);
}

void ChoiceList::choose() {
    tell(onChosen);
}

}  // namespace vantrace
