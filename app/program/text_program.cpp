#include "app/program/text_program.h"

#include "app/program/arguments.h"
#include "orbit/engine_error.h"

namespace vantrace {

namespace {

std::string folderOf(const Surroundings& surroundings, const std::optional<std::string>& named) {
    ProgramFolderRequest request = surroundings.folder;
    request.named = named;
    try {
        return readOnlyProgramFolder(request);
    } catch (const FileError& failure) {
        throw UserError((named ? "--data: " : "") + std::string(failure.what()));
    }
}

}  // namespace

TextProgram::TextProgram(Surroundings& surroundings, Console& console,
                         const std::optional<std::string>& namedFolder)
    : m_console(console),
      m_dialogs(console.err),
      m_process(surroundings.folder.executable, {}),
      m_errorLog(surroundings.clock, surroundings.format),
      m_services{surroundings.clock, m_events,           surroundings.settings, m_speech,
                 m_dialogs,          m_desktop,          m_displayMode,         m_process,
                 m_capture,          m_pictures,         m_textPainter,         m_printer,
                 m_fetcher,          m_timeClient,       m_linePublisher,       m_errorLog,
                 m_windows,          surroundings.format} {
    m_state.AppPath = folderOf(surroundings, namedFolder);
    m_state.OrbitEngine = std::make_shared<OrbitEngine>(&surroundings.clock);
    try {
        engine().EngineSetKepPath(m_state.AppPath);
    } catch (const EngineError& failure) {
        throw UserError(failure.what());
    }
}

Instant TextProgram::now() const {
    constexpr double microsecond = 1e-6;
    const ClockReading reading = m_services.clock.read();
    return instantFromCalendar({reading.utc.year, reading.utc.month, reading.utc.day, reading.utc.hour,
                                reading.utc.minute,
                                reading.utc.second + microsecond * reading.utcMicroseconds});
}

void TextProgram::setSite(const Site& site) {
    m_site = site;
    m_state.ObserverName = site.name;
    m_state.ObserverLatitude = site.latitudeDeg;
    m_state.ObserverLongitude = site.longitudeDeg > 0.0 ? 360.0 - site.longitudeDeg : -site.longitudeDeg;
    m_state.ObserverHeight = site.heightM;
    engine().EngineSetLatitude(site.latitudeDeg);
    engine().EngineSetLongitude(site.longitudeDeg);
    engine().EngineSetHeight(site.heightM);
}

}  // namespace vantrace
