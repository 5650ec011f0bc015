// The window `frmTracker`: the antenna and radio tracker.
#pragma once

#include <memory>

#include "core/ui/form_window.h"
#include "station/tracker.h"

namespace Ui {
class frmTracker;
}

namespace vantrace {

struct ProgramState;
struct Services;

class frmTracker final : public FormWindow {
  public:
    /// All outlive this.
    frmTracker(WindowHost& host, ProgramState& state, Services& services);
    ~frmTracker() override;
    frmTracker(const frmTracker&) = delete;
    frmTracker& operator=(const frmTracker&) = delete;

  private:
    void formLoad() override;
    void formUnload() override;
    void readControls() override;
    void writeControls() override;

    ProgramState& m_state;
    Services& m_services;
    TrackerForm m_form;
    std::unique_ptr<Ui::frmTracker> m_ui;
    QTimer* m_timer1;
};

}  // namespace vantrace
