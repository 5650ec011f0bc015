// Speaks through the desktop's engine, for scripts/try-speech: each argument is one thing to do, in order.
//   voices        tells how many there are, the present one, the maker of the first and all names
//   speed=180     words per minute
//   voice=2       the voice of that number
//   say=text      speaks
//   wait=3.5      lets the program's event loop run for so many seconds
//   about=title   shows the window about the engine, tells what it says and closes it
#include <QApplication>
#include <QEventLoop>
#include <QMessageBox>
#include <QTimer>
#include <chrono>
#include <cstdlib>
#include <iostream>
#include <string>

#include "platform/qt/qt_speech.h"

namespace vantrace {
namespace {

class Stopwatch {
  public:
    explicit Stopwatch(std::string what) : m_what(std::move(what)) {}
    ~Stopwatch() {
        const auto span = std::chrono::steady_clock::now() - m_start;
        const auto whole = std::chrono::duration_cast<std::chrono::milliseconds>(span);
        std::cout << m_what << " took " << whole.count() << " ms" << std::endl;
    }
    Stopwatch(const Stopwatch&) = delete;
    Stopwatch& operator=(const Stopwatch&) = delete;

  private:
    const std::string m_what;
    const std::chrono::steady_clock::time_point m_start = std::chrono::steady_clock::now();
};

void tellVoices(Speech& speech) {
    const std::vector<std::string> voices = speech.voices();
    std::cout << "voices: " << voices.size() << "\nvoice: " << speech.voice() << "\nmaker: " << speech.maker()
              << '\n';
    for (std::size_t i = 0; i < voices.size(); ++i) {
        std::cout << "voice " << i + 1 << ": " << voices[i] << '\n';
    }
}

void wait(double seconds) {
    QEventLoop loop;
    QTimer::singleShot(static_cast<int>(seconds * 1000), &loop, &QEventLoop::quit);
    loop.exec();
}

void showAbout(Speech& speech, const std::string& title) {
    QTimer::singleShot(500, [] {
        auto* const box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
        if (!box) return;
        std::cout << "window: " << box->windowTitle().toStdString() << '\n'
                  << box->text().toStdString() << '\n';
        box->accept();
    });
    speech.showAbout(title);
}

bool doOne(Speech& speech, const std::string& name, const std::string& value) {
    if (name == "voices") {
        tellVoices(speech);
    } else if (name == "speed") {
        speech.setSpeed(std::atoi(value.c_str()));
    } else if (name == "voice") {
        speech.setVoice(std::atoi(value.c_str()));
    } else if (name == "say") {
        speech.speak(value);
    } else if (name == "wait") {
        wait(std::atof(value.c_str()));
    } else if (name == "about") {
        showAbout(speech, value);
    } else {
        return false;
    }
    return true;
}

}  // namespace
}  // namespace vantrace

int main(int count, char** arguments) {
    QApplication application(count, arguments);
    auto speech = std::make_unique<vantrace::QtSpeech>();
    for (int i = 1; i < count; ++i) {
        const std::string argument = arguments[i];
        const std::size_t mark = argument.find('=');
        const std::string name = argument.substr(0, mark);
        const std::string value = mark == std::string::npos ? "" : argument.substr(mark + 1);
        const vantrace::Stopwatch watch(name);
        if (!vantrace::doOne(*speech, name, value)) {
            std::cerr << "unknown: " << argument << '\n';
            return 2;
        }
    }
    const vantrace::Stopwatch watch("end");
    speech.reset();
}
