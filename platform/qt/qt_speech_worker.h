// The one that speaks: what of the voice lives on a thread of its own.
#pragma once

#include <QList>
#include <QObject>
#include <QTextToSpeech>
#include <QTimer>
#include <QVoice>
#include <chrono>
#include <memory>
#include <optional>
#include <string>

#include "platform/qt/qt_speech_desk.h"

namespace vantrace {

/// Lives, and is destroyed, on a thread with an event loop; the engine may hold that thread up as long as it
/// likes. Says the texts of the desk one after the other, since the engine cuts off what it is saying when it
/// is given more.
class SpeechWorker final : public QObject {
  public:
    explicit SpeechWorker(std::shared_ptr<SpeechDesk> desk);
    ~SpeechWorker() override = default;

    /// Looks for the engine where there is none, and says the next text where it is silent.
    void wake();

  private:
    void lookForEngine();
    void sayNext();
    void takeSettings();
    void noteState(QTextToSpeech::State state);
    void finishText();
    /// The engine failed: the text gets one more chance with a new one.
    void restart();
    void dropEngine();

    const std::shared_ptr<SpeechDesk> m_desk;
    std::unique_ptr<QTextToSpeech> m_engine;
    QList<QVoice> m_voices;
    std::optional<std::chrono::steady_clock::time_point> m_lookedAt;
    int m_wordsPerMinute = 0;
    int m_voice = 0;

    /// The text that is being said.
    std::optional<std::string> m_text;
    bool m_hasBegun = false;
    bool m_isSecondTry = false;
    /// Rings where the engine never told the end of a text.
    QTimer m_overdue{this};
    /// Tells late news of an engine that is gone from those of the present one.
    int m_engineNumber = 0;
};

}  // namespace vantrace
