// One command of the program: what it takes, and what it does.
#pragma once

#include <functional>
#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "app/output/row_writer.h"
#include "app/program/text_program.h"
#include "platform/qt/command_line.h"

namespace vantrace {

/// What a command is run with.
struct CommandContext {
    const CommandLine& line;
    TextProgram& program;
    Format format;

    OrbitEngine& engine() const { return program.engine(); }
    const Console& console() const { return program.console(); }
    std::unique_ptr<RowWriter> rows(std::span<const Column> columns) const {
        return makeRowWriter(format, columns, console().out);
    }
};

struct Command {
    CommandSyntax syntax;
    bool needsSite = false;
    /// The exit status. Throws UserError, FileError and OutputFailure.
    int (*run)(const CommandContext&) = nullptr;
    /// It has other formats than table, CSV and JSON and reads the option itself.
    bool hasOwnFormats = false;
};

Command trackCommand();
Command stateCommand();
Command passesCommand();
Command listCommand();
Command checkCommand();
Command favouritesCommand();
Command flaresCommand();
Command todayCommand();
Command mapCommand();
Command horizonCommand();
Command predictCommand();
Command jobCommand();
Command convertCommand();

/// An argument as a trimmed name that the engine knows, a sky body's where that is allowed. Throws UserError
/// for one it doesn't, with names that are like it.
std::string nameOf(const CommandContext& context, std::string_view argument, bool skyBodiesToo);
/// The same for all arguments.
std::vector<std::string> namesOf(const CommandContext& context, bool skyBodiesToo);

/// The time of an option, or now.
Instant timeOrNow(const CommandContext& context, std::string_view option);

}  // namespace vantrace
