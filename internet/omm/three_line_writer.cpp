#include "internet/omm/three_line_writer.h"

#include <algorithm>
#include <array>
#include <initializer_list>

#include "core/texts.h"
#include "internet/omm/element_columns.h"
#include "internet/omm/epoch_columns.h"
#include "orbit/elements/element_fields.h"
#include "orbit/elements/element_reader.h"

namespace vantrace {

namespace {

using enum MessageField;

/// Why a message can't be had as a set; thrown and caught within this file alone.
struct Refusal {
    std::string reason;
};

[[noreturn]] void refuse(const ElementMessage& message, MessageField field, std::string_view reason) {
    throw Refusal{std::string(keyOf(field)) + " \"" + message[field] + "\" " + std::string(reason)};
}

std::string requireFit(const std::optional<std::string>& columns, const ElementMessage& message,
                       MessageField field) {
    if (!columns) refuse(message, field, "doesn't fit the three-line form");
    return *columns;
}

Decimal numberOf(const ElementMessage& message, MessageField field) {
    if (message[field].empty()) throw Refusal{std::string(keyOf(field)) + " is missing"};
    const auto number = readDecimal(message[field]);
    if (!number) refuse(message, field, "is no number");
    return *number;
}

Decimal numberOrZero(const ElementMessage& message, MessageField field) {
    return message[field].empty() ? Decimal() : numberOf(message, field);
}

std::int64_t scaled(const ElementMessage& message, MessageField field, int decimals,
                    Rounding rounding = Rounding::nearest) {
    const auto value = scaledNumber(numberOf(message, field), decimals, rounding);
    if (!value) refuse(message, field, "doesn't fit the three-line form");
    return *value;
}

/// A whole number of the message that isn't negative; 0 where it isn't told.
std::int64_t count(const ElementMessage& message, MessageField field) {
    const Decimal number = numberOrZero(message, field);
    const auto value = scaledNumber(number, 0);
    const bool isWhole = static_cast<int>(number.digits.find_last_not_of('0') + 1) <= number.exponent;
    if (!value || number.isNegative || !isWhole) refuse(message, field, "is no count");
    return *value;
}

void requireOneOf(const ElementMessage& message, MessageField field,
                  std::initializer_list<std::string_view> accepted) {
    const std::string text = upperCased(message[field]);
    if (!text.empty() && std::ranges::find(accepted, text) == accepted.end()) {
        refuse(message, field, "is not what three-line sets are about");
    }
}

/// Degrees from 0 up to a whole turn, of which the last is written as 0.
std::string angleColumns(const ElementMessage& message, MessageField field) {
    constexpr std::int64_t wholeTurn = 3600000;
    const std::int64_t angle = scaled(message, field, 4);
    if (angle < -wholeTurn || angle > wholeTurn) refuse(message, field, "is out of range");
    return requireFit(fixedColumns((angle + wholeTurn) % wholeTurn, 4, 8), message, field);
}

std::string eccentricityColumns(const ElementMessage& message) {
    const std::int64_t value = scaled(message, eccentricity, 7, Rounding::towardsZero);
    if (numberOf(message, eccentricity).isNegative) refuse(message, eccentricity, "is out of range");
    const auto columns = fixedColumns(value, 7, 9);
    if (!columns || !columns->starts_with("0.")) refuse(message, eccentricity, "is out of range");
    return columns->substr(2);
}

std::string classification(const ElementMessage& message) {
    const std::string& text = message[classificationType];
    return text.size() == 1 && text[0] >= 'A' && text[0] <= 'Z' ? text : "U";
}

std::string ephemerisTypeColumn(const ElementMessage& message) {
    const std::int64_t type = count(message, ephemerisType);
    // From 4 on the elements are for other theories than SGP4.
    if (type > 3) refuse(message, ephemerisType, "is not what three-line sets are about");
    return std::to_string(type);
}

std::string catalogNumber(const ElementMessage& message) {
    if (message[noradCatId].empty()) throw Refusal{std::string(keyOf(noradCatId)) + " is missing"};
    return requireFit(catalogNumberColumns(count(message, noradCatId)), message, noradCatId);
}

std::string epochOf(const ElementMessage& message) {
    const auto columns = epochColumns(message[epoch]);
    if (!columns) refuse(message, epoch, "is no time that the three-line form can tell");
    return *columns;
}

std::string withCheckDigit(std::string line) {
    line += static_cast<char>('0' + checkDigit(line));
    return line;
}

std::string firstLine(const ElementMessage& message) {
    constexpr std::int64_t elementSets = 10000;
    return withCheckDigit(
        "1 " + catalogNumber(message) + classification(message) + " " + designatorColumns(message[objectId]) +
        " " + epochOf(message) + " " +
        requireFit(derivativeColumns(numberOrZero(message, meanMotionDot)), message, meanMotionDot) + " " +
        requireFit(exponentColumns(numberOrZero(message, meanMotionDdot)), message, meanMotionDdot) + " " +
        requireFit(exponentColumns(numberOf(message, bStar)), message, bStar) + " " +
        ephemerisTypeColumn(message) + " " +
        fixedColumns(count(message, elementSetNo) % elementSets, 0, 4).value_or(""));
}

std::string secondLine(const ElementMessage& message) {
    constexpr std::int64_t revolutions = 100000;
    return withCheckDigit(
        "2 " + catalogNumber(message) + " " +
        requireFit(fixedColumns(scaled(message, inclination, 4), 4, 8), message, inclination) + " " +
        angleColumns(message, raOfAscNode) + " " + eccentricityColumns(message) + " " +
        angleColumns(message, argOfPericenter) + " " + angleColumns(message, meanAnomaly) + " " +
        requireFit(fixedColumns(scaled(message, meanMotion, 8), 8, 11), message, meanMotion) +
        fixedColumns(count(message, revAtEpoch) % revolutions, 0, 5).value_or(""));
}

/// Without control characters, which no name has.
std::string plainName(const ElementMessage& message) {
    constexpr std::size_t longest = 68;
    std::string name = message[objectName];
    std::ranges::replace_if(
        name, [](char c) { return (c >= 0 && c < ' ') || c == 0x7f; }, ' ');
    return std::string(trimmed(trimmed(name).substr(0, longest)));
}

std::string nameLine(const ElementMessage& message) {
    constexpr std::size_t width = 24;
    std::string name = plainName(message);
    if (name.empty()) name = std::to_string(count(message, noradCatId));
    const bool beginsLikeLine = std::string_view("012").find(name[0]) != std::string_view::npos &&
                                (name.size() == 1 || name[1] == ' ');
    if (beginsLikeLine || name[0] == '#') name.insert(0, "0 ");
    return name + std::string(width - std::min(width, name.size()), ' ');
}

std::string setText(const ElementMessage& message) {
    requireOneOf(message, centerName, {"EARTH"});
    requireOneOf(message, refFrame, {"TEME", "TEME OF DATE", "TEMEOFDATE"});
    requireOneOf(message, timeSystem, {"UTC"});
    requireOneOf(message, meanElementTheory, {"SGP4", "SGP/SGP4", "SGP"});
    const std::string line1 = firstLine(message);
    const std::string line2 = secondLine(message);
    // The last word is the engine's, which is to read them.
    const ElementParse parse = parseElementLines({line1, line2});
    if (!parse.reason.empty()) throw Refusal{parse.reason};
    return nameLine(message) + "\r\n" + line1 + "\r\n" + line2 + "\r\n";
}

}  // namespace

ThreeLineSet makeThreeLineSet(const ElementMessage& message) {
    try {
        return {setText(message), {}};
    } catch (const Refusal& refusal) {
        return {{}, plainName(message) + " (" + message[noradCatId] + "): " + refusal.reason};
    }
}

}  // namespace vantrace
