// Drop-downs and lists of passes/lists.h on the controls of Qt.
#pragma once

#include <QString>
#include <cstddef>

#include "passes/lists.h"

class QComboBox;
class QListView;
class QStringListModel;

namespace vantrace {

/// A drop-down whose text may be none of its entries: then the text stands in the place of one.
class DropDownControl {
  public:
    /// The box outlives this.
    explicit DropDownControl(QComboBox& box) : m_box(box) {}

    void read(DropDown& form) const;
    /// Adds what has come to the list; an emptied one is written anew.
    void write(const DropDown& form);

  private:
    QComboBox& m_box;
    unsigned m_emptyings = 0;
    std::string m_text;
};

class ListBoxControl {
  public:
    /// The view outlives this.
    explicit ListBoxControl(QListView& view);

    void read(ListBox& form) const;
    void write(const ListBox& form);

  private:
    QListView& m_view;
    QStringListModel* m_model;
    unsigned m_changes = 0;
};

}  // namespace vantrace
