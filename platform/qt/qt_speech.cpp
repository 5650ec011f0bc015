#include "platform/qt/qt_speech.h"

#include <signal.h>

#include <QApplication>
#include <QGridLayout>
#include <QMessageBox>
#include <QPointer>
#include <atomic>
#include <chrono>
#include <stdexcept>

#include "platform/qt/qt_speech_desk.h"
#include "platform/qt/qt_speech_worker.h"
#include "platform/qt/window_below.h"
#include "platform/qt/worker_thread.h"

namespace vantrace {

namespace {

using namespace std::chrono_literals;

/// The list of eSpeak NG's 13000 voices takes some 3 seconds.
constexpr auto engineSearch = 6s;

/// A daemon that dies while it is written to must not end the program.
void ignoreBrokenPipes() {
    sigset_t brokenPipe;
    sigemptyset(&brokenPipe);
    sigaddset(&brokenPipe, SIGPIPE);
    pthread_sigmask(SIG_BLOCK, &brokenPipe, nullptr);
}

QString aboutText(const SpeechFacts& facts) {
    if (facts.voices.empty()) return QStringLiteral("No speech engine was found.");
    const std::string& name = facts.voices[static_cast<std::size_t>(facts.voice - 1)];
    return QStringLiteral("Speech engine: %1\nMade by: %2\nVoice: %3\nNumber of voices: %4")
        .arg(QString::fromStdString(facts.engine), QString::fromStdString(facts.maker),
             QString::fromStdString(name), QString::number(facts.voices.size()));
}

}  // namespace

/// The thread that speaks, and the way to it.
class QtSpeech::Engine {
  public:
    /// After anything is laid on the desk, and before it is asked about the engine.
    void wake();
    SpeechDesk& desk() { return *m_desk; }

  private:
    // Shared with the thread, which may live on for a while.
    const std::shared_ptr<SpeechDesk> m_desk = std::make_shared<SpeechDesk>(engineSearch);
    const std::shared_ptr<std::atomic<bool>> m_isCalled = std::make_shared<std::atomic<bool>>(false);
    WorkerThread<SpeechWorker> m_thread;
};

void QtSpeech::Engine::wake() {
    if (!QCoreApplication::instance()) {
        m_desk->tellAbsent();
        return;
    }
    if (!m_thread.isStarted()) {
        m_thread.start("speech", std::make_unique<SpeechWorker>(m_desk), ignoreBrokenPipes);
    }
    // One call at a time waits for a thread that is held up, however much is spoken meanwhile.
    if (m_isCalled->exchange(true)) return;
    m_thread.post([isCalled = m_isCalled](SpeechWorker& worker) {
        *isCalled = false;
        worker.wake();
    });
}

QtSpeech::QtSpeech() : m_engine(std::make_unique<Engine>()) {}

QtSpeech::~QtSpeech() = default;

void QtSpeech::speak(std::string_view text) {
    m_engine->desk().put(text);
    m_engine->wake();
}

void QtSpeech::setSpeed(int wordsPerMinute) {
    m_engine->desk().setSpeed(wordsPerMinute);
    m_engine->wake();
}

void QtSpeech::setVoice(int number) {
    m_engine->desk().setVoice(number);
    m_engine->wake();
}

int QtSpeech::voice() {
    m_engine->wake();
    return m_engine->desk().facts().voice;
}

std::vector<std::string> QtSpeech::voices() {
    m_engine->wake();
    return m_engine->desk().facts().voices;
}

std::string QtSpeech::maker() {
    m_engine->wake();
    return m_engine->desk().facts().maker;
}

void QtSpeech::showAbout(std::string_view title) {
    if (!qobject_cast<QApplication*>(QCoreApplication::instance())) {
        throw std::runtime_error("there is no desktop to show a window on");
    }
    m_engine->wake();
    // Held so, because the window that it lies over may go and take it along.
    const QPointer<QMessageBox> box = new QMessageBox(windowBelow());
    box->setIcon(QMessageBox::Information);
    box->setWindowTitle(QString::fromUtf8(title.data(), static_cast<qsizetype>(title.size())));
    box->setTextFormat(Qt::PlainText);
    box->setText(aboutText(m_engine->desk().facts()));
    // Wide enough for its title, which the frame would cut.
    const int titleWidth =
        box->fontMetrics().horizontalAdvance(box->windowTitle() + QStringLiteral("MMMMMMMM"));
    if (auto* const grid = qobject_cast<QGridLayout*>(box->layout())) {
        grid->addItem(new QSpacerItem(titleWidth, 0), grid->rowCount(), 0, 1, grid->columnCount());
    }
    box->exec();
    delete box.data();
}

}  // namespace vantrace
