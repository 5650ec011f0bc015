// The help text is set here and not by Qt, whose own wants an application object, and that one changes the
// locale of the process.
#include <algorithm>

#include "platform/qt/command_line.h"

namespace vantrace {

namespace {

constexpr std::size_t lineWidth = 96;
constexpr std::size_t indent = 2;

/// Words set to the line width; every line but the first begins with `margin` blanks. "\n" starts a line.
std::string wrapped(std::string_view text, std::size_t margin) {
    std::string result;
    std::size_t column = margin;
    while (!text.empty()) {
        const std::size_t end = std::min(text.find_first_of(" \n"), text.size());
        const std::string_view word = text.substr(0, end);
        if (column > margin && column + 1 + word.size() > lineWidth) {
            result += "\n" + std::string(margin, ' ');
            column = margin;
        }
        if (column > margin && !word.empty()) {
            result += ' ';
            ++column;
        }
        result += word;
        column += word.size();
        if (end < text.size() && text[end] == '\n') {
            result += "\n" + std::string(margin, ' ');
            column = margin;
        }
        text.remove_prefix(std::min(end + 1, text.size()));
    }
    return result + "\n";
}

struct Entry {
    std::string term;
    std::string help;
};

std::string listed(const std::string& title, const std::vector<Entry>& entries) {
    std::size_t width = 0;
    for (const Entry& entry : entries) width = std::max(width, entry.term.size());
    const std::size_t margin = indent + width + 2;
    std::string text = "\n" + title + ":\n";
    for (const Entry& entry : entries) {
        text += std::string(indent, ' ') + entry.term + std::string(margin - indent - entry.term.size(), ' ');
        text += wrapped(entry.help, margin);
    }
    return text;
}

std::vector<Entry> optionEntries(const std::vector<OptionSyntax>& options) {
    std::vector<Entry> entries;
    for (const OptionSyntax& option : options) {
        const std::string value = option.valueName.empty() ? "" : " " + option.valueName;
        entries.push_back({"--" + option.name + value, option.help});
    }
    return entries;
}

/// Those that the command doesn't tell about itself.
std::string commonOptions(const ProgramSyntax& program, const std::vector<OptionSyntax>& own) {
    std::vector<OptionSyntax> common;
    std::ranges::copy_if(program.commonOptions, std::back_inserter(common), [&](const OptionSyntax& option) {
        return std::ranges::find(own, option.name, &OptionSyntax::name) == own.end();
    });
    std::vector<Entry> entries = optionEntries(common);
    entries.push_back({"-h, --help", "shows this help"});
    entries.push_back({"-v, --version", "shows the version"});
    return listed(program.hasCommands() ? "Options of every command" : "General options", entries);
}

std::string programHelp(const ProgramSyntax& program) {
    std::vector<Entry> commands;
    for (const CommandSyntax& command : program.commands) commands.push_back({command.name, command.summary});
    return "Usage: " + program.name + " COMMAND [OPTIONS] [ARGUMENTS]\n\n" + wrapped(program.summary, 0) +
           listed("Commands", commands) + commonOptions(program, {}) + "\n" + program.name +
           " COMMAND --help tells more about a command.\n";
}

std::string commandHelp(const ProgramSyntax& program, const CommandSyntax& command) {
    const std::string& argument = command.arguments.name;
    std::string text = "Usage: " + program.name + (command.name.empty() ? "" : " " + command.name) +
                       " [OPTIONS]" + (argument.empty() ? "" : " " + argument) + "\n\n" +
                       wrapped(command.summary, 0);
    if (!command.details.empty()) text += "\n" + wrapped(command.details, 0);
    if (!argument.empty()) text += listed("Arguments", {{argument, command.arguments.help}});
    if (!command.options.empty()) text += listed("Options", optionEntries(command.options));
    return text + commonOptions(program, command.options);
}

}  // namespace

std::string helpText(const ProgramSyntax& program, std::string_view command) {
    const auto found = std::ranges::find(program.commands, command, &CommandSyntax::name);
    return found == program.commands.end() ? programHelp(program) : commandHelp(program, *found);
}

}  // namespace vantrace
