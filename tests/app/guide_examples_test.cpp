// The examples of the user guide, run as they stand.
#include "platform/text_file.h"
#include "tests/app/cli_run.h"
#include "tests/support/testing.h"

namespace vantrace {

namespace {

constexpr std::string_view prompt = "$ vantrace-cli ";
constexpr std::string_view fence = "```";

/// A fenced block that begins with a command and goes on with all that it prints.
struct GuideExample {
    std::string command;
    std::string output;
};

/// The blocks whose first line begins with the prompt.
std::vector<GuideExample> examplesOf(std::string_view guide) {
    std::vector<GuideExample> examples;
    bool isInBlock = false;
    bool isFirst = false;
    bool isExample = false;
    for (const std::string_view line : splitLines(guide)) {
        if (line.starts_with(fence)) {
            isInBlock = !isInBlock;
            isFirst = isInBlock;
            isExample = false;
        } else if (isFirst) {
            isFirst = false;
            isExample = line.starts_with(prompt);
            if (isExample) examples.push_back({std::string(line.substr(prompt.size())), {}});
        } else if (isExample) {
            examples.back().output += std::string(line) + "\n";
        }
    }
    return examples;
}

/// The words of a command as a shell takes them: blanks between, some of them in double quotes.
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

using GuideExamplesTest = CliTest;

TEST_F(GuideExamplesTest, EveryExamplePrintsWhatTheGuideShows) {
    const std::vector<GuideExample> examples =
        examplesOf(readTextFile(VANTRACE_SOURCE_FOLDER "/docs/USER_GUIDE.md", std::size_t{1} << 20));
    ASSERT_FALSE(examples.empty());
    for (const GuideExample& example : examples) {
        SCOPED_TRACE(example.command);
        Texts words = wordsOf(example.command);
        // The guide is read in the source folder; where the test runs nobody knows.
        for (std::string& word : words) {
            if (word == "data") word = VANTRACE_SOURCE_FOLDER "/data";
        }
        const CliResult result = runBare(words);
        EXPECT_EQ(result.out + result.err, example.output);
        EXPECT_EQ(result.status, result.err.empty() ? 0 : 2);
    }
}

}  // namespace

}  // namespace vantrace
