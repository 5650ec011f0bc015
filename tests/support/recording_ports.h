// Ports that only note what was asked of them.
#pragma once

#include <filesystem>
#include <functional>
#include <optional>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

#include "platform/desktop.h"
#include "platform/dialogs.h"
#include "platform/display_mode.h"
#include "platform/event_queue.h"
#include "platform/process.h"
#include "platform/speech.h"

namespace vantrace {

/// Answers from what a test has put there; without an answer the user cancels.
class RecordingDialogs final : public Dialogs {
  public:
    void message(std::string_view text, std::string_view title = {}) override {
        messages.emplace_back(text);
        titles.emplace_back(title);
        if (onMessage) onMessage();
    }
    bool question(std::string_view text, std::string_view title = {}) override {
        message(text, title);
        return saysYes;
    }
    std::optional<std::string> textInput(std::string_view prompt, std::string_view title,
                                         std::string_view proposal) override {
        message(prompt, title);
        proposals.emplace_back(proposal);
        return typed;
    }
    std::optional<std::filesystem::path> fileToOpen(const FileRequest& request) override {
        return answer(request);
    }
    std::optional<std::filesystem::path> fileToSave(const FileRequest& request) override {
        return answer(request);
    }
    std::optional<std::filesystem::path> folder(const FileRequest& request) override {
        return answer(request);
    }

    /// Texts of messages, questions and prompts, with their titles.
    std::vector<std::string> messages;
    std::vector<std::string> titles;
    std::vector<std::string> proposals;
    std::vector<FileRequest> requests;
    bool saysYes = false;
    std::optional<std::string> typed;
    std::optional<std::filesystem::path> chosen;
    /// Runs while a message is on screen.
    std::function<void()> onMessage;

  private:
    std::optional<std::filesystem::path> answer(const FileRequest& request) {
        requests.push_back(request);
        return chosen;
    }
};

class RecordingSpeech final : public Speech {
  public:
    void speak(std::string_view text) override {
        needVoice();
        texts.emplace_back(text);
    }
    void setSpeed(int wordsPerMinute) override {
        needVoice();
        speed = wordsPerMinute;
    }
    void setVoice(int number) override {
        needVoice();
        voiceNumber = number;
    }
    int voice() override { return voiceNumber; }
    std::vector<std::string> voices() override { return voiceNames; }
    std::string maker() override {
        needVoice();
        return "Voicemakers";
    }
    void showAbout(std::string_view title) override { abouts.emplace_back(title); }

    std::vector<std::string> texts;
    std::vector<std::string> abouts;
    std::vector<std::string> voiceNames{"Anna", "Bert"};
    int speed = 0;
    int voiceNumber = 0;
    bool fails = false;

  private:
    void needVoice() const {
        if (fails) throw std::runtime_error("no voice");
    }
};

class RecordingDesktop final : public Desktop {
  public:
    void openAddress(std::string_view address) override { opened.emplace_back(address); }
    void openTextFile(const std::filesystem::path& file) override { opened.push_back(file.string()); }
    void startProgram(const std::filesystem::path& program) override {
        if (!failure.empty()) throw DesktopError(failure);
        started.push_back(program.string());
    }
    bool hasSystemInformation() const override { return hasTool; }
    void startSystemInformation() override { opened.emplace_back("system information"); }
    void startTimeSettings() override {
        if (!failure.empty()) throw DesktopError(failure);
        opened.emplace_back("time settings");
    }

    std::vector<std::string> opened;
    std::vector<std::string> started;
    /// Why a program can't be started.
    std::string failure;
    bool hasTool = true;
};

/// A screen that can be switched.
class RecordingDisplayMode final : public DisplayMode {
  public:
    std::vector<DisplayModeValues> modes() const override { return available; }
    void change(const DisplayModeValues& values) override { changes.push_back(values); }

    std::vector<DisplayModeValues> available{{1024, 768, 24, 60}, {1920, 1080, 32, 75}};
    std::vector<DisplayModeValues> changes;
};

/// Only notes what would have happened.
class RecordingProcess final : public Process {
  public:
    void startAgain() override {
        if (!failure.empty()) throw std::runtime_error(failure);
        ++starts;
    }
    void end(int status) override { ends.push_back(status); }

    int starts = 0;
    std::vector<int> ends;
    /// Why it can't be started.
    std::string failure;
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
