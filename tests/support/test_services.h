// All services of the program as fakes, and a program folder of their own.
#pragma once

#include <map>
#include <string>
#include <vector>

#include "core/error_log.h"
#include "core/services.h"
#include "core/window_registry.h"
#include "tests/support/fake_clock.h"
#include "tests/support/fake_network.h"
#include "tests/support/fake_pictures.h"
#include "tests/support/fake_printer.h"
#include "tests/support/fake_sound_capture.h"
#include "tests/support/fake_text_painter.h"
#include "tests/support/fake_window.h"
#include "tests/support/memory_settings_store.h"
#include "tests/support/recording_ports.h"
#include "tests/support/temporary_folder.h"

namespace vantrace {

struct TestServices {
    explicit TestServices(MachineFormat format = {});
    TestServices(const TestServices&) = delete;
    TestServices& operator=(const TestServices&) = delete;

    /// The lines of error.log, without their ends.
    std::vector<std::string> logLines() const;
    /// How many of them end in that label.
    int logged(std::string_view label) const;

    /// A window without a screen, registered under that name.
    WindowScript& fakeWindow(const std::string& name);

    /// The program folder: error.log lies here.
    TemporaryFolder folder;
    FakeClock clock;
    CountingEventQueue events;
    MemorySettingsStore settings;
    RecordingSpeech speech;
    RecordingDialogs dialogs;
    RecordingDesktop desktop;
    RecordingDisplayMode displayMode;
    RecordingProcess process;
    FakeSoundCapture capture;
    FakePictures pictures;
    FakeTextPainter textPainter;
    FakePrinter printer;
    FakeFetcher fetcher;
    FakeTimeClient timeClient;
    FakeLinePublisher linePublisher;
    /// Outlive the windows.
    std::map<std::string, WindowScript> windowScripts;
    WindowRegistry windows;
    ErrorLog errorLog;
    /// What routines are handed.
    Services services;
};

}  // namespace vantrace
