// The services of a program with some of them replaced.
#pragma once

#include "core/services.h"

namespace vantrace {

/// What the replaced ones are; all else is handed on.
inline Services servicesWith(const Services& all, Clock& clock, SettingsStore& settings, ErrorLog& errorLog) {
    return {clock,           all.events,     settings,          all.speech,   all.dialogs,     all.desktop,
            all.displayMode, all.process,    all.capture,       all.pictures, all.textPainter, all.printer,
            all.fetcher,     all.timeClient, all.linePublisher, errorLog,     all.windows,     all.format};
}

}  // namespace vantrace
