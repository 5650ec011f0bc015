// The process around the tracker.
#include <QApplication>
#include <QCommandLineOption>
#include <QCommandLineParser>
#include <QFile>
#include <QTimer>
#include <algorithm>
#include <array>
#include <cstdio>
#include <cstdlib>
#include <exception>
#include <memory>
#include <string_view>

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

/// Whether the arguments ask for nothing that needs a screen.
bool asksForText(int argc, char** argv) {
    constexpr std::array<std::string_view, 5> words{"-h", "--help", "--help-all", "-v", "--version"};
    return std::any_of(argv + std::min(argc, 1), argv + argc, [&](std::string_view argument) {
        return std::ranges::find(words, argument) != words.end();
    });
}

/// Without a screen Qt would end the process with a dump of its memory.
void endInOrder(QtMsgType type, const QMessageLogContext& /*context*/, const QString& text) {
    std::fprintf(stderr, "vantrace: %s\n", text.trimmed().toLocal8Bit().constData());
    if (type == QtFatalMsg) std::_Exit(EXIT_FAILURE);
}

std::unique_ptr<QCoreApplication> makeApplication(int& argc, char** argv) {
    QCoreApplication::setApplicationName(QStringLiteral("vantrace"));
    QCoreApplication::setApplicationVersion(
        QString::fromUtf8(fullVersion.data(), static_cast<qsizetype>(fullVersion.size())));
    if (asksForText(argc, argv)) return std::make_unique<QCoreApplication>(argc, argv);
    const QtMessageHandler before = qInstallMessageHandler(endInOrder);
    std::unique_ptr<QCoreApplication> application = std::make_unique<QApplication>(argc, argv);
    qInstallMessageHandler(before);
    return application;
}

}  // namespace

int main(int argc, char** argv) {
    const std::unique_ptr<QCoreApplication> application = makeApplication(argc, argv);
    QApplication::setDesktopFileName(QStringLiteral("vantrace"));
    // The program ends when Main is unloaded: there are moments without any window.
    QApplication::setQuitOnLastWindowClosed(false);
    try {
        const DesktopArguments arguments = readArguments();
        DesktopProgram program(arguments);
        // From inside the event loop, so that a program that ends at its start ends the loop.
        QTimer::singleShot(0, [&program] { program.start(); });
        return QApplication::exec();
    } catch (const std::exception& failure) {
        QtDialogs().message(failure.what());
        return EXIT_FAILURE;
    }
}
