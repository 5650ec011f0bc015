#include "app/commands/track_batch.h"

#include <algorithm>
#include <memory>
#include <optional>
#include <string_view>

#include "app/batch_lines.h"
#include "app/commands/track_rows.h"
#include "app/program/arguments.h"
#include "core/texts.h"
#include "orbit/engine_error.h"

namespace vantrace {

namespace {

/// What a line asks for.
struct Question {
    std::string timeText;
    std::optional<Instant> time;
    std::string name;
};

Question questionOf(std::string_view line) {
    const std::size_t comma = std::min(line.find(','), line.size());
    Question question;
    question.timeText = trimmed(line.substr(0, comma));
    question.time = parseIsoText(question.timeText);
    question.name = trimmed(line.substr(std::min(comma + 1, line.size())));
    return question;
}

std::string whatIsWrong(const Question& question, const BatchLine& line) {
    if (line.isCut)
        return "the line is longer than " + std::to_string(BatchLines::longestLine) + " characters";
    if (line.text.find(',') == std::string_view::npos) {
        return inQuotes(line.text) + " is no line TIME,NAME";
    }
    if (!question.time) return inQuotes(question.timeText) + " is no time such as 2026-08-22T10:00:00Z";
    return question.name.empty() ? "there is no name behind the time" : "";
}

Row failedRow(const Question& question) {
    return failedTrackRow(question.name, question.time ? Value(*question.time) : Value(question.timeText));
}

void answer(const CommandContext& context, const BatchLine& line, RowWriter& rows) {
    // Of an endless line enough to know it again.
    constexpr std::size_t toldOfCutLine = 80;
    const Question question = questionOf(line.isCut ? line.text.substr(0, toldOfCutLine) : line.text);
    std::string wrong = whatIsWrong(question, line);
    if (wrong.empty()) {
        try {
            rows.add(trackRow(context.engine(), question.name, *question.time));
            return;
        } catch (const EngineError& failure) {
            wrong = failure.what();
        }
    }
    context.console().complain("line " + std::to_string(line.number) + ": " + wrong);
    rows.add(failedRow(question));
}

bool isBlank(std::string_view text) {
    return text.find_first_not_of(" \t") == std::string_view::npos;
}

}  // namespace

int trackBatch(const CommandContext& context, const std::string& path) {
    const std::unique_ptr<ByteSource> file = path == "-" ? nullptr : openBatchFile(path);
    ByteSource& source = file ? *file : context.console().in;
    const std::unique_ptr<RowWriter> rows = context.rows(trackColumns());
    // Whoever sends a line and waits gets its answer before more is waited for.
    BatchLines lines(source, [&] { rows->flush(); });
    const auto nextLine = [&] {
        try {
            return lines.next();
        } catch (const OutputFailure&) {
            throw;
        } catch (const std::runtime_error& failure) {
            throw UserError("--batch: " + inQuotes(path) + " " + failure.what());
        }
    };
    while (const std::optional<BatchLine> line = nextLine()) {
        if (!isBlank(line->text)) answer(context, *line, *rows);
    }
    rows->finish();
    return exit_status::good;
}

}  // namespace vantrace
