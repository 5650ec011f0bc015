// The base of all windows: the way between the window system, the registry and the window's own struct.
#pragma once

#include <QLabel>
#include <QMainWindow>
#include <functional>
#include <string>

#include "core/timer_state.h"
#include "core/ui/window_host.h"
#include "core/window_registry.h"

class QAbstractButton;
class QAction;
class QComboBox;
class QLineEdit;
class QSlider;
class QTimer;

namespace vantrace {

struct Skin;

/// A window holds a plain struct of what it shows. After each handler and before each yield the struct goes
/// to the controls (`writeControls`); before each handler and after each yield what the user changed comes
/// back (`readControls`). The handlers themselves are routines without Qt.
class FormWindow : public QMainWindow, public RegisteredWindow {
  public:
    void load() final;
    void activate() final;
    bool queryUnload() final;
    void retire() final;
    void unload() final;
    void show() final;
    void hide() final;
    bool isOnScreen() const final;
    bool hasFocus() const final;
    void beforeYield() final;
    void afterYield() final;

  protected:
    /// `name` is the window's given name. The host outlives this.
    FormWindow(WindowHost& host, std::string name);

    virtual void formLoad() {}
    virtual void formActivate() {}
    virtual bool formQueryUnload() { return true; }
    virtual void formUnload() {}
    virtual void writeControls() = 0;
    virtual void readControls() {}

    /// Runs a handler under the host's guard, with the controls read before and written after it.
    void handle(const std::function<void()>& handler);
    void handleTick(const std::function<void()>& tick);
    /// What the user does with a control runs a handler.
    void onClick(QAbstractButton* button, const std::function<void()>& handler);
    void onPick(QComboBox* box, const std::function<void()>& handler);
    void onSlide(QSlider* slider, const std::function<void()>& handler);
    void onEdit(QLineEdit* field, const std::function<void()>& handler);
    void onChosen(QAction* entry, const std::function<void()>& handler);
    /// All entries of a menu, by their names.
    void onMenu(const QWidget& menu, const std::function<void(const std::string& entry)>& handler);
    /// A timer that does what the struct says, and whose ticks are handlers. A tick inside its own tick is
    /// left out.
    QTimer* addTimer(const QString& name, const std::function<void()>& tick);
    static void apply(QTimer& timer, const TimerState& state);
    /// Gives the window the skin's look, or the desktop's own.
    void apply(const Skin& skin);
    /// For windows beside `Main`: Escape closes them.
    void closeOnEscape();
    /// Text that came from files is no markup.
    static void setText(QLabel& label, const std::string& text);
    /// The same for a text that may be wider than its place: the whole of it is the tip.
    static void setLongText(QLabel& label, const std::string& text);

    void closeEvent(QCloseEvent* event) override;
    bool event(QEvent* event) override;

  private:
    void run(const std::function<void()>& handler);
    /// Nothing opens larger than the screen.
    void fitToScreen();

    WindowHost& m_host;
    std::string m_name;
    /// Handlers of this window on the stack.
    int m_running = 0;
    bool m_isRetired = false;
    bool m_wasShown = false;
    bool m_hasSkin = false;
    bool m_isStyled = false;
};

}  // namespace vantrace
