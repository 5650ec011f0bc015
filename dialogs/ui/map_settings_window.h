// The window `frmCON2D`: the settings of the map and the panorama.
#pragma once

#include <functional>
#include <memory>

#include "core/ui/form_window.h"
#include "dialogs/map_settings.h"

namespace Ui {
class frmCON2D;
}

namespace vantrace {

class DropDownControl;

class frmCON2D final : public FormWindow {
  public:
    /// All outlive this.
    frmCON2D(WindowHost& host, ProgramState& state, Services& services);
    ~frmCON2D() override;
    frmCON2D(const frmCON2D&) = delete;
    frmCON2D& operator=(const frmCON2D&) = delete;

  private:
    void formLoad() override;
    void readControls() override;
    void writeControls() override;

    ProgramState& m_state;
    Services& m_services;
    MapSettingsForm m_form;
    std::unique_ptr<Ui::frmCON2D> m_ui;
    std::unique_ptr<DropDownControl> m_maps;
    std::unique_ptr<DropDownControl> m_horizons;
    bool m_isFitted = false;
};

}  // namespace vantrace
