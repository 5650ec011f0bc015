// The command line of a program, with commands or without: what it may hold, told once, serves the reading
// and the help.
#pragma once

#include <cstddef>
#include <limits>
#include <map>
#include <optional>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

namespace vantrace {

/// An option "--name VALUE" or, where there is no value name, "--name".
struct OptionSyntax {
    std::string name;
    std::string valueName;
    std::string help;
};

/// What stands behind a command without being an option.
struct ArgumentSyntax {
    std::string name;  ///< as the help shows it: "NAME...", "[GROUP]"; empty for a command that takes none
    std::string help;
    std::size_t least = 0;
    std::size_t most = 0;
};

inline constexpr std::size_t anyNumber = std::numeric_limits<std::size_t>::max();

struct CommandSyntax {
    std::string name;
    std::string summary;  ///< one line
    std::string details;  ///< what else the help tells; blank lines part paragraphs
    ArgumentSyntax arguments;
    /// One of the name of a common option tells what that means to this command.
    std::vector<OptionSyntax> options;
};

/// Every command takes the common options, and --help and --version. A program without commands has a single
/// one whose name is empty.
struct ProgramSyntax {
    bool hasCommands() const { return commands.size() != 1 || !commands.front().name.empty(); }

    std::string name;
    std::string version;
    std::string summary;
    std::vector<OptionSyntax> commonOptions;
    std::vector<CommandSyntax> commands;
};

/// A mistake of the user; what() is one line.
class CommandLineError : public std::runtime_error {
  public:
    using std::runtime_error::runtime_error;
};

struct CommandLine {
    enum class Request { run, help, version };

    Request request = Request::run;
    std::string command;  ///< empty where help or version of the program is asked for, or it has no commands
    std::vector<std::string> arguments;
    std::map<std::string, std::string, std::less<>> values;  ///< of the options given; the last one counts

    bool has(std::string_view option) const { return values.contains(option); }
    std::optional<std::string> value(std::string_view option) const;
};

/// Reads the arguments that follow the program's name; bytes come through as they are. Common options may
/// stand in front of the command. An option's value may begin with "-". Throws CommandLineError.
CommandLine parseCommandLine(const ProgramSyntax& program, const std::vector<std::string>& arguments);

/// The help of a command, or of the whole program where the command is empty; lines of 100 columns at most.
std::string helpText(const ProgramSyntax& program, std::string_view command);

}  // namespace vantrace
