// What the routines of the program work with, handed to them by whoever composed it.
#pragma once

#include "core/error_log.h"
#include "core/window_registry.h"
#include "platform/clock.h"
#include "platform/desktop.h"
#include "platform/dialogs.h"
#include "platform/display_mode.h"
#include "platform/event_queue.h"
#include "platform/fetcher.h"
#include "platform/line_publisher.h"
#include "platform/machine_format.h"
#include "platform/pictures.h"
#include "platform/printer.h"
#include "platform/process.h"
#include "platform/settings_store.h"
#include "platform/sound_capture.h"
#include "platform/speech.h"
#include "platform/text_painter.h"
#include "platform/time_client.h"

namespace vantrace {

struct Services {
    Clock& clock;
    EventQueue& events;
    SettingsStore& settings;
    Speech& speech;
    Dialogs& dialogs;
    Desktop& desktop;
    DisplayMode& displayMode;
    Process& process;
    SoundCapture& capture;
    Pictures& pictures;
    TextPainter& textPainter;
    Printer& printer;
    Fetcher& fetcher;
    TimeClient& timeClient;
    LinePublisher& linePublisher;
    ErrorLog& errorLog;
    WindowRegistry& windows;
    MachineFormat format;
};

}  // namespace vantrace
