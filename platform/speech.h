// The voice.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace vantrace {

/// Voices are counted from 1. Every operation may throw a std::exception where there is no voice; whoever
/// calls logs or ignores it. None waits for the end of what is spoken.
class Speech {
  public:
    virtual ~Speech() = default;

    /// Speaks a text, after those that are still waiting.
    virtual void speak(std::string_view text) = 0;
    /// Words per minute, 180 being usual. Taken to the nearest speed that the engine has.
    virtual void setSpeed(int wordsPerMinute) = 0;
    /// A number that no voice has leaves the voice as it is.
    virtual void setVoice(int number) = 0;
    /// The number of the present voice, 0 where there is none.
    virtual int voice() = 0;
    /// The names of the voices, that of number 1 first; empty where there are none.
    virtual std::vector<std::string> voices() = 0;
    /// Who made voice 1; empty where that isn't known.
    virtual std::string maker() = 0;
    /// Shows a window about the engine, under that title, and waits for its end.
    virtual void showAbout(std::string_view title) = 0;
};

/// For programs that have no voice.
class SilentSpeech final : public Speech {
  public:
    void speak(std::string_view) override {}
    void setSpeed(int) override {}
    void setVoice(int) override {}
    int voice() override { return 0; }
    std::vector<std::string> voices() override { return {}; }
    std::string maker() override { return {}; }
    void showAbout(std::string_view) override {}
};

}  // namespace vantrace
