#include "tests/support/test_services.h"

#include <algorithm>
#include <utility>

#include "platform/text_file.h"

namespace vantrace {

TestServices::TestServices(MachineFormat format)
    : errorLog(clock, format, folder.appPath()), services{clock,   events,           settings,      speech,
                                                          dialogs, desktop,          displayMode,   process,
                                                          capture, pictures,         textPainter,   printer,
                                                          fetcher, timeClient,       linePublisher, errorLog,
                                                          windows, std::move(format)} {}

std::vector<std::string> TestServices::logLines() const {
    const std::string text = folder.read("error.log");
    std::vector<std::string> lines;
    for (const std::string_view line : splitLines(text)) lines.emplace_back(line);
    return lines;
}

int TestServices::logged(std::string_view label) const {
    const std::string ending = " - " + std::string(label);
    return static_cast<int>(
        std::ranges::count_if(logLines(), [&](const std::string& line) { return line.ends_with(ending); }));
}

WindowScript& TestServices::fakeWindow(const std::string& name) {
    WindowScript& script = windowScripts[name];
    registerFake(windows, name, script);
    return script;
}

}  // namespace vantrace
