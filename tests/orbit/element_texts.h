// Element sets for tests: the shipped files, and sets put together by hand.
#pragma once

#include <cstddef>
#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

#include "orbit/elements/element_reader.h"
#include "orbit/elements/element_set.h"
#include "tests/support/testing.h"

namespace vantrace {

/// The folder of the element files that ship with the program.
std::filesystem::path shippedFolder();
/// Names of the shipped element files.
Texts shippedElementFiles();
std::string shippedText(const std::string& file);
/// The first set of that name; fails the test by an exception where there is none.
ElementSet shippedSet(const std::string& file, std::string_view name);
/// A file of the published verification cases.
std::string verificationText(const std::string& file);

struct ReadElements {
    std::vector<ElementSet> sets;
    std::vector<ElementRemark> remarks;
};
ReadElements readAll(std::string_view text);

/// Sum of the digits of the first 68 columns, a minus counting 1, modulo 10: the test's own arithmetic.
char checkDigitOf(std::string_view line);
/// The line with other text from a column on (counted from 1) and its check digit made right again.
std::string withColumns(std::string line, std::size_t firstColumn, std::string_view text);

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
std::string elementText(const MadeSet& made);
ElementSet madeElements(const MadeSet& made);

}  // namespace vantrace
