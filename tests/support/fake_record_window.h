// The window `Record` without a screen: what the map tells it.
#pragma once

#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "core/program_state.h"
#include "core/window_registry.h"
#include "station/pass_recording.h"

namespace vantrace {

/// What happened to the window, in order: "show", "start NAME", "stop".
struct RecordScript {
    std::vector<std::string> events;
    int made = 0;
    std::function<void()> onStart;
};

class FakeRecordWindow final : public RegisteredWindow, public RecordWindow {
  public:
    FakeRecordWindow(RecordScript& script, ProgramState& state) : m_script(script), m_state(state) {
        ++m_script.made;
    }

    void StartRecording(std::string_view name) override {
        m_script.events.push_back("start " + std::string(name));
        m_state.RecordingSat = name;
        if (m_script.onStart) m_script.onStart();
    }
    void StopRecording() override {
        m_script.events.emplace_back("stop");
        m_state.Recording = false;
    }

    void load() override {}
    void show() override {
        m_isShown = true;
        m_script.events.emplace_back("show");
    }
    void hide() override { m_isShown = false; }
    bool isOnScreen() const override { return m_isShown; }

  private:
    RecordScript& m_script;
    ProgramState& m_state;
    bool m_isShown = false;
};

/// Script and state outlive the registry's use of the window.
inline void registerRecord(WindowRegistry& registry, RecordScript& script, ProgramState& state) {
    registry.registerWindow("Record", [&] { return std::make_unique<FakeRecordWindow>(script, state); });
}

}  // namespace vantrace
