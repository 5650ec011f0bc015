// The window `PassPrediction`.
#pragma once

#include <functional>
#include <memory>

#include "core/ui/form_window.h"
#include "core/ui/list_controls.h"
#include "passes/pass_prediction_form.h"
#include "passes/pass_windows.h"

namespace Ui {
class PassPrediction;
}

namespace vantrace {

class RowModel;
struct ProgramState;
struct Services;

class PassPrediction final : public FormWindow, public PassPredictionWindow {
  public:
    /// All outlive this.
    PassPrediction(WindowHost& host, ProgramState& state, Services& services);
    ~PassPrediction() override;
    PassPrediction(const PassPrediction&) = delete;
    PassPrediction& operator=(const PassPrediction&) = delete;

    void addPreset(std::string_view name) override;
    WindowCorner corner() const override;

  private:
    void formLoad() override;
    void formUnload() override;
    void readControls() override;
    void writeControls() override;

    void connectChoices();
    void connectResults();
    void connectJobs();
    void writeResults();
    void fitContents();
    void setColumnWidths();

    ProgramState& m_state;
    Services& m_services;
    PassPredictionForm m_form;
    std::unique_ptr<Ui::PassPrediction> m_ui;
    RowModel* m_rows;
    std::unique_ptr<DropDownControl> m_groups;
    std::unique_ptr<DropDownControl> m_satellites;
    std::unique_ptr<DropDownControl> m_favourites;
    std::unique_ptr<NameListControl> m_presets;

    /// What of the form is on the controls.
    unsigned m_shownResults = 0;
    unsigned m_shownActivations = 0;
    bool m_isFitted = false;
};

}  // namespace vantrace
