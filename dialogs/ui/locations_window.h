// The window `frmCONlocations`: the other places.
#pragma once

#include <memory>

#include "core/ui/form_window.h"
#include "dialogs/locations_settings.h"

namespace Ui {
class frmCONlocations;
}

namespace vantrace {

class TickListControl;

class frmCONlocations final : public FormWindow {
  public:
    /// All outlive this.
    frmCONlocations(WindowHost& host, ProgramState& state, Services& services);
    ~frmCONlocations() override;
    frmCONlocations(const frmCONlocations&) = delete;
    frmCONlocations& operator=(const frmCONlocations&) = delete;

  private:
    void formLoad() override;
    void formUnload() override;
    void readControls() override;
    void writeControls() override;

    ProgramState& m_state;
    Services& m_services;
    LocationsForm m_form;
    std::unique_ptr<Ui::frmCONlocations> m_ui;
    std::unique_ptr<TickListControl> m_locations;
};

}  // namespace vantrace
