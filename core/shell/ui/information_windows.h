// The windows `frmSplash` and `About`.
#pragma once

#include <memory>

#include "core/shell/information.h"
#include "core/ui/form_window.h"

namespace Ui {
class About;
class frmSplash;
}  // namespace Ui

namespace vantrace {

class frmSplash final : public FormWindow {
  public:
    /// All outlive this.
    frmSplash(WindowHost& host, Services& services);
    ~frmSplash() override;
    frmSplash(const frmSplash&) = delete;
    frmSplash& operator=(const frmSplash&) = delete;

  private:
    void formLoad() override;
    void formActivate() override;
    void writeControls() override;

    Services& m_services;
    SplashForm m_form;
    std::unique_ptr<Ui::frmSplash> m_ui;
};

class About final : public FormWindow {
  public:
    /// All outlive this.
    About(WindowHost& host, Services& services);
    ~About() override;
    About(const About&) = delete;
    About& operator=(const About&) = delete;

  private:
    void formLoad() override;
    void writeControls() override;

    Services& m_services;
    AboutForm m_form;
    std::unique_ptr<Ui::About> m_ui;
};

}  // namespace vantrace
