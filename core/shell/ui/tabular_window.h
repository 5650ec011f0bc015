// The window `Tabular`: the live table.
#pragma once

#include <memory>

#include "core/shell/tabular.h"
#include "core/ui/form_window.h"

namespace Ui {
class Tabular;
}

namespace vantrace {

class RowModel;
struct ProgramState;
struct Services;

class Tabular final : public FormWindow {
  public:
    /// All outlive this.
    Tabular(WindowHost& host, ProgramState& state, Services& services);
    ~Tabular() override;
    Tabular(const Tabular&) = delete;
    Tabular& operator=(const Tabular&) = delete;

  private:
    void formLoad() override;
    void formUnload() override;
    void writeControls() override;
    void writeRows();
    void showEvent(QShowEvent* event) override;

    ProgramState& m_state;
    Services& m_services;
    TabularForm m_form;
    std::unique_ptr<Ui::Tabular> m_ui;
    RowModel* m_rows;
    QTimer* m_timer1;
    bool m_hasColumnWidths = false;
};

}  // namespace vantrace
