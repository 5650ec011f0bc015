// The tracker put together: which port is which, which window is which.
#pragma once

#include <QObject>
#include <optional>
#include <string>
#include <vector>

#include "core/program_state.h"
#include "core/services.h"
#include "core/ui/window_host.h"
#include "internet/element_server/http_fetcher.h"
#include "mapview/map_state.h"
#include "platform/file_settings_store.h"
#include "platform/qt/qt_desktop.h"
#include "platform/qt/qt_dialogs.h"
#include "platform/qt/qt_http_client.h"
#include "platform/qt/qt_line_publisher.h"
#include "platform/qt/qt_pictures.h"
#include "platform/qt/qt_printer.h"
#include "platform/qt/qt_sound_capture.h"
#include "platform/qt/qt_speech.h"
#include "platform/qt/qt_text_painter.h"
#include "platform/qt/qt_time_client.h"
#include "platform/system_clock.h"

namespace vantrace {

/// What the user wrote behind the program's name.
struct DesktopArguments {
    /// The program folder that he named.
    std::optional<std::string> dataFolder;
    /// All the rest, with blanks between.
    std::string commandLine;
};

class DesktopProgram {
  public:
    /// Throws FileError where there is no program folder and none can be made.
    explicit DesktopProgram(const DesktopArguments& arguments);
    ~DesktopProgram();
    DesktopProgram(const DesktopProgram&) = delete;
    DesktopProgram& operator=(const DesktopProgram&) = delete;

    /// Shows the splash, which shows `Main`. The program ends when that is unloaded.
    void start();

  private:
    SystemClock m_clock;
    FileSettingsStore m_settings;
    QtSpeech m_speech;
    QtDialogs m_dialogs;
    QtDesktop m_desktop;
    FixedDisplayMode m_displayMode;
    SystemProcess m_process;
    QtSoundCapture m_capture;
    QtPictures m_pictures;
    QtTextPainter m_textPainter;
    QtPrinter m_printer;
    QtHttpClient m_http;
    HttpFetcher m_fetcher;
    QtTimeClient m_timeClient;
    QtLinePublisher m_linePublisher;
    MachineFormat m_format;
    ErrorLog m_errorLog;
    WindowRegistry m_windows;
    WindowHost m_host;
    Services m_services;
    ProgramState m_state;
    MapState m_map;
};

}  // namespace vantrace
