#include "app/cli.h"

#include <algorithm>

#include "app/command.h"
#include "app/program/arguments.h"
#include "app/program/program_name.h"
#include "core/version.h"

namespace vantrace {

namespace {

std::vector<Command> allCommands() {
    return {trackCommand(),      stateCommand(),  passesCommand(), listCommand(), checkCommand(),
            favouritesCommand(), flaresCommand(), todayCommand(),  mapCommand(),  horizonCommand(),
            predictCommand(),    jobCommand(),    convertCommand()};
}

ProgramSyntax programSyntax(const std::vector<Command>& commands) {
    ProgramSyntax syntax;
    syntax.name = programName;
    syntax.version = fullVersion;
    syntax.summary =
        "Tells where satellites, the sun and the moon are for an observer, and when they pass, from "
        "two-line element files. Longitudes are degrees east (-180 to 180), times ISO 8601 UTC.";
    syntax.commonOptions = {
        {"data", "DIR", "the folder of the element files and lists (else: the program folder)"},
        {"site", "LAT,LON,HEIGHT_M",
         "the observer: degrees north, degrees east, metres; such as 47.38,8.54,450 or -33.9,-151.2,20 "
         "(else: the stored settings)"},
        {"format", "FORMAT", "table (as it is), csv or json; the last two have full precision"}};
    for (const Command& command : commands) syntax.commands.push_back(command.syntax);
    return syntax;
}

Format formatOf(const CommandLine& line) {
    const std::string name = line.value("format").value_or("table");
    if (name == "table") return Format::table;
    if (name == "csv") return Format::csv;
    if (name == "json") return Format::json;
    throw UserError("--format: " + inQuotes(name) + " is none of table, csv, json");
}

int runCommand(const Command& command, const CommandLine& line, Surroundings& surroundings,
               Console& console) {
    const Format format = command.hasOwnFormats ? Format::table : formatOf(line);
    // A site is looked at wherever one is given, so that a wrong one is told.
    const std::optional<std::string> siteText = line.value("site");
    const std::optional<Site> site = siteText ? std::optional(parseSite(*siteText)) : std::nullopt;
    TextProgram program(surroundings, console, line.value("data"));
    if (command.needsSite) program.setSite(site ? *site : siteOfSettings(program.services()));
    return command.run({line, program, format});
}

void print(Console& console, const std::string& text) {
    console.out << text << std::flush;
    if (!console.out) throw OutputFailure();
}

int runArguments(const std::vector<std::string>& arguments, Surroundings& surroundings, Console& console) {
    const std::vector<Command> commands = allCommands();
    const ProgramSyntax syntax = programSyntax(commands);
    const CommandLine line = parseCommandLine(syntax, arguments);
    switch (line.request) {
        case CommandLine::Request::help:
            print(console, helpText(syntax, line.command));
            return exit_status::good;
        case CommandLine::Request::version:
            print(console, syntax.name + " " + syntax.version + "\n");
            return exit_status::good;
        case CommandLine::Request::run:
            break;
    }
    const auto command =
        std::ranges::find(commands, line.command, [](const Command& each) { return each.syntax.name; });
    return runCommand(*command, line, surroundings, console);
}

}  // namespace

int runProgram(const std::vector<std::string>& arguments, Surroundings& surroundings, Console& console) {
    try {
        return runArguments(arguments, surroundings, console);
    } catch (const OutputFailure&) {
        throw;
    } catch (const CommandLineError& failure) {
        console.complain(failure.what());
    } catch (const UserError& failure) {
        console.complain(failure.what());
    } catch (const FileError& failure) {
        console.complain(failure.what());
    } catch (const std::exception& failure) {
        console.complain(failure.what());
        return exit_status::incomplete;
    }
    return exit_status::userError;
}

}  // namespace vantrace
