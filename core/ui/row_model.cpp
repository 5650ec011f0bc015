#include "core/ui/row_model.h"

#include <algorithm>
#include <utility>

namespace vantrace {

QColor toQColor(Colour colour) {
    constexpr Colour byte = 0xFF;
    return {static_cast<int>(colour & byte), static_cast<int>((colour >> 8) & byte),
            static_cast<int>((colour >> 16) & byte)};
}

RowModel::RowModel(QStringList headings, int firstNumberColumn, int lastNumberColumn, QObject* parent)
    : QAbstractTableModel(parent),
      m_headings(std::move(headings)),
      m_firstNumberColumn(firstNumberColumn),
      m_lastNumberColumn(lastNumberColumn) {}

void RowModel::setRows(const std::vector<Row>& rows) {
    if (rows.size() < m_rows.size()) {
        beginRemoveRows({}, static_cast<int>(rows.size()), static_cast<int>(m_rows.size()) - 1);
        m_rows.resize(rows.size());
        endRemoveRows();
    }
    for (std::size_t i = 0; i < m_rows.size(); ++i) update(i, rows[i]);
    if (rows.size() > m_rows.size()) {
        beginInsertRows({}, static_cast<int>(m_rows.size()), static_cast<int>(rows.size()) - 1);
        for (std::size_t i = m_rows.size(); i < rows.size(); ++i) {
            m_rows.push_back({{rows[i].columns.begin(), rows[i].columns.end()}, rows[i].colour});
        }
        endInsertRows();
    }
}

int RowModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(m_rows.size());
}

int RowModel::columnCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(m_headings.size());
}

QVariant RowModel::data(const QModelIndex& index, int role) const {
    if (!checkIndex(index, CheckIndexOption::IndexIsValid)) return {};
    const Held& row = m_rows.at(static_cast<std::size_t>(index.row()));
    if (role == Qt::DisplayRole) {
        return QString::fromStdString(row.columns.at(static_cast<std::size_t>(index.column())));
    }
    if (role == Qt::ForegroundRole && row.colour) return toQColor(*row.colour);
    if (role == Qt::TextAlignmentRole && isNumber(index.column())) {
        return QVariant::fromValue(Qt::Alignment(Qt::AlignRight | Qt::AlignVCenter));
    }
    return {};
}

QVariant RowModel::headerData(int section, Qt::Orientation orientation, int role) const {
    if (orientation != Qt::Horizontal || section < 0 || section >= columnCount()) return {};
    if (role == Qt::DisplayRole) return m_headings.at(section);
    if (role == Qt::TextAlignmentRole && isNumber(section)) {
        return QVariant::fromValue(Qt::Alignment(Qt::AlignRight | Qt::AlignVCenter));
    }
    return {};
}

void RowModel::update(std::size_t row, const Row& fresh) {
    Held& held = m_rows[row];
    if (held.colour == fresh.colour && std::ranges::equal(held.columns, fresh.columns)) return;
    held.columns.assign(fresh.columns.begin(), fresh.columns.end());
    held.colour = fresh.colour;
    const int place = static_cast<int>(row);
    emit dataChanged(index(place, 0), index(place, columnCount() - 1));
}

}  // namespace vantrace
