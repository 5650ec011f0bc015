// Records through the desktop's sound input, for scripts/try-record: each argument is one thing to do, in
// order.
//   start=NAME    the countdown of a pass, with the button that ends it, and one tick: the capture starts
//   stop          the end of the pass
//   unload        the window goes
//   open record save=FILE close
//                 single commands to the sound card
//   wait=3.5      lets the program's event loop run for so many seconds
//   busy=3.5      holds it up for so many seconds
#include <QCoreApplication>
#include <QEventLoop>
#include <QTimer>
#include <chrono>
#include <cstdlib>
#include <iostream>
#include <string>
#include <thread>

#include "core/program_state.h"
#include "platform/qt/qt_sound_capture.h"
#include "station/record.h"
#include "tests/support/recording_ports.h"
#include "tests/support/test_services.h"

namespace vantrace {
namespace {

/// The recorder over the machine's sound input, and all else as in the tests.
class Recorder {
  public:
    Recorder()
        : m_services{m_fakes.clock,       m_fakes.events,      m_fakes.settings,
                     m_fakes.speech,      m_fakes.dialogs,     m_fakes.desktop,
                     m_fakes.displayMode, m_fakes.process,     m_capture,
                     m_fakes.pictures,    m_fakes.textPainter, m_fakes.printer,
                     m_fakes.fetcher,     m_fakes.timeClient,  m_fakes.linePublisher,
                     m_fakes.errorLog,    m_fakes.windows,     {}} {
        m_fakes.clock.setUtc({2026, 8, 21, 12, 5, 0}, 0);
    }

    bool run(const std::string& name, const std::string& value) {
        if (name == "start") {
            m_state.Recording = true;
            StartRecording(m_form, m_state, m_services, value);
            BUTstartstop_Click(m_form, m_state, m_services);
            Timer1_Timer(m_form, m_state, m_services);
        } else if (name == "stop") {
            StopRecording(m_form, m_state, m_services);
        } else if (name == "unload") {
            Form_Unload(m_form, m_state, m_services);
        } else if (name == "wait") {
            QEventLoop loop;
            QTimer::singleShot(milliseconds(value), Qt::PreciseTimer, &loop, &QEventLoop::quit);
            loop.exec();
        } else if (name == "busy") {
            std::this_thread::sleep_for(std::chrono::milliseconds(milliseconds(value)));
        } else {
            return command(name, value);
        }
        tellMessages();
        return true;
    }

  private:
    static int milliseconds(const std::string& seconds) {
        return static_cast<int>(std::atof(seconds.c_str()) * 1000);
    }
    bool command(const std::string& name, const std::string& value) {
        bool succeeded = false;
        if (name == "open") {
            succeeded = m_capture.open();
        } else if (name == "record") {
            succeeded = m_capture.record();
        } else if (name == "save") {
            succeeded = m_capture.save(value);
        } else if (name == "close") {
            succeeded = m_capture.close();
        } else {
            return false;
        }
        std::cout << name << (succeeded ? " succeeded" : " failed") << std::endl;
        return true;
    }
    void tellMessages() {
        for (const std::string& message : m_fakes.dialogs.messages) {
            std::cout << "message: " << message << std::endl;
        }
        m_fakes.dialogs.messages.clear();
    }

    TestServices m_fakes;
    QtSoundCapture m_capture;
    Services m_services;
    ProgramState m_state;
    RecordForm m_form;
};

void tellTime(const std::string& what, std::chrono::steady_clock::time_point start) {
    const auto span = std::chrono::steady_clock::now() - start;
    const auto whole = std::chrono::duration_cast<std::chrono::milliseconds>(span);
    std::cout << what << " took " << whole.count() << " ms" << std::endl;
}

}  // namespace
}  // namespace vantrace

int main(int count, char** arguments) {
    const QCoreApplication application(count, arguments);
    auto recorder = std::make_unique<vantrace::Recorder>();
    for (int i = 1; i < count; ++i) {
        const std::string argument = arguments[i];
        const std::size_t mark = argument.find('=');
        const std::string name = argument.substr(0, mark);
        const std::string value = mark == std::string::npos ? "" : argument.substr(mark + 1);
        const auto start = std::chrono::steady_clock::now();
        if (!recorder->run(name, value)) {
            std::cerr << "unknown: " << argument << '\n';
            return 2;
        }
        vantrace::tellTime(name, start);
    }
    const auto start = std::chrono::steady_clock::now();
    recorder.reset();
    vantrace::tellTime("end", start);
}
