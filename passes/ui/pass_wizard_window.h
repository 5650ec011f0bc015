// The window `PassWizard`: the editor of a prediction job.
#pragma once

#include <functional>
#include <memory>

#include "core/ui/form_window.h"
#include "core/ui/list_controls.h"
#include "passes/pass_wizard.h"

namespace Ui {
class PassWizard;
}

namespace vantrace {

struct ProgramState;
struct Services;

class PassWizard final : public FormWindow, public PassWizardWindow {
  public:
    /// All outlive this.
    PassWizard(WindowHost& host, ProgramState& state, Services& services);
    ~PassWizard() override;
    PassWizard(const PassWizard&) = delete;
    PassWizard& operator=(const PassWizard&) = delete;

    void showJob(const JobToEdit& job) override;

  private:
    void formLoad() override;
    bool formQueryUnload() override;
    void formUnload() override;
    void readControls() override;
    void writeControls() override;
    void showEvent(QShowEvent* event) override;
    /// The frame's button asks as `BUTcancel` does.
    void closeEvent(QCloseEvent* event) override;

    ProgramState& m_state;
    Services& m_services;
    PassWizardForm m_form;
    std::unique_ptr<Ui::PassWizard> m_ui;
    std::unique_ptr<DropDownControl> m_groups;
    std::unique_ptr<DropDownControl> m_satellites;
    std::unique_ptr<NameListControl> m_list;
    bool m_isFitted = false;
    bool m_isPlaced = false;
};

}  // namespace vantrace
