#include "platform/qt/qt_desktop.h"

#include <QDesktopServices>
#include <QFile>
#include <QProcess>
#include <QStandardPaths>
#include <QUrl>
#include <array>
#include <optional>
#include <span>
#include <system_error>
#include <vector>

#include "platform/process.h"

namespace vantrace {

namespace {

namespace fs = std::filesystem;

/// Graphical editors for machines without the freedesktop tools.
constexpr std::array textEditors{
    "gnome-text-editor", "gedit", "kate",    "kwrite",  "mousepad", "xed", "pluma",
    "featherpad",        "geany", "l3afpad", "leafpad", "xedit",
};

/// A program of a desktop that shows or sets something.
struct DesktopTool {
    const char* program;
    const char* argument;
    /// The word of XDG_CURRENT_DESKTOP without which the tool doesn't run; null where it runs on any.
    const char* desktop;
};

constexpr std::array informationTools{
    DesktopTool{"gnome-control-center", "info-overview", "GNOME"},
    DesktopTool{"cinnamon-settings", "info", "X-Cinnamon"},
    DesktopTool{"kinfocenter", nullptr, nullptr},
    DesktopTool{"hardinfo2", nullptr, nullptr},
    DesktopTool{"hardinfo", nullptr, nullptr},
    DesktopTool{"mate-system-monitor", "--show-system-tab", nullptr},
    DesktopTool{"xfce4-about", nullptr, nullptr},
};

constexpr std::array timeTools{
    DesktopTool{"gnome-control-center", "datetime", "GNOME"},
    DesktopTool{"cinnamon-settings", "calendar", "X-Cinnamon"},
    DesktopTool{"systemsettings", "kcm_clock", "KDE"},
    DesktopTool{"systemsettings5", "clock", "KDE"},
    DesktopTool{"lxqt-admin-time", nullptr, nullptr},
    DesktopTool{"time-admin", nullptr, nullptr},
};

struct Command {
    fs::path program;
    std::vector<std::string> arguments;
};

/// A program of the user's PATH.
std::optional<fs::path> found(const QString& program) {
    const QString path = QStandardPaths::findExecutable(program);
    if (path.isEmpty()) return std::nullopt;
    return fs::path(QFile::encodeName(path).toStdString());
}

std::optional<fs::path> found(const char* program) {
    return found(QString::fromLatin1(program));
}

void start(const Command& command) {
    try {
        startDetached(command.program, command.arguments);
    } catch (const std::runtime_error& failure) {
        throw DesktopError(failure.what());
    }
}

/// $VISUAL and $EDITOR mostly name programs for a terminal, so that they get one.
std::optional<Command> terminalEditor() {
    const std::optional<fs::path> terminal = found("x-terminal-emulator");
    if (!terminal) return std::nullopt;
    for (const char* const variable : {"VISUAL", "EDITOR"}) {
        const QStringList words = QProcess::splitCommand(qEnvironmentVariable(variable));
        if (words.isEmpty() || !found(words.first())) continue;
        Command command{*terminal, {"-e"}};
        for (const QString& word : words) command.arguments.push_back(QFile::encodeName(word).toStdString());
        return command;
    }
    return std::nullopt;
}

std::optional<Command> editorOfUser() {
    if (const auto opener = found("xdg-open")) return Command{*opener, {}};
    for (const char* const editor : textEditors) {
        if (const auto program = found(editor)) return Command{*program, {}};
    }
    return terminalEditor();
}

/// The first of these tools that is there, for this desktop.
std::optional<Command> firstOf(std::span<const DesktopTool> tools) {
    const QStringList desktops = qEnvironmentVariable("XDG_CURRENT_DESKTOP").split(QLatin1Char(':'));
    for (const DesktopTool& tool : tools) {
        if (tool.desktop != nullptr && !desktops.contains(QLatin1String(tool.desktop))) continue;
        const auto program = found(tool.program);
        if (!program) continue;
        Command command{*program, {}};
        if (tool.argument != nullptr) command.arguments.emplace_back(tool.argument);
        return command;
    }
    return std::nullopt;
}

}  // namespace

void QtDesktop::openAddress(std::string_view address) {
    const auto refused = [&](const char* reason) {
        return DesktopError("the address \"" + std::string(address) + "\" is not opened: " + reason);
    };
    if (!isOpenableAddress(address)) throw refused("it is neither a web page nor a mail address");
    const QUrl url(QString::fromUtf8(address.data(), static_cast<qsizetype>(address.size())),
                   QUrl::StrictMode);
    if (!url.isValid()) throw refused("it is malformed");
    const std::string encoded = url.toEncoded().toStdString();
    // Qt would start the same tool; but on some platforms it opens nothing, or asks another process over the
    // bus and waits for the answer. So it comes second.
    if (const auto opener = found("xdg-open")) {
        start({*opener, {encoded}});
    } else if (!QDesktopServices::openUrl(url)) {
        throw refused("no program for it was found");
    }
}

void QtDesktop::openTextFile(const std::filesystem::path& file) {
    std::error_code error;
    const fs::file_status status = fs::status(file, error);
    if (!fs::exists(status)) throw DesktopError(file.string() + " can't be opened: " + error.message());
    if (!fs::is_regular_file(status)) throw DesktopError(file.string() + " is not a regular file");
    std::optional<Command> command = editorOfUser();
    if (!command) throw DesktopError("no program was found that opens " + file.string());
    // Absolute, so that no name is taken for an option or an address.
    command->arguments.push_back(fs::absolute(file).string());
    start(*command);
}

void QtDesktop::startProgram(const std::filesystem::path& program) {
    start({fs::absolute(program), {}});
}

bool QtDesktop::hasSystemInformation() const {
    return firstOf(informationTools).has_value();
}

void QtDesktop::startSystemInformation() {
    const std::optional<Command> command = firstOf(informationTools);
    if (!command) throw DesktopError("the desktop has no tool that tells about the system");
    start(*command);
}

void QtDesktop::startTimeSettings() {
    const std::optional<Command> command = firstOf(timeTools);
    if (!command) throw DesktopError("the desktop has no tool that sets the time");
    start(*command);
}

}  // namespace vantrace
