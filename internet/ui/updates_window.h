// The window `frmCONUpdates`: what is fetched from the Internet on request.
#pragma once

#include <functional>
#include <memory>

#include "core/ui/form_window.h"
#include "internet/updates_form.h"

class QPushButton;

namespace Ui {
class frmCONUpdates;
}

namespace vantrace {

class frmCONUpdates final : public FormWindow {
  public:
    /// All outlive this.
    frmCONUpdates(WindowHost& host, ProgramState& state, Services& services);
    ~frmCONUpdates() override;
    frmCONUpdates(const frmCONUpdates&) = delete;
    frmCONUpdates& operator=(const frmCONUpdates&) = delete;

  private:
    void formLoad() override;
    void formUnload() override;
    void readControls() override;
    void writeControls() override;

    void onJob(QPushButton* button, const std::function<void()>& handler);
    void writeStatus();

    ProgramState& m_state;
    Services& m_services;
    UpdatesForm m_form;
    std::unique_ptr<Ui::frmCONUpdates> m_ui;
    bool m_isFitted = false;
};

}  // namespace vantrace
