#include "app/ui/desktop_program.h"

#include <QAbstractEventDispatcher>
#include <filesystem>
#include <memory>
#include <system_error>

#include "app/ui/all_windows.h"
#include "core/version.h"
#include "platform/program_folder.h"
#include "platform/user_environment.h"
#include "platform/working_folder.h"

namespace vantrace {

namespace {

/// A restart goes to the same folder, wherever the current directory is by then; the switches act once only.
std::vector<std::string> restartArguments(const DesktopArguments& arguments) {
    if (!arguments.dataFolder) return {};
    std::error_code error;
    const std::filesystem::path folder = std::filesystem::absolute(*arguments.dataFolder, error);
    return {"--data", error ? *arguments.dataFolder : folder.string()};
}

/// What the program calls itself towards servers.
std::string userAgent() {
    return "Vantrace/" + std::string(fullVersion);
}

}  // namespace

DesktopProgram::DesktopProgram(const DesktopArguments& arguments)
    : m_settings(settingsPath(userEnvironment())),
      m_process(executablePath(), restartArguments(arguments)),
      m_http(userAgent()),
      m_fetcher(m_http, m_clock, m_state,
                [this](std::string_view text) { m_errorLog.append(text, "element server"); }),
      m_timeClient(m_clock),
      m_linePublisher(usualLinePlaces(),
                      [this](std::string_view text) { m_errorLog.append(text, "tracking line"); }),
      m_format(machineFormatFromEnvironment()),
      m_errorLog(m_clock, m_format),
      m_host(m_windows, m_dialogs, m_errorLog),
      m_services{m_clock,       m_host,       m_settings,      m_speech,   m_dialogs,     m_desktop,
                 m_displayMode, m_process,    m_capture,       m_pictures, m_textPainter, m_printer,
                 m_fetcher,     m_timeClient, m_linePublisher, m_errorLog, m_windows,     m_format} {
    m_state.AppPath = programFolder({executablePath(), userEnvironment(), arguments.dataFolder});
    m_state.CommandLine = arguments.commandLine;
    m_errorLog.setFolder(m_state.AppPath);
    // Recordings land in the current directory.
    leaveUnwritableFolder(m_state.AppPath);
    registerAllWindows(m_host, m_map, m_state, m_services);
    // Another copy of the program may have written the settings.
    QObject::connect(QAbstractEventDispatcher::instance(), &QAbstractEventDispatcher::aboutToBlock, &m_host,
                     [this] { m_settings.refresh(); });
}

DesktopProgram::~DesktopProgram() {
    m_windows.close();
    m_windows.releaseUnloaded();
}

void DesktopProgram::start() {
    m_host.handle("Vantrace", [this] { m_windows.show("frmSplash"); });
}

}  // namespace vantrace
