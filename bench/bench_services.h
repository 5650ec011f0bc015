// The services of the program for benchmarks: the machine's own clock, settings that are held in memory, no
// windows, no voice and no events waiting.
#pragma once

#include <sstream>

#include "core/services.h"
#include "platform/file_settings_store.h"
#include "platform/qt/qt_pictures.h"
#include "platform/qt/qt_text_painter.h"
#include "platform/system_clock.h"

namespace vantrace {

struct BenchServices {
    SystemClock clock;
    IdleEventQueue events;
    /// A place where nothing can be written.
    FileSettingsStore settings{"/dev/null/none"};
    SilentSpeech speech;
    std::ostringstream told;
    StreamDialogs dialogs{told};
    NoDesktop desktop;
    FixedDisplayMode displayMode;
    SystemProcess process{"", {}};
    NoSoundCapture capture;
    QtPictures pictures;
    QtTextPainter textPainter;
    NoPrinter printer;
    NoFetcher fetcher;
    NoTimeClient timeClient;
    NoLinePublisher linePublisher;
    ErrorLog errorLog{clock, {}};
    WindowRegistry windows;
    Services services{clock,       events,     settings,      speech,   dialogs,     desktop,
                      displayMode, process,    capture,       pictures, textPainter, printer,
                      fetcher,     timeClient, linePublisher, errorLog, windows,     {}};
};

}  // namespace vantrace
