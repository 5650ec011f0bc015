// The window `Main`: status panel and menu.
#pragma once

#include <memory>

#include "core/shell/main_form.h"
#include "core/ui/form_window.h"

class QAction;

namespace Ui {
class Main;
}

namespace vantrace {

struct ProgramState;
struct Services;

class Main final : public FormWindow {
  public:
    /// All outlive this.
    Main(WindowHost& host, ProgramState& state, Services& services);
    ~Main() override;
    Main(const Main&) = delete;
    Main& operator=(const Main&) = delete;

  private:
    void formLoad() override;
    void formActivate() override;
    bool formQueryUnload() override;
    void formUnload() override;
    void writeControls() override;
    void connectMenu();

    ProgramState& m_state;
    Services& m_services;
    MainForm m_form;
    std::unique_ptr<Ui::Main> m_ui;
    QTimer* m_timer1;
};

}  // namespace vantrace
