// Element sets for tests: the shipped files, and sets put together by hand.
#pragma once

#include <cstdio>

#include "orbit/elements/element_reader.h"
#include "orbit/elements/element_set.h"
#include "platform/text_file.h"
#include "tests/support/testing.h"

namespace vantrace {

/// The folder of the element files that ship with the program.
inline std::filesystem::path shippedFolder() {
    return VANTRACE_SHIPPED_FOLDER;
}

inline Texts shippedElementFiles() {
    Texts names;
    for (const auto& entry : std::filesystem::directory_iterator(shippedFolder())) {
        const std::string name = entry.path().filename().string();
        const bool isProse = name == "SOURCES.txt" || name == "CMakeLists.txt" || name == "history.txt";
        if (name.ends_with(".txt") && !isProse) names.push_back(name);
    }
    std::ranges::sort(names);
    return names;
}

inline std::string shippedText(const std::string& file) {
    return readTextFile(shippedFolder() / file, std::numeric_limits<std::size_t>::max());
}

/// A file of the published verification cases.
inline std::string verificationText(const std::string& file) {
    return readTextFile(std::filesystem::path(VANTRACE_VERIFICATION_FOLDER) / file,
                        std::numeric_limits<std::size_t>::max());
}

struct ReadElements {
    std::vector<ElementSet> sets;
    std::vector<ElementRemark> remarks;
};
inline ReadElements readAll(std::string_view text) {
    ReadElements result;
    readElementSets(text,
                    {[&result](ElementSet&& set) { result.sets.push_back(std::move(set)); },
                     [&result](ElementRemark&& remark) { result.remarks.push_back(std::move(remark)); }});
    return result;
}

/// The first set of that name; fails the test by an exception where there is none.
inline ElementSet shippedSet(const std::string& file, std::string_view name) {
    for (ElementSet& set : readAll(shippedText(file)).sets) {
        if (set.name == name) return std::move(set);
    }
    throw std::runtime_error(file + " holds no " + std::string(name));
}

/// Sum of the digits of the first 68 columns, a minus counting 1, modulo 10: the test's own arithmetic.
inline char checkDigitOf(std::string_view line) {
    int sum = 0;
    for (std::size_t i = 0; i < 68 && i < line.size(); ++i) {
        if (line[i] >= '0' && line[i] <= '9') sum += line[i] - '0';
        if (line[i] == '-') ++sum;
    }
    return static_cast<char>('0' + sum % 10);
}

/// The line with other text from a column on (counted from 1) and its check digit made right again.
inline std::string withColumns(std::string line, std::size_t firstColumn, std::string_view text) {
    line.replace(firstColumn - 1, text.size(), text);
    line[68] = checkDigitOf(line);
    return line;
}

/// What tests vary in a set of their own.
struct MadeSet {
    std::string name = "MADE";
    int number = 90001;
    std::string epoch = "26233.50000000";  ///< 2026-08-21 12:00 UTC
    std::string bStar = " 00000+0";
    double inclinationDeg = 51.6;
    double nodeDeg = 0.0;
    double eccentricity = 0.0005;
    double perigeeDeg = 0.0;
    double meanAnomalyDeg = 0.0;
    double turnsPerDay = 15.5;
    int revolution = 100;
};
/// Name line, line 1 and line 2, each ended by LF.
inline std::string elementText(const MadeSet& made) {
    std::array<char, 128> line1{};
    std::array<char, 128> line2{};
    std::snprintf(line1.data(), line1.size(), "1 %05dU 26001A   %s  .00000000  00000+0 %s 0  999 ",
                  made.number, made.epoch.c_str(), made.bStar.c_str());
    std::snprintf(line2.data(), line2.size(), "2 %05d %8.4f %8.4f %07.0f %8.4f %8.4f %11.8f%5d ", made.number,
                  made.inclinationDeg, made.nodeDeg, made.eccentricity * 1e7, made.perigeeDeg,
                  made.meanAnomalyDeg, made.turnsPerDay, made.revolution);
    return made.name + "\n" + withColumns(line1.data(), 1, "1") + "\n" + withColumns(line2.data(), 1, "2") +
           "\n";
}

inline ElementSet madeElements(const MadeSet& made) {
    ReadElements read = readAll(elementText(made));
    if (read.sets.size() != 1) {
        throw std::runtime_error(read.remarks.empty() ? "no set" : read.remarks.front().reason);
    }
    return std::move(read.sets.front());
}

}  // namespace vantrace
