// The lists of dialogs/lists.h on the controls of Qt.
#pragma once

#include <functional>
#include <string>

#include "dialogs/lists.h"

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

/// The list of a drop-down is written once; a text that is no entry of it stands in the place of one.
class PickListControl {
  public:
    explicit PickListControl(QComboBox& box);

    void read(PickList& form) const;
    void write(const PickList& form);

  private:
    QComboBox& m_box;
};

}  // namespace vantrace
