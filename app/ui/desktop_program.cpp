#include "app/ui/desktop_program.h"

#include <QAbstractEventDispatcher>
#include <filesystem>
#include <memory>
#include <system_error>

#include "core/shell/ui/information_windows.h"
#include "core/shell/ui/main_window.h"
#include "core/shell/ui/tabular_window.h"
#include "horizon/ui/horizon_window.h"
#include "mapview/ui/world_view_window.h"
#include "passes/ui/pass_prediction_window.h"
#include "passes/ui/pass_wizard_window.h"
#include "platform/program_folder.h"
#include "platform/user_environment.h"
#include "platform/working_folder.h"
#include "station/ui/record_window.h"

namespace vantrace {

namespace {

/// A restart goes to the same folder, wherever the current directory is by then; the switches act once only.
std::vector<std::string> restartArguments(const DesktopArguments& arguments) {
    if (!arguments.dataFolder) return {};
    std::error_code error;
    const std::filesystem::path folder = std::filesystem::absolute(*arguments.dataFolder, error);
    return {"--data", error ? *arguments.dataFolder : folder.string()};
}

}  // namespace

DesktopProgram::DesktopProgram(const DesktopArguments& arguments)
    : m_settings(settingsPath(userEnvironment())),
      m_process(executablePath(), restartArguments(arguments)),
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
    registerWindows();
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

void DesktopProgram::registerWindows() {
    m_windows.registerWindow("frmSplash", [this] { return std::make_unique<frmSplash>(m_host, m_services); });
    m_windows.registerWindow("Main", [this] { return std::make_unique<Main>(m_host, m_state, m_services); });
    m_windows.registerWindow("Tabular",
                             [this] { return std::make_unique<Tabular>(m_host, m_state, m_services); });
    m_windows.registerWindow("Record",
                             [this] { return std::make_unique<Record>(m_host, m_state, m_services); });
    m_windows.registerWindow(
        "WorldView", [this] { return std::make_unique<WorldView>(m_host, m_map, m_state, m_services); });
    m_windows.registerWindow(
        "PassPrediction", [this] { return std::make_unique<PassPrediction>(m_host, m_state, m_services); });
    m_windows.registerWindow("PassWizard",
                             [this] { return std::make_unique<PassWizard>(m_host, m_state, m_services); });
    m_windows.registerWindow("Horizon",
                             [this] { return std::make_unique<Horizon>(m_host, m_state, m_services); });
    m_windows.registerWindow("About", [this] { return std::make_unique<About>(m_host, m_services); });
}

}  // namespace vantrace
