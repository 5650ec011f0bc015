// The window `frmCONGroups`: groups and favourites.
#pragma once

#include <memory>

#include "core/ui/form_window.h"
#include "dialogs/groups_settings.h"

namespace Ui {
class frmCONGroups;
}

namespace vantrace {

class NameListControl;
class DropDownControl;
class TickListControl;

class frmCONGroups final : public FormWindow {
  public:
    /// All outlive this.
    frmCONGroups(WindowHost& host, ProgramState& state, Services& services);
    ~frmCONGroups() override;
    frmCONGroups(const frmCONGroups&) = delete;
    frmCONGroups& operator=(const frmCONGroups&) = delete;

  private:
    using Handler = void (*)(GroupsForm&, ProgramState&, Services&);

    void formLoad() override;
    void formUnload() override;
    void readControls() override;
    void writeControls() override;

    void connectLists();
    void run(Handler handler);

    ProgramState& m_state;
    Services& m_services;
    GroupsForm m_form;
    std::unique_ptr<Ui::frmCONGroups> m_ui;
    std::unique_ptr<NameListControl> m_groups;
    std::unique_ptr<TickListControl> m_satellites;
    std::unique_ptr<DropDownControl> m_publicFiles;
    /// What `UserIsChecking` was before a key.
    bool m_wasChecking = false;
    bool m_isFitted = false;
};

}  // namespace vantrace
