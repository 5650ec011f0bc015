// The process around the tracker.
#include <QApplication>
#include <QCommandLineOption>
#include <QCommandLineParser>
#include <QFile>
#include <QTimer>
#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <exception>
#include <memory>

#include "app/ui/desktop_program.h"
#include "core/version.h"

namespace {

using namespace vantrace;

/// The arguments as they stand, without the program folder.
QString withoutFolder(QStringList arguments) {
    for (qsizetype i = arguments.size(); i-- > 0;) {
        if (arguments[i] == QLatin1String("--data")) {
            arguments.remove(i, std::min<qsizetype>(2, arguments.size() - i));
        } else if (arguments[i].startsWith(QLatin1String("--data="))) {
            arguments.removeAt(i);
        }
    }
    return arguments.join(QLatin1Char(' '));
}

/// The arguments that the tracker knows. Whatever else stands there belongs to the command line in which the
/// switches are looked for.
class ArgumentParser {
  public:
    ArgumentParser() {
        m_parser.setApplicationDescription(QStringLiteral("Tracks satellites for one observer at one site."));
        m_parser.addOption(m_data);
        m_parser.addHelpOption();
        m_parser.addVersionOption();
        m_parser.addPositionalArgument(
            QStringLiteral("switches"),
            QStringLiteral("Views to open: /WORLD for the map, /NWQ /NCQ /NEQ /SWQ /SCQ /SEQ for a region."),
            QStringLiteral("[switches...]"));
    }

    /// Whether nothing but a text is asked for, which needs no screen.
    bool asksForText(int argc, char** argv) {
        QStringList arguments;
        for (int i = 0; i < argc; ++i) arguments.append(QString::fromLocal8Bit(argv[i]));
        m_parser.parse(arguments);
        return isHelpAsked() || isVersionAsked();
    }

    /// Of the application's arguments. Ends the process where a text is asked for.
    DesktopArguments read() {
        m_parser.parse(QCoreApplication::arguments());
        if (isHelpAsked()) m_parser.showHelp();
        if (isVersionAsked()) m_parser.showVersion();
        DesktopArguments arguments;
        if (m_parser.isSet(m_data)) {
            arguments.dataFolder = QFile::encodeName(m_parser.value(m_data)).toStdString();
        }
        arguments.commandLine = withoutFolder(QCoreApplication::arguments().mid(1)).toStdString();
        return arguments;
    }

  private:
    bool isHelpAsked() const {
        return m_parser.isSet(QStringLiteral("help")) || m_parser.isSet(QStringLiteral("help-all"));
    }
    bool isVersionAsked() const { return m_parser.isSet(QStringLiteral("version")); }

    QCommandLineParser m_parser;
    const QCommandLineOption m_data{QStringLiteral("data"), QStringLiteral("The program folder."),
                                    QStringLiteral("DIR")};
};

/// Without a screen Qt would end the process with a dump of its memory.
void endInOrder(QtMsgType type, const QMessageLogContext& /*context*/, const QString& text) {
    std::fprintf(stderr, "vantrace: %s\n", text.trimmed().toLocal8Bit().constData());
    if (type == QtFatalMsg) std::_Exit(EXIT_FAILURE);
}

std::unique_ptr<QCoreApplication> makeApplication(int& argc, char** argv, bool needsScreen) {
    QCoreApplication::setApplicationName(QStringLiteral("vantrace"));
    QCoreApplication::setApplicationVersion(
        QString::fromUtf8(fullVersion.data(), static_cast<qsizetype>(fullVersion.size())));
    if (!needsScreen) return std::make_unique<QCoreApplication>(argc, argv);
    const QtMessageHandler before = qInstallMessageHandler(endInOrder);
    std::unique_ptr<QCoreApplication> application = std::make_unique<QApplication>(argc, argv);
    qInstallMessageHandler(before);
    return application;
}

}  // namespace

int main(int argc, char** argv) {
    ArgumentParser parser;
    const std::unique_ptr<QCoreApplication> application =
        makeApplication(argc, argv, !parser.asksForText(argc, argv));
    QApplication::setDesktopFileName(QStringLiteral("vantrace"));
    // The program ends when Main is unloaded: there are moments without any window.
    QApplication::setQuitOnLastWindowClosed(false);
    try {
        const DesktopArguments arguments = parser.read();
        DesktopProgram program(arguments);
        // From inside the event loop, so that a program that ends at its start ends the loop.
        QTimer::singleShot(0, [&program] { program.start(); });
        return QApplication::exec();
    } catch (const std::exception& failure) {
        QtDialogs().message(failure.what());
        return EXIT_FAILURE;
    }
}
