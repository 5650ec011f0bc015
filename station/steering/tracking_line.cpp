#include "station/steering/tracking_line.h"

#include <charconv>
#include <cmath>
#include <limits>

namespace vantrace {

namespace {

constexpr double mostFrequencyHz = 1e12;
constexpr double mostDopplerHz = 1e8;

bool isNameSign(char sign) {
    const auto code = static_cast<unsigned char>(sign);
    return code > ' ' && code != 0x7F;
}

/// Digits with a sign, decimals and an exponent, as the tracker writes them; nothing else may stand there.
std::optional<double> number(std::string text, bool mayHaveComma) {
    const std::size_t comma = text.find(',');
    if (comma != std::string::npos) {
        if (!mayHaveComma) return std::nullopt;
        text[comma] = '.';
    }
    // from_chars takes "inf" and "nan", and no "+" in front of the digits of an exponent that to_chars lacks.
    if (text.find_first_not_of("0123456789.-+E") != std::string::npos) return std::nullopt;
    double value = 0.0;
    const char* const end = text.data() + text.size();
    const std::from_chars_result read = std::from_chars(text.data(), end, value);
    if (read.ec != std::errc() || read.ptr != end) return std::nullopt;
    return value;
}

/// Takes the words of a line one after the other.
class Words {
  public:
    explicit Words(std::string_view text) : m_rest(text) {}

    /// What stands behind the key in the next word.
    std::optional<std::string> take(std::string_view key) {
        const std::size_t end = std::min(m_rest.find(' '), m_rest.size());
        const std::string_view word = m_rest.substr(0, end);
        if (m_isDone || !word.starts_with(key)) return std::nullopt;
        m_isDone = end == m_rest.size();
        m_rest.remove_prefix(std::min(end + 1, m_rest.size()));
        return std::string(word.substr(key.size()));
    }
    bool nextIs(std::string_view key) const { return !m_isDone && m_rest.starts_with(key); }
    bool isDone() const { return m_isDone; }

  private:
    std::string_view m_rest;
    bool m_isDone = false;
};

struct Range {
    double least;
    double most;
};

/// Reads the next word as a number of that range; says in `fault` what is wrong, where nothing was before.
double takeNumber(Words& words, std::string_view key, const Range& range, bool mayHaveComma,
                  std::string& fault) {
    if (!fault.empty()) return 0.0;
    const std::optional<std::string> text = words.take(key);
    const std::optional<double> value = text ? number(*text, mayHaveComma) : std::nullopt;
    if (!text) {
        fault = "there is no " + std::string(key) + " where it should be";
    } else if (!value) {
        fault = std::string(key) + " is no number";
    } else if (!(*value >= range.least && *value <= range.most)) {
        fault = std::string(key) + " is beyond its range";
    }
    return fault.empty() ? *value : 0.0;
}

/// A frequency that no radio has is none, and the antenna follows all the same.
double takeFrequency(Words& words, std::string_view key, std::string& fault) {
    constexpr double anything = std::numeric_limits<double>::max();
    const double hertz = takeNumber(words, key, {-anything, anything}, false, fault);
    return hertz >= 0.0 && hertz <= mostFrequencyHz ? hertz : 0.0;
}

}  // namespace

std::optional<TrackingLine> readTrackingLine(std::string_view text, std::string& fault) {
    fault.clear();
    if (text.size() > longestTrackingLine) {
        fault = "it is too long";
        return std::nullopt;
    }
    Words words(text);
    TrackingLine line;
    line.name = words.take("SN").value_or("");
    if (line.name.empty() || !std::ranges::all_of(line.name, isNameSign)) {
        fault = "there is no name behind SN";
        return std::nullopt;
    }
    line.direction.azimuthDeg = takeNumber(words, "AZ", {0.0, 360.0}, true, fault);
    line.direction.elevationDeg = takeNumber(words, "EL", {-90.0, 90.0}, true, fault);
    line.isMoon = line.name == "moon" && words.nextIs("DO");
    if (!line.isMoon) {
        line.uplinkHz = takeFrequency(words, "UP", fault);
        line.downlinkHz = takeFrequency(words, "DN", fault);
    }
    line.dopplerHzAt100MHz = takeNumber(words, "DO", {-mostDopplerHz, mostDopplerHz}, true, fault);
    if (fault.empty() && !words.isDone()) fault = "something follows its end";
    if (!fault.empty()) return std::nullopt;
    // What rounds up to a whole turn is north.
    line.direction.azimuthDeg = std::fmod(line.direction.azimuthDeg, 360.0);
    return line;
}

std::string shownLine(std::string_view text) {
    constexpr std::size_t shownBytes = 100;
    std::string shown(text.substr(0, shownBytes));
    for (char& sign : shown) {
        if (sign < ' ' || sign > '~') sign = '?';
    }
    return text.size() > shownBytes ? shown + "..." : shown;
}

}  // namespace vantrace
