#include "app/ui/desktop_program.h"

#include <QAbstractEventDispatcher>
#include <memory>

#include "core/shell/ui/information_windows.h"
#include "core/shell/ui/main_window.h"
#include "core/shell/ui/tabular_window.h"
#include "platform/program_folder.h"
#include "platform/user_environment.h"

namespace vantrace {

namespace {

/// A restart goes to the same folder; the switches act once only.
std::vector<std::string> restartArguments(const DesktopArguments& arguments) {
    if (!arguments.dataFolder) return {};
    return {"--data", *arguments.dataFolder};
}

}  // namespace

DesktopProgram::DesktopProgram(const DesktopArguments& arguments)
    : m_settings(settingsPath(userEnvironment())),
      m_process(executablePath(), restartArguments(arguments)),
      m_format(machineFormatFromEnvironment()),
      m_errorLog(m_clock, m_format),
      m_host(m_windows, m_dialogs, m_errorLog),
      m_services{m_clock,   m_host,    m_settings, m_speech,      m_dialogs,  m_desktop, m_displayMode,
                 m_process, m_capture, m_pictures, m_textPainter, m_errorLog, m_windows, m_format} {
    m_state.AppPath = programFolder({executablePath(), userEnvironment(), arguments.dataFolder});
    m_state.CommandLine = arguments.commandLine;
    m_errorLog.setFolder(m_state.AppPath);
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
    m_windows.registerWindow("About", [this] { return std::make_unique<About>(m_host, m_services); });
}

}  // namespace vantrace
