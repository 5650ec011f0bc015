#include "passes/ui/list_controls.h"

#include <QComboBox>
#include <QItemSelectionModel>
#include <QListView>
#include <QStringListModel>
#include <algorithm>

namespace vantrace {

void DropDownControl::read(DropDown& form) const {
    const int index = m_box.currentIndex();
    // Not the box's own text: names come from files, and their bytes needn't survive the box.
    if (index >= 0 && static_cast<std::size_t>(index) < form.list.size()) {
        form.text = form.list[static_cast<std::size_t>(index)];
    }
}

void DropDownControl::write(const DropDown& form) {
    const bool isEmptied = form.emptyings != m_emptyings;
    m_emptyings = form.emptyings;
    if (isEmptied) m_box.clear();
    // Without one the first entry that is added would be chosen.
    if (m_box.placeholderText().isEmpty()) m_box.setPlaceholderText(QString::fromStdString(form.text));
    for (auto i = static_cast<std::size_t>(m_box.count()); i < form.list.size(); ++i) {
        m_box.addItem(QString::fromStdString(form.list[i]));
    }
    const int index = m_box.currentIndex();
    const bool isShown = index >= 0 ? form.list.at(static_cast<std::size_t>(index)) == form.text
                                    : !isEmptied && form.text == m_text;
    m_text = form.text;
    if (isShown) return;
    const auto entry = std::ranges::find(form.list, form.text);
    if (entry == form.list.end()) m_box.setPlaceholderText(QString::fromStdString(form.text));
    m_box.setCurrentIndex(entry == form.list.end() ? -1 : static_cast<int>(entry - form.list.begin()));
}

ListBoxControl::ListBoxControl(QListView& view) : m_view(view), m_model(new QStringListModel(&view)) {
    m_view.setModel(m_model);
}

void ListBoxControl::read(ListBox& form) const {
    const QModelIndexList rows = m_view.selectionModel()->selectedRows();
    form.selected = rows.isEmpty() ? ListBox::none : rows.first().row();
}

void ListBoxControl::write(const ListBox& form) {
    if (m_changes == form.changes) return;
    m_changes = form.changes;
    QStringList texts;
    for (const std::string& text : form.list) texts << QString::fromStdString(text);
    m_model->setStringList(texts);
    if (form.isSelected()) m_view.setCurrentIndex(m_model->index(form.selected));
}

}  // namespace vantrace
