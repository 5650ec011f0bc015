// What the windows' thread and the speaking thread hand each other.
#pragma once

#include <chrono>
#include <condition_variable>
#include <deque>
#include <mutex>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace vantrace {

/// What there is to know about an engine that speaks.
struct SpeechFacts {
    std::string engine;
    std::string maker;
    /// That of number 1 first; never empty for an engine that speaks.
    std::vector<std::string> voices;
    /// The number of the present voice, 0 where there is none.
    int voice = 0;
};

/// Every operation may be called from any thread; only `facts` can wait.
class SpeechDesk {
  public:
    /// So many texts wait; a further one takes the place of the oldest. Enough for the positions of 500
    /// favourites and a warning for each.
    static constexpr std::size_t waitingTexts = 1000;

    explicit SpeechDesk(std::chrono::milliseconds patience) : m_patience(patience) {}

    // For whoever wants to be heard.

    /// Control characters become blanks, and a blank text is nothing to say.
    void put(std::string_view text);
    void setSpeed(int wordsPerMinute);
    /// A number that no voice has is ignored; before the voices are known it is a wish.
    void setVoice(int number);
    /// Empty where there is no engine. Waits until it has been looked for, but once only and no longer than
    /// the patience given.
    SpeechFacts facts();

    // For the thread that speaks.

    /// Whose voice is the one wished for, where it has that many.
    void tellFound(SpeechFacts facts);
    /// Drops what waits.
    void tellAbsent();
    /// The text that waits longest.
    std::optional<std::string> take();
    /// Puts a text before all others.
    void putBack(std::string text);
    int speed() const;
    /// The number of one of the voices told.
    int voice() const;

  private:
    void waitForAnswer(std::unique_lock<std::mutex>& lock);

    const std::chrono::milliseconds m_patience;
    mutable std::mutex m_mutex;
    std::condition_variable m_answered;
    bool m_isAnswered = false;
    bool m_hasWaited = false;
    SpeechFacts m_facts;
    std::deque<std::string> m_texts;
    int m_wordsPerMinute = 180;
    int m_wishedVoice = 1;
};

}  // namespace vantrace
