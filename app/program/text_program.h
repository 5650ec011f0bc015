// The text program put together: which port is which, the state, the engine.
#pragma once

#include <filesystem>
#include <memory>
#include <optional>
#include <string>

#include "app/program/console.h"
#include "app/program/site.h"
#include "core/program_state.h"
#include "core/services.h"
#include "orbit/instant.h"
#include "orbit/orbit_engine.h"
#include "platform/program_folder.h"
#include "platform/qt/qt_pictures.h"
#include "platform/qt/qt_text_painter.h"

namespace vantrace {

/// What the machine brings; a test brings its own.
struct Surroundings {
    Clock& clock;
    SettingsStore& settings;
    MachineFormat format;
    /// Where the program is, and whose it is; `named` isn't looked at.
    ProgramFolderRequest folder;
};

class TextProgram {
  public:
    /// Reads the element files of the program folder, or of the folder named. Writes nothing there. Throws
    /// UserError where there is no such folder.
    TextProgram(Surroundings& surroundings, Console& console, const std::optional<std::string>& namedFolder);

    ProgramState& state() { return m_state; }
    Services& services() { return m_services; }
    OrbitEngine& engine() { return *m_state.OrbitEngine; }
    const Console& console() const { return m_console; }

    /// To the microsecond, from one reading of the clock.
    Instant now() const;

    /// Makes it the place of the observer, for the engine and the state alike.
    void setSite(const Site& site);
    const Site& site() const { return m_site; }

  private:
    Console& m_console;
    IdleEventQueue m_events;
    SilentSpeech m_speech;
    StreamDialogs m_dialogs;
    NoDesktop m_desktop;
    FixedDisplayMode m_displayMode;
    SystemProcess m_process;
    NoSoundCapture m_capture;
    QtPictures m_pictures;
    QtTextPainter m_textPainter;
    NoPrinter m_printer;
    NoFetcher m_fetcher;
    NoTimeClient m_timeClient;
    NoLinePublisher m_linePublisher;
    WindowRegistry m_windows;
    /// Without a folder it writes nothing: this program tells its failures on the error stream.
    ErrorLog m_errorLog;
    Services m_services;
    ProgramState m_state;
    Site m_site;
};

}  // namespace vantrace
