// Ports that only note what was asked of them.
#pragma once

#include <functional>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

#include "platform/dialogs.h"
#include "platform/event_queue.h"
#include "platform/speech.h"

namespace vantrace {

class RecordingDialogs final : public Dialogs {
  public:
    void message(std::string_view text) override { messages.emplace_back(text); }

    std::vector<std::string> messages;
};

class RecordingSpeech final : public Speech {
  public:
    void speak(std::string_view text) override {
        if (fails) throw std::runtime_error("no voice");
        texts.emplace_back(text);
    }

    std::vector<std::string> texts;
    bool fails = false;
};

class CountingEventQueue final : public EventQueue {
  public:
    void yield() override {
        ++yields;
        if (onYield) onYield();
    }

    int yields = 0;
    /// Runs inside every yield, as a timer's handler would.
    std::function<void()> onYield;
};

}  // namespace vantrace
