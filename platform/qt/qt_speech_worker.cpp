#include "platform/qt/qt_speech_worker.h"

#include <QStringList>
#include <utility>

#include "platform/qt/qt_speech_daemon.h"
#include "platform/qt/qt_speech_pace.h"
#include "platform/qt/qt_speech_voices.h"

namespace vantrace {

namespace {

using namespace std::chrono_literals;

/// A daemon that is alive answers in a few milliseconds.
constexpr auto daemonPatience = 1s;
/// An engine that is missing is not looked for more often.
constexpr auto lookAgainAfter = 30s;

/// Empty where there is none.
QString bestEngine() {
    const QStringList engines = QTextToSpeech::availableEngines();
    const QString usual = QStringLiteral("speechd");
    if (engines.contains(usual)) return usual;
    for (const QString& engine : engines) {
        // The engine that only pretends, for tests.
        if (engine != QStringLiteral("mock")) return engine;
    }
    return {};
}

bool wouldHang(const QString& engine) {
    return engine == QStringLiteral("speechd") && isSpeechDaemonHanging(speechDaemonSocket(), daemonPatience);
}

SpeechFacts factsOf(const QString& engine, const QList<QVoice>& voices) {
    const QString maker = makerOf(voices.first());
    SpeechFacts facts;
    facts.engine = engine.toStdString();
    facts.maker = (maker.isEmpty() ? engine : maker).toStdString();
    for (const QVoice& voice : voices) facts.voices.push_back(voice.name().toStdString());
    return facts;
}

}  // namespace

SpeechWorker::SpeechWorker(std::shared_ptr<SpeechDesk> desk) : m_desk(std::move(desk)) {
    m_overdue.setSingleShot(true);
    connect(&m_overdue, &QTimer::timeout, this, [this] {
        m_isSecondTry = true;
        restart();
    });
}

void SpeechWorker::wake() {
    if (!m_engine) {
        const auto now = std::chrono::steady_clock::now();
        if (!m_lookedAt || now - *m_lookedAt >= lookAgainAfter) {
            lookForEngine();
            m_lookedAt = std::chrono::steady_clock::now();
        }
        if (!m_engine) m_desk->tellAbsent();
    }
    if (m_engine && !m_text) sayNext();
}

void SpeechWorker::lookForEngine() {
    const QString name = bestEngine();
    if (name.isEmpty() || wouldHang(name)) return;
    m_engine = std::make_unique<QTextToSpeech>(name);
    if (m_engine->state() != QTextToSpeech::Error) m_voices = voicesInOrder(*m_engine);
    if (m_voices.isEmpty()) {
        dropEngine();
        return;
    }
    // Queued, because the engine also tells from inside `say`, where it can't be dropped.
    const auto number = m_engineNumber;
    connect(
        m_engine.get(), &QTextToSpeech::stateChanged, this,
        [this, number](QTextToSpeech::State state) {
            if (number == m_engineNumber) noteState(state);
        },
        Qt::QueuedConnection);
    m_desk->tellFound(factsOf(name, m_voices));
}

void SpeechWorker::sayNext() {
    m_text = m_desk->take();
    if (!m_text) return;
    takeSettings();
    m_hasBegun = false;
    m_overdue.start(longestSpeech(*m_text, m_wordsPerMinute));
    m_engine->say(QString::fromStdString(*m_text));
}

void SpeechWorker::takeSettings() {
    if (const int voice = m_desk->voice(); voice != m_voice) {
        const QVoice& wanted = m_voices[voice - 1];
        // The daemon takes its rules for figures and signs from the locale, and the voice alone doesn't set
        // it.
        if (m_engine->locale() != wanted.locale()) m_engine->setLocale(wanted.locale());
        m_engine->setVoice(wanted);
        m_voice = voice;
    }
    if (const int speed = m_desk->speed(); speed != m_wordsPerMinute) {
        m_engine->setRate(speechRate(speed));
        m_wordsPerMinute = speed;
    }
}

void SpeechWorker::noteState(QTextToSpeech::State state) {
    if (state == QTextToSpeech::Speaking) m_hasBegun = true;
    if (state == QTextToSpeech::Ready && m_hasBegun) finishText();
    if (state == QTextToSpeech::Error) restart();
}

void SpeechWorker::finishText() {
    m_overdue.stop();
    m_text.reset();
    m_hasBegun = false;
    m_isSecondTry = false;
    sayNext();
}

void SpeechWorker::restart() {
    std::optional<std::string> text = std::move(m_text);
    dropEngine();
    if (text && !m_isSecondTry) {
        m_desk->putBack(std::move(*text));
        m_isSecondTry = true;
    } else {
        m_isSecondTry = false;
    }
    wake();
}

void SpeechWorker::dropEngine() {
    m_overdue.stop();
    m_text.reset();
    m_hasBegun = false;
    ++m_engineNumber;
    m_wordsPerMinute = 0;
    m_voice = 0;
    m_voices.clear();
    m_engine.reset();
}

}  // namespace vantrace
