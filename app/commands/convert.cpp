// Messages of mean elements as three-line sets.
#include <array>
#include <span>
#include <string>

#include "app/command.h"
#include "app/program/arguments.h"
#include "catalogue/data_files.h"
#include "internet/omm/three_line_conversion.h"
#include "platform/text_file.h"

namespace vantrace {

namespace {

std::string readStandardInput(ByteSource& in) {
    std::string content;
    std::array<char, 65536> buffer{};
    const auto read = [&] {
        try {
            return in.read(buffer);
        } catch (const std::runtime_error& failure) {
            throw UserError(std::string("the standard input ") + failure.what());
        }
    };
    while (const std::size_t count = read()) {
        content.append(buffer.data(), count);
        if (content.size() > elementFileLimitBytes) {
            throw UserError("the input is longer than " + std::to_string(elementFileLimitBytes) + " bytes");
        }
    }
    return content;
}

int runConvert(const CommandContext& context) {
    if (context.line.value("format")) throw UserError("--format: what is converted has one form only");
    const std::string& file = context.line.arguments.front();
    const std::string content =
        file == "-" ? readStandardInput(context.console().in) : readTextFile(file, elementFileLimitBytes);
    const ThreeLineConversion conversion = threeLinesFromMessages(content);
    if (!conversion.hasHeading) throw UserError(inQuotes(file) + " holds no messages of mean elements");

    context.console().out << conversion.text << std::flush;
    for (const std::string& remark : conversion.refused) context.console().complain(remark);
    if (conversion.furtherRefused > 0) {
        context.console().complain("and " + std::to_string(conversion.furtherRefused) + " more left out");
    }
    return conversion.refused.empty() ? exit_status::good : exit_status::incomplete;
}

}  // namespace

Command convertCommand() {
    CommandSyntax syntax;
    syntax.name = "convert";
    syntax.summary = "Turns messages of mean elements (OMM) into three-line element sets.";
    syntax.details =
        "Takes CSV, JSON, XML and lines of KEY = value, told apart by content. Catalogue numbers from "
        "100000 to 339999 are written in the Alpha-5 form. Sets that the form can't hold are told on the "
        "error stream, "
        "and the exit status is 1.";
    syntax.options = {{"format", "FORMAT", "for the other commands: what is converted has one form"}};
    syntax.arguments = {"FILE", "the messages; \"-\" is the standard input", 1, 1};
    return {syntax, false, runConvert, true};
}

}  // namespace vantrace
