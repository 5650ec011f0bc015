// The window `frmCONmain`: the main settings.
#pragma once

#include <functional>
#include <memory>

#include "core/ui/form_window.h"
#include "dialogs/main_settings.h"

namespace Ui {
class frmCONmain;
}

namespace vantrace {

class DropDownControl;

class frmCONmain final : public FormWindow {
  public:
    /// All outlive this.
    frmCONmain(WindowHost& host, ProgramState& state, Services& services);
    ~frmCONmain() override;
    frmCONmain(const frmCONmain&) = delete;
    frmCONmain& operator=(const frmCONmain&) = delete;

  private:
    void formLoad() override;
    bool formQueryUnload() override;
    void formUnload() override;
    void readControls() override;
    void writeControls() override;

    void connectPlace();
    void connectOthers();
    /// The boxes of the coordinates, and what the form holds of them.
    void forEachField(const std::function<void(QLineEdit&, std::string&)>& action);
    void showCoordinates();

    ProgramState& m_state;
    Services& m_services;
    MainSettingsForm m_form;
    std::unique_ptr<Ui::frmCONmain> m_ui;
    std::unique_ptr<DropDownControl> m_voices;
    bool m_isFitted = false;
};

}  // namespace vantrace
