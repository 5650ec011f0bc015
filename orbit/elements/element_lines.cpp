#include <cmath>
#include <string>

#include "orbit/elements/element_fields.h"
#include "orbit/elements/element_reader.h"

namespace vantrace {

namespace {

/// Why a line can't be used; thrown and caught within this file alone.
struct BadField {
    int line;
    std::string reason;
};

[[noreturn]] void fail(int line, std::string_view what, std::string_view text) {
    throw BadField{line, std::string(what) + " is wrong: \"" + std::string(text) + "\""};
}

double required(const std::optional<double>& value, int line, std::string_view what, std::string_view text) {
    if (!value) {
        fail(line, what, text);
    }
    return *value;
}

double inRange(double value, double low, double high, int line, std::string_view what,
               std::string_view text) {
    if (!(value >= low && value <= high)) {
        throw BadField{line, std::string(what) + " is out of range: \"" + std::string(text) + "\""};
    }
    return value;
}

double decimal(std::string_view line, int number, std::size_t first, std::size_t last, double low,
               double high, std::string_view what) {
    const std::string_view text = columns(line, first, last);
    return inRange(required(decimalField(text), number, what, text), low, high, number, what, text);
}

void checkShape(std::string_view line, int number) {
    constexpr std::size_t length = 69;
    if (line.size() < length) {
        throw BadField{number, "line " + std::to_string(number) + " has " + std::to_string(line.size()) +
                                   " characters instead of 69"};
    }
    if (line.size() > length && line[length] != ' ') {
        throw BadField{number, "line " + std::to_string(number) + " goes on behind column 69"};
    }
    const char digit = line[length - 1];
    const int wanted = checkDigit(line);
    if (digit != static_cast<char>('0' + wanted)) {
        throw BadField{number, "check digit of line " + std::to_string(number) + " is '" +
                                   std::string(1, digit) + "', should be " + std::to_string(wanted)};
    }
    // The gaps between the fields: one that is filled means shifted columns.
    for (const std::size_t gap : {std::size_t{2}, number == 1 ? std::size_t{9} : std::size_t{8}}) {
        if (line[gap - 1] != ' ') {
            throw BadField{number, "column " + std::to_string(gap) + " of line " + std::to_string(number) +
                                       " is not blank"};
        }
    }
}

std::int32_t catalogNumber(std::string_view line, int number) {
    const std::string_view text = columns(line, 3, 7);
    const std::int32_t value = parseCatalogNumber(text);
    if (value < 0) {
        fail(number, "catalogue number", text);
    }
    return value;
}

Instant epoch(std::string_view line) {
    const std::string_view yearText = columns(line, 19, 20);
    const auto year = integerField(yearText);
    if (!year || yearText.find(' ') != std::string_view::npos) {
        fail(1, "epoch year", yearText);
    }
    // Two digits reach from 1957, the first satellite, to 2056.
    constexpr int firstYearOfSpace = 57;
    const int fullYear = *year < firstYearOfSpace ? 2000 + *year : 1900 + *year;
    const bool leap = (fullYear % 4 == 0 && fullYear % 100 != 0) || fullYear % 400 == 0;
    const double dayOfYear = decimal(line, 1, 21, 32, 1.0, leap ? 366.99999999 : 365.99999999, "epoch day");
    return instantFromJulianDate(julianDateOfMidnight(fullYear, 1, 1), dayOfYear - 1.0);
}

double exponent(std::string_view line, std::size_t first, std::size_t last, std::string_view what) {
    const std::string_view text = columns(line, first, last);
    return required(exponentField(text), 1, what, text);
}

void readLine1(std::string_view line, ElementSet& set) {
    set.catalogNumber = catalogNumber(line, 1);
    set.epoch = epoch(line);
    decimal(line, 1, 34, 43, -10.0, 10.0, "first derivative of the mean motion");
    exponent(line, 45, 52, "second derivative of the mean motion");
    set.bStar = exponent(line, 54, 61, "drag term");
}

void readLine2(std::string_view line, ElementSet& set) {
    const auto angle = [line](std::size_t first, std::size_t last, double high, std::string_view what) {
        return decimal(line, 2, first, last, 0.0, high, what) * radiansPerDegree;
    };
    set.inclinationRad = angle(9, 16, 180.0, "inclination");
    set.rightAscensionRad = angle(18, 25, 360.0, "right ascension of the node");
    const std::string_view eccentricity = columns(line, 27, 33);
    set.eccentricity = required(assumedPointField(eccentricity), 2, "eccentricity", eccentricity);
    set.argumentOfPerigeeRad = angle(35, 42, 360.0, "argument of perigee");
    set.meanAnomalyRad = angle(44, 51, 360.0, "mean anomaly");
    // 17.1 turns a day skim the ground; a set that goes round less than never has no position.
    const double turnsPerDay = decimal(line, 2, 53, 63, 1.0e-8, 20.0, "mean motion");
    set.meanMotionRadPerMin = turnsPerDay * twoPi / minutesPerDay;
    const std::string_view revolution = columns(line, 64, 68);
    const auto number = integerField(revolution);
    if (!number) {
        fail(2, "revolution number", revolution);
    }
    set.revolutionNumber = *number;
}

}  // namespace

std::int32_t parseCatalogNumber(std::string_view fiveColumns) {
    if (fiveColumns.size() != 5) {
        return -1;
    }
    const char first = fiveColumns.front();
    if (first >= 'A' && first <= 'Z') {
        if (first == 'I' || first == 'O') {
            return -1;
        }
        const int skipped = (first > 'I' ? 1 : 0) + (first > 'O' ? 1 : 0);
        const std::string_view rest = fiveColumns.substr(1);
        const auto number = integerField(rest);
        const bool allDigits = rest.find(' ') == std::string_view::npos;
        return number && allDigits ? (first - 'A' + 10 - skipped) * 10000 + *number : -1;
    }
    const auto number = integerField(fiveColumns);
    const bool blank = fiveColumns.find_first_not_of(' ') == std::string_view::npos;
    return number && !blank ? *number : -1;
}

ElementParse parseElementLines(const ElementLines& lines) {
    ElementParse parse;
    try {
        checkShape(lines.line1, 1);
        checkShape(lines.line2, 2);
        readLine1(lines.line1, parse.set);
        readLine2(lines.line2, parse.set);
        parse.mismatch = catalogNumber(lines.line2, 2) != parse.set.catalogNumber;
    } catch (const BadField& bad) {
        parse.reason = bad.reason;
        parse.wrongLine = bad.line;
    }
    return parse;
}

}  // namespace vantrace
