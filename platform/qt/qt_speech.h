// The voice of the desktop's speech engine.
#pragma once

#include <memory>

#include "platform/speech.h"

namespace vantrace {

/// Needs a QApplication, and one of them at a time is enough. The engine is looked for at the first use of
/// any operation, on a thread of its own, so that neither a slow daemon nor a missing one holds anybody up:
/// what is spoken is handed over and forgotten. Where there is no engine, no daemon or no voice, all is
/// silent; it is looked for again now and then when something is to be spoken.
///
/// What asks about the engine (`voice`, `voices`, `maker`, `showAbout`) waits for it once, at most 6 seconds,
/// and only as long as it is still being looked for. Speed and voice hold from the next text that is begun.
/// The end waits for the thread at most 1 second; one that a hanging daemon holds is left to itself.
class QtSpeech final : public Speech {
  public:
    QtSpeech();
    ~QtSpeech() override;
    QtSpeech(const QtSpeech&) = delete;
    QtSpeech& operator=(const QtSpeech&) = delete;

    void speak(std::string_view text) override;
    void setSpeed(int wordsPerMinute) override;
    void setVoice(int number) override;
    int voice() override;
    /// Those that speak English, or where there are none all of the user's language; plain voices first, then
    /// their variants ("English (America)+whisper").
    std::vector<std::string> voices() override;
    std::string maker() override;
    /// Throws std::runtime_error where there is no QApplication to show it.
    void showAbout(std::string_view title) override;

  private:
    class Engine;
    std::unique_ptr<Engine> m_engine;
};

}  // namespace vantrace
