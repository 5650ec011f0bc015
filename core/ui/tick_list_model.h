// Names with a tick each, for a list.
#pragma once

#include <QAbstractListModel>
#include <functional>
#include <vector>

#include "core/lists.h"

namespace vantrace {

/// Shows what a window's struct holds. A tick of the user is told and not taken: it comes back with the
/// struct.
class TickListModel final : public QAbstractListModel {
  public:
    using QAbstractListModel::QAbstractListModel;

    std::function<void(std::size_t row, bool isTicked)> onTick;

    /// Everything anew.
    void reset(const TickList& form);
    /// Whether the form has the names of the model and one more at the end.
    bool isOneLessThan(const TickList& form) const;
    /// The ticks alone.
    void update(const TickList& form);

    int rowCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    bool setData(const QModelIndex& index, const QVariant& value, int role) override;
    Qt::ItemFlags flags(const QModelIndex& index) const override;

  private:
    struct Row {
        QString text;
        bool isTicked = false;
    };

    std::vector<Row> m_rows;
};

}  // namespace vantrace
