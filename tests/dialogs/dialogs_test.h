// What the tests of the settings dialogs share.
#pragma once

#include <deque>

#include "core/program_state.h"
#include "tests/support/fake_window.h"
#include "tests/support/test_services.h"
#include "tests/support/testing.h"

namespace vantrace {

class DialogsTest : public ::testing::Test {
  protected:
    explicit DialogsTest(const MachineFormat& format = {}) : fakes(format) {
        state.AppPath = fakes.folder.appPath();
    }

    /// A window of that name is on the screen from here on.
    WindowScript& showFake(const std::string& name) {
        WindowScript& script = fakes.fakeWindow(name);
        fakes.windows.show(name);
        return script;
    }
    const Texts& messages() const { return fakes.dialogs.messages; }
    std::string stored(const char* key) { return fakes.settings.get(key).value_or("(none)"); }
    /// The answers to the next questions for a text, in their order; after them the user cancels.
    void type(std::deque<std::optional<std::string>> answers) {
        m_answers = std::move(answers);
        fakes.dialogs.onMessage = [this] {
            // Messages that ask for nothing take an answer only where they are questions: those have titles.
            if (fakes.dialogs.titles.back().empty()) return;
            fakes.dialogs.typed.reset();
            if (m_answers.empty()) return;
            fakes.dialogs.typed = m_answers.front();
            m_answers.pop_front();
        };
    }

  private:
    std::deque<std::optional<std::string>> m_answers;

  protected:
    TestServices fakes;
    Services& services = fakes.services;
    ProgramState state;
};

}  // namespace vantrace
