#include "platform/qt/command_line.h"

#include <QCommandLineOption>
#include <QCommandLineParser>
#include <QStringList>
#include <algorithm>

namespace vantrace {

namespace {

const QString helpOption = QStringLiteral("help");
const QString versionOption = QStringLiteral("version");

/// One character for each byte, so that arguments which are no UTF-8 survive.
QString fromBytes(std::string_view text) {
    return QString::fromLatin1(text.data(), static_cast<qsizetype>(text.size()));
}

std::string toBytes(const QString& text) {
    return text.toLatin1().toStdString();
}

bool isAmong(const std::vector<OptionSyntax>& options, const OptionSyntax& option) {
    return std::ranges::find(options, option.name, &OptionSyntax::name) != options.end();
}

void addOptions(QCommandLineParser& parser, const std::vector<OptionSyntax>& options,
                const std::vector<OptionSyntax>& known) {
    for (const OptionSyntax& option : options) {
        // A common one is known by now.
        if (isAmong(known, option)) continue;
        parser.addOption(QCommandLineOption(fromBytes(option.name), QString(), fromBytes(option.valueName)));
    }
}

void addGeneralOptions(QCommandLineParser& parser, const ProgramSyntax& program) {
    parser.addOption(QCommandLineOption(QStringList{QStringLiteral("h"), helpOption}));
    parser.addOption(QCommandLineOption(QStringList{QStringLiteral("v"), versionOption}));
    addOptions(parser, program.commonOptions, {});
}

CommandLine::Request requestOf(const QCommandLineParser& parser) {
    if (parser.isSet(helpOption)) return CommandLine::Request::help;
    return parser.isSet(versionOption) ? CommandLine::Request::version : CommandLine::Request::run;
}

/// Parses; a request for help or the version excuses whatever else is wrong.
CommandLine::Request parse(QCommandLineParser& parser, const QStringList& arguments,
                           const std::string& hint) {
    const bool isGood = parser.parse(arguments);
    const CommandLine::Request request = requestOf(parser);
    if (isGood || request != CommandLine::Request::run) return request;
    QString reason = parser.errorText();
    if (reason.endsWith(QLatin1Char('.'))) reason.chop(1);
    throw CommandLineError(toBytes(reason) + hint);
}

std::string seeHelp(const std::string& of) {
    return " (see " + of + " --help)";
}

void requireNumberOf(const CommandLine& line, const CommandSyntax& command, const std::string& hint) {
    const ArgumentSyntax& syntax = command.arguments;
    if (line.arguments.size() < syntax.least) {
        throw CommandLineError((command.name.empty() ? "wanted is " : command.name + " needs ") +
                               syntax.name + hint);
    }
    if (line.arguments.size() > syntax.most) {
        throw CommandLineError("\"" + line.arguments[syntax.most] + "\" is one argument too many" + hint);
    }
}

void readValues(const QCommandLineParser& parser, const std::vector<OptionSyntax>& options,
                CommandLine& line) {
    for (const OptionSyntax& option : options) {
        const QString name = fromBytes(option.name);
        if (parser.isSet(name)) line.values[option.name] = toBytes(parser.value(name));
    }
}

const CommandSyntax& commandNamed(const ProgramSyntax& program, const std::string& name) {
    const auto command = std::ranges::find(program.commands, name, &CommandSyntax::name);
    if (command == program.commands.end()) {
        throw CommandLineError("\"" + name + "\" is no command" + seeHelp(program.name));
    }
    return *command;
}

}  // namespace

std::optional<std::string> CommandLine::value(std::string_view option) const {
    const auto found = values.find(option);
    return found == values.end() ? std::nullopt : std::optional(found->second);
}

namespace {

/// Everything but the command's name, which stands in `line` already.
void parseRest(const ProgramSyntax& program, const CommandSyntax& command, const QStringList& arguments,
               CommandLine& line) {
    const std::string hint = seeHelp(command.name.empty() ? program.name : program.name + " " + command.name);
    QCommandLineParser parser;
    addGeneralOptions(parser, program);
    addOptions(parser, command.options, program.commonOptions);
    line.request = parse(parser, arguments, hint);
    if (line.request != CommandLine::Request::run) return;
    for (const QString& argument : parser.positionalArguments()) line.arguments.push_back(toBytes(argument));
    requireNumberOf(line, command, hint);
    readValues(parser, program.commonOptions, line);
    readValues(parser, command.options, line);
}

}  // namespace

CommandLine parseCommandLine(const ProgramSyntax& program, const std::vector<std::string>& arguments) {
    QStringList all{fromBytes(program.name)};
    for (const std::string& argument : arguments) all.append(fromBytes(argument));
    CommandLine line;
    if (!program.hasCommands()) {
        parseRest(program, program.commands.front(), all, line);
        return line;
    }

    // First up to the command, which is the first argument that belongs to no option.
    QCommandLineParser finder;
    finder.setOptionsAfterPositionalArgumentsMode(QCommandLineParser::ParseAsPositionalArguments);
    addGeneralOptions(finder, program);
    line.request = parse(finder, all, seeHelp(program.name));
    const QStringList fromCommandOn = finder.positionalArguments();
    if (fromCommandOn.isEmpty()) {
        if (line.request != CommandLine::Request::run) return line;
        throw CommandLineError("no command given" + seeHelp(program.name));
    }
    line.command = toBytes(fromCommandOn.first());
    const CommandSyntax& command = commandNamed(program, line.command);
    all.removeAt(all.size() - fromCommandOn.size());
    parseRest(program, command, all, line);
    return line;
}

}  // namespace vantrace
