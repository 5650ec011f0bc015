// The window `Horizon`: the panorama of the sky.
#pragma once

#include <memory>

#include "core/ui/form_window.h"
#include "horizon/horizon_view.h"

namespace Ui {
class Horizon;
}

namespace vantrace {

class Horizon final : public FormWindow {
  public:
    /// All outlive this.
    Horizon(WindowHost& host, ProgramState& state, Services& services);
    ~Horizon() override;
    Horizon(const Horizon&) = delete;
    Horizon& operator=(const Horizon&) = delete;

  private:
    void formLoad() override;
    void formUnload() override;
    void writeControls() override;
    void readControls() override;
    void resizeEvent(QResizeEvent* event) override;
    void connectMenus();

    HorizonForm m_form;
    HorizonSurfaces m_surfaces;
    HorizonView m_view;
    std::unique_ptr<Ui::Horizon> m_ui;
    QTimer* m_timer1Sec;
    QTimer* m_timer5sec;
    /// A frame soon after the window was opened or got another size.
    QTimer* m_refresh;

    /// What of the form is on the controls.
    unsigned m_shownPlacements = 0;
    unsigned m_shownFrames = 0;
};

}  // namespace vantrace
