// Texts that were never meant to be read: the reader may leave out whatever it likes, but must not crash, and
// must not accept a set whose lines are wrong.

#include "orbit/elements/element_reader.h"
#include "platform/text_file.h"
#include "tests/orbit/element_texts.h"

namespace vantrace {
namespace {

bool isSoundLine(std::string_view line) {
    return line.size() >= 69 && line[68] == checkDigitOf(line);
}

/// How many sets could at most be accepted: pairs of sound lines 1 and 2, comments and blank lines between
/// them passed over.
std::size_t soundPairs(std::string_view text) {
    std::size_t pairs = 0;
    bool line1IsSound = false;
    for (const std::string_view line : splitLines(text)) {
        const std::string_view start = line.substr(0, 2);
        if (start == "1 ") line1IsSound = isSoundLine(line);
        if (start == "2 " && line1IsSound && isSoundLine(line)) ++pairs;
        if (start == "2 ") line1IsSound = false;
    }
    return pairs;
}

void expectSound(std::string_view text) {
    const ReadElements read = readAll(text);
    EXPECT_LE(read.sets.size(), soundPairs(text)) << text.substr(0, 300);
    for (const ElementSet& set : read.sets) {
        EXPECT_FALSE(set.name.empty());
        EXPECT_TRUE(set.catalogNumber >= 0 && set.catalogNumber <= 339999) << set.catalogNumber;
        EXPECT_TRUE(set.eccentricity >= 0.0 && set.eccentricity < 1.0) << set.eccentricity;
        EXPECT_TRUE(set.inclinationRad >= 0.0 && set.inclinationRad <= pi) << set.inclinationRad;
        EXPECT_TRUE(set.meanMotionRadPerMin > 0.0) << set.meanMotionRadPerMin;
        EXPECT_TRUE(isCalendarTime(set.epoch)) << set.epoch.julianDate();
    }
    looksLikeElementSets(text);
}

/// Files up to this size are cut at every byte; larger ones at random places (the fuzz target goes further).
constexpr std::size_t cutWholly = 20 * 1024;
constexpr int randomCuts = 200;

/// The whole lines around a place: what lies further away can't know of a cut there.
std::pair<std::size_t, std::size_t> linesAround(std::string_view text, std::size_t place) {
    constexpr std::size_t reach = 700;
    const std::size_t begin = place > reach ? text.rfind('\n', place - reach) : std::string_view::npos;
    const std::size_t end = text.find('\n', std::min(text.size(), place + reach));
    return {begin == std::string_view::npos ? 0 : begin + 1,
            end == std::string_view::npos ? text.size() : end + 1};
}

void expectLittleLost(std::string_view text, std::size_t cut, const std::string& file) {
    const std::size_t whole = readAll(text).sets.size();
    const std::size_t before = readAll(text.substr(0, cut)).sets.size();
    const std::size_t behind = readAll(text.substr(cut)).sets.size();
    ASSERT_LE(before + behind, whole) << file << " cut at " << cut;
    ASSERT_GE(before + behind + 1, whole) << file << " cut at " << cut;
}

TEST(HostileElements, FilesCutAnywhereLoseAtMostTheSetThatIsCut) {
    std::mt19937 random(21);
    for (const std::string& file : shippedElementFiles()) {
        const std::string text = shippedText(file);
        const std::string_view view = text;
        if (text.size() > cutWholly) {
            std::uniform_int_distribution<std::size_t> place(0, text.size());
            for (int i = 0; i < randomCuts; ++i) expectLittleLost(view, place(random), file);
            continue;
        }
        for (std::size_t cut = 0; cut <= text.size(); ++cut) {
            const auto [begin, end] = linesAround(view, cut);
            expectLittleLost(view.substr(begin, end - begin), cut - begin, file);
        }
    }
}

TEST(HostileElements, FlippedBitsAreNoticedOrHarmless) {
    std::mt19937 random(22);
    for (const char* file : {"stations.txt", "alpha5.txt", "molniya.txt", "gps-ops.txt", "weather.txt"}) {
        const std::string text = shippedText(file);
        std::uniform_int_distribution<std::size_t> place(0, text.size() - 1);
        for (int i = 0; i < 400; ++i) {
            std::string damaged = text;
            for (int flips = i % 5; flips >= 0; --flips) {
                char& c = damaged[place(random)];
                c = static_cast<char>(static_cast<unsigned char>(c) ^ (1U << (random() % 8U)));
            }
            expectSound(damaged);
        }
    }
}

TEST(HostileElements, SwappedRepeatedAndMissingLinesNeverMakeASetOfStrangers) {
    std::mt19937 random(23);
    const std::string text = shippedText("stations.txt");
    const std::vector<std::string_view> lines = splitLines(text);
    for (int i = 0; i < 1500; ++i) {
        std::vector<std::string_view> shuffled = lines;
        for (int swaps = i % 7; swaps >= 0; --swaps) {
            std::swap(shuffled[random() % lines.size()], shuffled[random() % lines.size()]);
        }
        if (i % 3 == 0) shuffled.erase(shuffled.begin() + static_cast<int>(random() % shuffled.size()));
        if (i % 4 == 0) shuffled.push_back(shuffled[random() % shuffled.size()]);
        std::string joined;
        for (const std::string_view line : shuffled) joined.append(line).append("\n");
        expectSound(joined);
        // Lines of two satellites that meet are used, and told.
        for (const ElementSet& set : readAll(joined).sets) EXPECT_GT(set.catalogNumber, 0);
    }
}

TEST(HostileElements, ColumnsOfRubbishWithRightCheckDigitsAreReadOrRefused) {
    std::mt19937 random(24);
    const std::string text = shippedText("stations.txt");
    const std::vector<std::string_view> lines = splitLines(text);
    const std::string good1(lines[1].substr(0, 69));
    const std::string good2(lines[2].substr(0, 69));
    const std::string_view likely = "0123456789 .+-AIZ\t\r\xFF";
    for (int i = 0; i < 60000; ++i) {
        std::string damaged[2] = {good1, good2};
        for (int changes = i % 4; changes >= 0; --changes) {
            damaged[random() % 2][2 + random() % 66] = likely[random() % likely.size()];
        }
        for (std::string& line : damaged) line[68] = checkDigitOf(line);
        expectSound(damaged[0] + "\n" + damaged[1] + "\n");
    }
}

TEST(HostileElements, EndlessLinesAndRubbishAreGoneThrough) {
    std::mt19937 random(25);
    std::string rubbish(2000000, '\0');
    for (char& c : rubbish) c = static_cast<char>(random());
    expectSound(rubbish);
    expectSound(std::string(3000000, '1'));
    expectSound(std::string(3000000, ' '));
    expectSound(std::string(1000000, '\n'));
    std::string onlyLines1;
    for (int i = 0; i < 5000; ++i) onlyLines1 += std::string("1 25544") + std::string(62, 'U') + "\n";
    const ReadElements read = readAll(onlyLines1);
    EXPECT_TRUE(read.sets.empty());
    EXPECT_EQ(read.remarks.size(), 5000U);
}

}  // namespace
}  // namespace vantrace
