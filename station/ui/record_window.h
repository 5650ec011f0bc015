// The window `Record`: the recorder of a pass.
#pragma once

#include <memory>

#include "core/ui/form_window.h"
#include "station/pass_recording.h"
#include "station/record.h"

namespace Ui {
class Record;
}

namespace vantrace {

struct ProgramState;
struct Services;

class Record final : public FormWindow, public RecordWindow {
  public:
    /// All outlive this.
    Record(WindowHost& host, ProgramState& state, Services& services);
    ~Record() override;
    Record(const Record&) = delete;
    Record& operator=(const Record&) = delete;

    void StartRecording(std::string_view name) override;
    void StopRecording() override;

  private:
    void formLoad() override;
    void formUnload() override;
    void writeControls() override;

    ProgramState& m_state;
    Services& m_services;
    RecordForm m_form;
    std::unique_ptr<Ui::Record> m_ui;
    QTimer* m_timer1;
};

}  // namespace vantrace
