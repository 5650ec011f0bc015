// Lists and drop-downs (core/lists.h) on the controls of Qt.
#pragma once

#include <functional>
#include <string>

#include "core/lists.h"

class QComboBox;
class QStringListModel;

namespace vantrace {

class ChoiceList;
class TickListModel;

/// All controls outlive what stands here.
class NameListControl {
  public:
    explicit NameListControl(ChoiceList& view);

    void read(NameList& form) const;
    void write(const NameList& form);

  private:
    ChoiceList& m_view;
    QStringListModel* m_model;
    unsigned m_changes = 0;
};

class TickListControl {
  public:
    /// `onTick` is told of each tick that the user changes.
    TickListControl(ChoiceList& view, std::function<void(std::size_t row, bool isTicked)> onTick);

    void read(TickList& form) const;
    void write(const TickList& form);

  private:
    ChoiceList& m_view;
    TickListModel* m_model;
    unsigned m_changes = 0;
    unsigned m_tickChanges = 0;
};

/// A text that is no entry of the list stands in the place of one.
class DropDownControl {
  public:
    explicit DropDownControl(QComboBox& box);

    void read(DropDown& form) const;
    /// Adds what has come to the list; an emptied one is written anew. Nobody is told of it.
    void write(const DropDown& form);

  private:
    QComboBox& m_box;
    unsigned m_emptyings = 0;
};

}  // namespace vantrace
