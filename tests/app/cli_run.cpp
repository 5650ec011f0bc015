#include "tests/app/cli_run.h"

#include <cstdlib>

#include "app/cli.h"
#include "platform/text_file.h"

namespace vantrace {
namespace {

class TextSource final : public ByteSource {
  public:
    explicit TextSource(std::string_view text) : m_rest(text) {}

    std::size_t read(std::span<char> buffer) override {
        const std::size_t count = std::min(buffer.size(), m_rest.size());
        std::ranges::copy(m_rest.substr(0, count), buffer.begin());
        m_rest.remove_prefix(count);
        return count;
    }

  private:
    std::string_view m_rest;
};

}  // namespace

Texts CliResult::lines() const {
    Texts result;
    for (const std::string_view line : splitLines(out)) result.emplace_back(line);
    return result;
}

std::vector<CsvRow> csvRows(std::string_view text) {
    std::vector<CsvRow> rows;
    CsvRow row(1);
    bool isQuoted = false;
    for (std::size_t i = 0; i < text.size(); ++i) {
        const char character = text[i];
        const bool isDoubledQuote = isQuoted && text.substr(i, 2) == "\"\"";
        if (isDoubledQuote || (isQuoted && character != '"')) {
            row.back() += character;
            i += isDoubledQuote ? 1 : 0;
        } else if (character == '"') {
            isQuoted = !isQuoted;
        } else if (character == ',') {
            row.emplace_back();
        } else if (character == '\n') {
            rows.push_back(std::exchange(row, CsvRow(1)));
        } else {
            row.back() += character;
        }
    }
    return rows;
}

Texts csvColumn(const CliResult& result, std::string_view name) {
    const std::vector<CsvRow> rows = csvRows(result.out);
    Texts column;
    if (rows.empty()) return column;
    const auto index = static_cast<std::size_t>(std::ranges::find(rows.front(), name) - rows.front().begin());
    for (std::size_t i = 1; i < rows.size(); ++i) column.push_back(rows[i].at(index));
    return column;
}

std::vector<double> csvFigures(const CliResult& result, std::string_view name) {
    std::vector<double> figures;
    for (const std::string& text : csvColumn(result, name))
        figures.push_back(std::strtod(text.c_str(), nullptr));
    return figures;
}

Texts wordsOf(std::string_view command) {
    Texts words;
    bool isQuoted = false;
    bool isInWord = false;
    for (const char sign : command) {
        if (sign == '"') isQuoted = !isQuoted;
        const bool isPart = sign != ' ' || isQuoted;
        if (isPart && !isInWord) words.emplace_back();
        if (isPart && sign != '"') words.back() += sign;
        isInWord = isPart;
    }
    return words;
}

CliTest::CliTest() {
    fakes.clock.setUtc({2026, 8, 21, 20, 0, 0}, 120);
    folder.write("stations.txt", issElements);
    folder.write("geo.txt", goesElements);
    folder.write("amateur.tle", fallingElements);
}

CliResult CliTest::runBare(const Texts& arguments, std::string_view input) {
    TextSource in(input);
    std::ostringstream out;
    std::ostringstream err;
    Console console{in, out, err};
    Surroundings surroundings{fakes.clock, fakes.settings, {}, {"/nowhere/vantrace-cli", {}, std::nullopt}};
    CliResult result;
    result.status = runProgram(arguments, surroundings, console);
    result.out = out.str();
    result.err = err.str();
    return result;
}

CliResult CliTest::run(Texts arguments, std::string_view input) {
    const auto isGiven = [&](std::string_view option) {
        return std::ranges::any_of(arguments,
                                   [&](const std::string& each) { return each.starts_with(option); });
    };
    if (!isGiven("--data")) arguments.insert(arguments.end(), {"--data", folder.path().string()});
    if (!isGiven("--site")) arguments.insert(arguments.end(), {"--site", site});
    return runBare(arguments, input);
}

void CliTest::expectFailure(int status, const Texts& arguments, const Texts& parts) {
    const CliResult result = run(arguments);
    SCOPED_TRACE(::testing::PrintToString(arguments) + "\n" + result.err);
    EXPECT_EQ(result.status, status);
    EXPECT_EQ(result.out, "");
    EXPECT_FALSE(result.err.empty());
    for (const std::string& part : parts) EXPECT_NE(result.err.find(part), std::string::npos) << part;
}

CliResult CliTest::runCsv(Texts arguments, std::string_view input) {
    arguments.emplace_back("--format=csv");
    return run(std::move(arguments), input);
}

}  // namespace vantrace
