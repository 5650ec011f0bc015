// A list that tells what the user did to it.
#pragma once

#include <QListView>
#include <functional>

namespace vantrace {

/// Entries are chosen with the mouse and with the keyboard; the mouse chooses the selected one as well. A
/// click on an entry's tick chooses the entry first.
class ChoiceList final : public QListView {
  public:
    using QListView::QListView;

    /// The user chose an entry, which is selected by now.
    std::function<void()> onChosen;
    /// The mouse was pressed over the list; it was released, and what that does to the list is done.
    std::function<void()> onMouseDown;
    std::function<void()> onMouseUp;
    /// Before and after a key changes a tick.
    std::function<void()> onTickKeyDown;
    std::function<void()> onTickKeyUp;

    /// Selects a row, or none, without telling.
    void selectQuietly(int row);

  protected:
    void currentChanged(const QModelIndex& current, const QModelIndex& previous) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

  private:
    void choose();

    bool m_isQuiet = false;
    /// Whether the press of the mouse has told of its entry.
    bool m_isTold = false;
};

}  // namespace vantrace
