// The window `IridiumFlares`.
#pragma once

#include <functional>
#include <memory>
#include <string>

#include "core/ui/form_window.h"
#include "flares/iridium_flares_form.h"

namespace Ui {
class IridiumFlares;
}

namespace vantrace {

class RowModel;
struct ProgramState;
struct Services;

class IridiumFlares final : public FormWindow {
  public:
    /// All outlive this.
    IridiumFlares(WindowHost& host, ProgramState& state, Services& services);
    ~IridiumFlares() override;
    IridiumFlares(const IridiumFlares&) = delete;
    IridiumFlares& operator=(const IridiumFlares&) = delete;

  private:
    void formLoad() override;
    void formUnload() override;
    void writeControls() override;

    void layHintOverList();
    void writeRows();
    void fitContents();

    ProgramState& m_state;
    Services& m_services;
    IridiumFlaresForm m_form;
    std::unique_ptr<Ui::IridiumFlares> m_ui;
    RowModel* m_rows;
    /// The hint for a list that has never been filled.
    std::string m_whatToDo;
    bool m_isFitted = false;
};

}  // namespace vantrace
