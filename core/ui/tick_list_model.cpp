#include "core/ui/tick_list_model.h"

namespace vantrace {

void TickListModel::reset(const TickList& form) {
    beginResetModel();
    m_rows.clear();
    m_rows.reserve(form.list.size());
    for (const TickList::Entry& entry : form.list) {
        m_rows.push_back({QString::fromStdString(entry.text), entry.isTicked});
    }
    endResetModel();
}

bool TickListModel::isOneLessThan(const TickList& form) const {
    if (form.list.size() != m_rows.size() + 1) return false;
    for (std::size_t row = 0; row < m_rows.size(); ++row) {
        if (m_rows[row].text != QString::fromStdString(form.list[row].text)) return false;
    }
    return true;
}

void TickListModel::update(const TickList& form) {
    for (std::size_t row = 0; row < m_rows.size() && row < form.list.size(); ++row) {
        if (m_rows[row].isTicked == form.list[row].isTicked) continue;
        m_rows[row].isTicked = form.list[row].isTicked;
        const QModelIndex changed = index(static_cast<int>(row));
        emit dataChanged(changed, changed, {Qt::CheckStateRole});
    }
}

int TickListModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(m_rows.size());
}

QVariant TickListModel::data(const QModelIndex& index, int role) const {
    if (!index.isValid()) return {};
    const Row& row = m_rows.at(static_cast<std::size_t>(index.row()));
    if (role == Qt::DisplayRole) return row.text;
    if (role == Qt::CheckStateRole) return static_cast<int>(row.isTicked ? Qt::Checked : Qt::Unchecked);
    return {};
}

bool TickListModel::setData(const QModelIndex& index, const QVariant& value, int role) {
    if (role != Qt::CheckStateRole || !index.isValid() || !onTick) return false;
    onTick(static_cast<std::size_t>(index.row()), value.toInt() == Qt::Checked);
    return true;
}

Qt::ItemFlags TickListModel::flags(const QModelIndex& index) const {
    return QAbstractListModel::flags(index) | Qt::ItemIsUserCheckable | Qt::ItemNeverHasChildren;
}

}  // namespace vantrace
