// The process around the tracker.
#include <QApplication>
#include <QCommandLineOption>
#include <QCommandLineParser>
#include <QFile>
#include <QTimer>
#include <algorithm>
#include <exception>

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

/// Ends the process for "--help" and "--version". Whatever else nobody knows belongs to the command line in
/// which the switches are looked for.
DesktopArguments readArguments() {
    QCommandLineParser parser;
    parser.setApplicationDescription(QStringLiteral("Tracks satellites for one observer at one site."));
    const QCommandLineOption data(QStringLiteral("data"), QStringLiteral("The program folder."),
                                  QStringLiteral("DIR"));
    parser.addOption(data);
    const QCommandLineOption help = parser.addHelpOption();
    const QCommandLineOption version = parser.addVersionOption();
    parser.addPositionalArgument(
        QStringLiteral("switches"),
        QStringLiteral("Views to open: /WORLD for the map, /NWQ /NCQ /NEQ /SWQ /SCQ /SEQ for a region."),
        QStringLiteral("[switches...]"));
    parser.parse(QCoreApplication::arguments());
    if (parser.isSet(help)) parser.showHelp();
    if (parser.isSet(version)) parser.showVersion();

    DesktopArguments arguments;
    if (parser.isSet(data)) arguments.dataFolder = QFile::encodeName(parser.value(data)).toStdString();
    arguments.commandLine = withoutFolder(QCoreApplication::arguments().mid(1)).toStdString();
    return arguments;
}

}  // namespace

int main(int argc, char** argv) {
    const QApplication application(argc, argv);
    QApplication::setApplicationName(QStringLiteral("vantrace"));
    QApplication::setDesktopFileName(QStringLiteral("vantrace"));
    QApplication::setApplicationVersion(
        QString::fromUtf8(fullVersion.data(), static_cast<qsizetype>(fullVersion.size())));
    // The program ends when Main is unloaded: there are moments without any window.
    QApplication::setQuitOnLastWindowClosed(false);
    try {
        DesktopProgram program(readArguments());
        // From inside the event loop, so that a program that ends at its start ends the loop.
        QTimer::singleShot(0, [&program] { program.start(); });
        return QApplication::exec();
    } catch (const std::exception& failure) {
        QtDialogs().message(failure.what());
        return EXIT_FAILURE;
    }
}
