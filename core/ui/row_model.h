// Rows of texts, each with a colour if need be, for the lists of the windows.
#pragma once

#include <QAbstractTableModel>
#include <QColor>
#include <QStringList>
#include <optional>
#include <span>
#include <string>
#include <vector>

#include "core/skin.h"

namespace vantrace {

QColor toQColor(Colour colour);

/// A list as a window's struct has it: `columns` texts a row. Only what has changed is painted again.
class RowModel final : public QAbstractTableModel {
  public:
    struct Row {
        std::span<const std::string> columns;
        /// Of the texts; without one they have the list's own.
        std::optional<Colour> colour;
    };

    /// `firstNumberColumn` and those after it, up to `lastNumberColumn`, are set to the right.
    RowModel(QStringList headings, int firstNumberColumn, int lastNumberColumn, QObject* parent);

    void setRows(const std::vector<Row>& rows);

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

  private:
    struct Held {
        std::vector<std::string> columns;
        std::optional<Colour> colour;
    };

    bool isNumber(int column) const { return column >= m_firstNumberColumn && column <= m_lastNumberColumn; }
    void update(std::size_t row, const Row& fresh);

    QStringList m_headings;
    int m_firstNumberColumn;
    int m_lastNumberColumn;
    std::vector<Held> m_rows;
};

}  // namespace vantrace
