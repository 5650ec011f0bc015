#include "core/ui/list_controls.h"

#include <QComboBox>
#include <QItemSelectionModel>
#include <QSignalBlocker>
#include <QStringListModel>
#include <algorithm>
#include <utility>

#include "core/ui/choice_list.h"
#include "core/ui/tick_list_model.h"
#include "core/ui/wheel_guard.h"

namespace vantrace {

namespace {

int selectedRow(const ChoiceList& view) {
    const QModelIndexList rows = view.selectionModel()->selectedRows();
    return rows.isEmpty() ? noEntry : rows.first().row();
}

}  // namespace

NameListControl::NameListControl(ChoiceList& view) : m_view(view), m_model(new QStringListModel(&view)) {
    m_view.setModel(m_model);
}

void NameListControl::read(NameList& form) const {
    // What the program selected and the list doesn't show yet holds.
    if (m_changes == form.changes) form.selected = selectedRow(m_view);
}

void NameListControl::write(const NameList& form) {
    if (std::exchange(m_changes, form.changes) == form.changes) return;
    QStringList texts;
    for (const std::string& text : form.list) texts << QString::fromStdString(text);
    const QStringList before = m_model->stringList();
    m_model->setStringList(texts);
    m_view.selectQuietly(form.selected);
    // One that was added is seen.
    if (texts.size() == before.size() + 1 && texts.first(before.size()) == before) m_view.scrollToBottom();
}

TickListControl::TickListControl(ChoiceList& view, std::function<void(std::size_t row, bool isTicked)> onTick)
    : m_view(view), m_model(new TickListModel(&view)) {
    m_model->onTick = std::move(onTick);
    m_view.setModel(m_model);
}

void TickListControl::read(TickList& form) const {
    if (m_changes == form.changes) form.selected = selectedRow(m_view);
}

void TickListControl::write(const TickList& form) {
    const bool hasNewTicks = std::exchange(m_tickChanges, form.tickChanges) != form.tickChanges;
    if (std::exchange(m_changes, form.changes) != form.changes) {
        const bool hasNewRow = m_model->isOneLessThan(form);
        m_model->reset(form);
        m_view.selectQuietly(form.selected);
        if (hasNewRow) m_view.scrollToBottom();
    } else if (hasNewTicks) {
        m_model->update(form);
    }
}

DropDownControl::DropDownControl(QComboBox& box) : m_box(box) {
    new WheelGuard(box);
}

void DropDownControl::read(DropDown& form) const {
    const int index = m_box.currentIndex();
    // What the program changed and the box doesn't show yet holds.
    if (index < 0 || index == form.selected || m_emptyings != form.emptyings) return;
    // Not the box's own text: names come from files, and their bytes needn't survive the box.
    if (static_cast<std::size_t>(index) < form.list.size()) form.select(static_cast<std::size_t>(index));
}

void DropDownControl::write(const DropDown& form) {
    const QSignalBlocker quiet(m_box);
    const auto size = static_cast<int>(form.list.size());
    if (std::exchange(m_emptyings, form.emptyings) != form.emptyings || m_box.count() > size) m_box.clear();
    // Without one the first entry that is added would be chosen.
    if (m_box.placeholderText().isEmpty()) m_box.setPlaceholderText(QString::fromStdString(form.text));
    for (int i = m_box.count(); i < size; ++i) {
        m_box.addItem(QString::fromStdString(form.list[static_cast<std::size_t>(i)]));
    }
    int index = form.selected;
    if (index == noEntry && !form.text.empty()) {
        const auto entry = std::ranges::find(form.list, form.text);
        if (entry != form.list.end()) index = static_cast<int>(entry - form.list.begin());
    }
    if (index == noEntry) m_box.setPlaceholderText(QString::fromStdString(form.text));
    if (m_box.currentIndex() != index) m_box.setCurrentIndex(index);
}

}  // namespace vantrace
