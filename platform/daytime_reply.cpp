#include "platform/daytime_reply.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cstdlib>
#include <string>
#include <utility>
#include <vector>

#include "platform/ascii.h"

namespace vantrace {

namespace {

using namespace std::chrono;
using namespace std::chrono_literals;

/// A run of digits or of capital letters, or one other sign.
struct Word {
    std::string text;
    /// Follows the word before without a blank.
    bool isJoined = false;

    bool isNumber() const { return isDigit(text.front()); }
    bool isName() const { return isLetter(text.front()); }
    bool is(std::string_view other) const { return text == other; }
    /// -1 for what is no number of at most five digits.
    int number() const {
        int value = -1;
        if (isNumber() && text.size() <= 5) std::from_chars(text.data(), text.data() + text.size(), value);
        return value;
    }
};

/// Nothing for a line with signs that don't belong there.
std::optional<std::vector<Word>> wordsOf(std::string_view line) {
    std::vector<Word> words;
    bool isAfterBlank = true;
    for (const char sign : line) {
        if (sign == ' ' || sign == '\t') {
            isAfterBlank = true;
            continue;
        }
        if (sign < ' ' || sign > '~') return std::nullopt;
        const char capital = sign >= 'a' && sign <= 'z' ? static_cast<char>(sign - 'a' + 'A') : sign;
        const bool continues =
            !isAfterBlank && !words.empty() &&
            ((isDigit(sign) && words.back().isNumber()) || (isLetter(sign) && words.back().isName()));
        if (continues) {
            words.back().text += capital;
        } else {
            words.push_back({std::string(1, capital), !isAfterBlank});
        }
        isAfterBlank = false;
    }
    return words;
}

std::string_view firstLine(std::string_view text) {
    const std::size_t start = text.find_first_not_of("\r\n \t");
    if (start == std::string_view::npos) return {};
    return text.substr(start, text.find_first_of("\r\n", start) - start);
}

/// 1 to 12; 0 for what is no name of a month, or shorter than three letters.
unsigned monthOf(std::string_view name) {
    constexpr std::array<std::string_view, 12> months{"JANUARY",   "FEBRUARY", "MARCH",    "APRIL",
                                                      "MAY",       "JUNE",     "JULY",     "AUGUST",
                                                      "SEPTEMBER", "OCTOBER",  "NOVEMBER", "DECEMBER"};
    const auto month = std::ranges::find_if(
        months, [&](std::string_view full) { return name.size() >= 3 && full.starts_with(name); });
    return month == months.end() ? 0 : static_cast<unsigned>(month - months.begin()) + 1;
}

bool isWeekday(std::string_view name) {
    constexpr std::array<std::string_view, 7> days{"MONDAY", "TUESDAY",  "WEDNESDAY", "THURSDAY",
                                                   "FRIDAY", "SATURDAY", "SUNDAY"};
    return name == "THUS" || std::ranges::any_of(days, [&](std::string_view full) {
               return name.size() >= 3 && full.starts_with(name);
           });
}

struct Zone {
    std::string_view name;
    int aheadHours;
};

/// The zones of RFC 822 and those of Europe. A name that stands for several zones isn't among them.
constexpr std::array zones{
    Zone{"UTC", 0},  Zone{"UCT", 0},  Zone{"GMT", 0},  Zone{"UT", 0},   Zone{"Z", 0},    Zone{"EST", -5},
    Zone{"EDT", -4}, Zone{"CST", -6}, Zone{"CDT", -5}, Zone{"MST", -7}, Zone{"MDT", -6}, Zone{"PST", -8},
    Zone{"PDT", -7}, Zone{"WET", 0},  Zone{"WEST", 1}, Zone{"CET", 1},  Zone{"CEST", 2}, Zone{"MET", 1},
    Zone{"MEST", 2}, Zone{"EET", 2},  Zone{"EEST", 3}, Zone{"MSK", 3},  Zone{"JST", 9},
};

/// What has been read of a date and time; -1 is not there yet.
struct Parts {
    int year = -1;
    int month = -1;
    int day = -1;
    int hour = -1;
    int minute = -1;
    int second = -1;
    std::optional<milliseconds> fraction;
    std::optional<minutes> zone;
    /// "AM" or "PM" has been read.
    bool isOfTwelveHours = false;
    /// It isn't said which of the two is the month.
    bool mayBeSwapped = false;
};

std::optional<DaytimeReply> plainReplyOf(const Parts& parts) {
    constexpr milliseconds unknownFraction{500};
    // The types of the calendar hold one byte and take 257 for January.
    if (parts.month < 1 || parts.month > 12 || parts.day < 1 || parts.day > 31) return std::nullopt;
    const year_month_day date{year{parts.year}, month{static_cast<unsigned>(parts.month)},
                              day{static_cast<unsigned>(parts.day)}};
    const bool isGood = date.ok() && parts.year >= 2020 && parts.year <= 2099 && parts.hour >= 0 &&
                        parts.hour <= 23 && parts.minute >= 0 && parts.minute <= 59 && parts.second >= 0 &&
                        parts.second <= 60 && abs(parts.zone.value_or(0min)) <= hours{14};
    if (!isGood) return std::nullopt;
    return DaytimeReply{local_days{date} + hours{parts.hour} + minutes{parts.minute} + seconds{parts.second} +
                            parts.fraction.value_or(unknownFraction),
                        parts.zone, std::nullopt};
}

std::optional<DaytimeReply> replyOf(const Parts& parts) {
    std::optional<DaytimeReply> reply = plainReplyOf(parts);
    if (!parts.mayBeSwapped) return reply;
    Parts swapped = parts;
    std::swap(swapped.day, swapped.month);
    const std::optional<DaytimeReply> other = plainReplyOf(swapped);
    if (!reply) return other;
    if (other && other->time != reply->time) reply->otherTime = other->time;
    return reply;
}

/// Goes through the words of a line.
class DaytimeReader {
  public:
    explicit DaytimeReader(const std::vector<Word>& words) : m_words(words) {}

    std::optional<DaytimeReply> nist();
    std::optional<DaytimeReply> free();

  private:
    bool has(std::size_t count) const { return m_at + count <= m_words.size(); }
    const Word& word(std::size_t ahead = 0) const { return m_words[m_at + ahead]; }
    /// Three numbers with a sign between them, and nothing else.
    bool isTriple(std::string_view sign) const;
    bool takeTime();
    bool takeDashedDate();
    bool takeSlashedDate();
    bool takeHalfOfDay();
    bool takeOffset();
    bool takeName();
    bool takeNumber();

    const std::vector<Word>& m_words;
    std::size_t m_at = 0;
    Parts m_parts;
};

bool DaytimeReader::isTriple(std::string_view sign) const {
    return has(5) && word(0).isNumber() && word(1).is(sign) && word(2).isNumber() && word(3).is(sign) &&
           word(4).isNumber() && word(1).isJoined && word(2).isJoined && word(3).isJoined && word(4).isJoined;
}

bool DaytimeReader::takeTime() {
    if (!isTriple(":") || m_parts.hour >= 0) return false;
    m_parts.hour = word(0).number();
    m_parts.minute = word(2).number();
    m_parts.second = word(4).number();
    m_at += 5;
    if (has(2) && word().is(".") && word().isJoined && word(1).isNumber() && word(1).isJoined) {
        const std::string digits = (word(1).text + "00").substr(0, 3);
        m_parts.fraction = milliseconds{std::atoi(digits.c_str())};
        m_at += 2;
    }
    return true;
}

bool DaytimeReader::takeDashedDate() {
    if (!isTriple("-") || word().text.size() != 4 || m_parts.year >= 0) return false;
    m_parts.year = word(0).number();
    m_parts.month = word(2).number();
    m_parts.day = word(4).number();
    m_at += 5;
    if (has(2) && word().is("T") && word().isJoined && word(1).isNumber()) ++m_at;
    return true;
}

/// "11/23/2023", "23/11/2023", "11/23/23".
bool DaytimeReader::takeSlashedDate() {
    const bool isDate = isTriple("/") && m_parts.year < 0 && m_parts.month < 0 && m_parts.day < 0 &&
                        word(0).text.size() <= 2 && word(2).text.size() <= 2 &&
                        (word(4).text.size() == 4 || word(4).text.size() == 2);
    if (!isDate) return false;
    m_parts.month = word(0).number();
    m_parts.day = word(2).number();
    m_parts.year = word(4).number() + (word(4).text.size() == 2 ? 2000 : 0);
    m_parts.mayBeSwapped = true;
    m_at += 5;
    return true;
}

/// "AM", "PM"; only behind the time.
bool DaytimeReader::takeHalfOfDay() {
    const bool isHalf = (word().is("AM") || word().is("PM")) && m_parts.hour >= 1 && m_parts.hour <= 12 &&
                        !m_parts.isOfTwelveHours;
    if (!isHalf) return false;
    m_parts.hour = m_parts.hour % 12 + (word().is("PM") ? 12 : 0);
    m_parts.isOfTwelveHours = true;
    ++m_at;
    return true;
}

/// "+0100", "+01:00", "+01"; only behind the time.
bool DaytimeReader::takeOffset() {
    const bool isOffset = has(2) && (word().is("+") || word().is("-")) && word(1).isNumber() &&
                          word(1).isJoined && (word(1).text.size() == 2 || word(1).text.size() == 4) &&
                          m_parts.hour >= 0 && !m_parts.zone;
    if (!isOffset) return false;
    const int sign = word().is("-") ? -1 : 1;
    int ahead = word(1).number();
    if (word(1).text.size() == 4) {
        ahead = ahead / 100 * 60 + ahead % 100;
    } else {
        ahead *= 60;
        if (has(4) && word(2).is(":") && word(3).isNumber() && word(3).text.size() == 2) {
            ahead += word(3).number();
            m_at += 2;
        }
    }
    m_at += 2;
    m_parts.zone = minutes{sign * ahead};
    return true;
}

bool DaytimeReader::takeName() {
    const std::string& name = word().text;
    if (const unsigned month = monthOf(name); month > 0 && m_parts.month < 0) {
        m_parts.month = static_cast<int>(month);
    } else if (const auto zone = std::ranges::find(zones, name, &Zone::name);
               zone != zones.end() && m_parts.hour >= 0 && !m_parts.zone) {
        m_parts.zone = hours{zone->aheadHours};
    } else if (!isWeekday(name)) {
        return false;
    }
    ++m_at;
    return true;
}

bool DaytimeReader::takeNumber() {
    const int number = word().number();
    if (word().text.size() == 4 && m_parts.year < 0) {
        m_parts.year = number;
    } else if (word().text.size() <= 2 && m_parts.day < 0) {
        m_parts.day = number;
    } else if (word().text.size() == 2 && m_parts.year < 0) {
        m_parts.year = 2000 + number;
    } else {
        return false;
    }
    ++m_at;
    return true;
}

/// MJD, date, time, daylight-saving days, leap second, health, advance in milliseconds, label, mark.
std::optional<DaytimeReply> DaytimeReader::nist() {
    if (!has(20) || word().text.size() != 5 || !word().isNumber()) return std::nullopt;
    ++m_at;
    if (!isTriple("-") || word().text.size() != 2) return std::nullopt;
    m_parts.year = 2000 + word(0).number();
    m_parts.month = word(2).number();
    m_parts.day = word(4).number();
    m_at += 5;
    if (!takeTime() || !has(8)) return std::nullopt;
    const bool isWell = word(0).isNumber() && word(1).isNumber() && word(2).is("0");
    const bool isUtc = word(3).isNumber() && word(4).is(".") && word(5).isNumber() && word(6).is("UTC");
    if (!isWell || !isUtc || word(3).text.size() > 3) return std::nullopt;
    m_parts.zone = minutes{0};
    m_parts.fraction = milliseconds{0};
    std::optional<DaytimeReply> reply = replyOf(m_parts);
    if (reply) reply->time -= milliseconds{word(3).number()};
    return reply;
}

std::optional<DaytimeReply> DaytimeReader::free() {
    while (has(1)) {
        const bool isMark = word().is(",") || (word().is("-") && m_parts.hour < 0) ||
                            (word().is("-") && has(2) && word(1).isName());
        if (isMark) {
            ++m_at;
        } else if (!takeTime() && !takeDashedDate() && !takeSlashedDate() && !takeOffset() &&
                   !takeHalfOfDay() && !(word().isName() && takeName()) &&
                   !(word().isNumber() && takeNumber())) {
            return std::nullopt;
        }
    }
    return replyOf(m_parts);
}

}  // namespace

std::optional<DaytimeReply> readDaytimeReply(std::string_view text) {
    const std::optional<std::vector<Word>> words = wordsOf(firstLine(text));
    if (!words || words->empty()) return std::nullopt;
    if (const auto reply = DaytimeReader(*words).nist()) return reply;
    return DaytimeReader(*words).free();
}

UtcTime instantOf(const DaytimeReply& reply, UtcTime machine, std::chrono::minutes machineAheadOfUtc) {
    const auto distance = [&](UtcTime time) { return time > machine ? time - machine : machine - time; };
    std::optional<UtcTime> nearest;
    for (const auto& time : {std::optional(reply.time), reply.otherTime}) {
        if (!time) continue;
        const UtcTime asUtc{time->time_since_epoch()};
        // Of two that are as near, the one that comes first.
        for (const minutes ahead :
             {reply.aheadOfUtc.value_or(machineAheadOfUtc), reply.aheadOfUtc.value_or(0min)}) {
            const UtcTime instant = asUtc - ahead;
            if (!nearest || distance(instant) < distance(*nearest)) nearest = instant;
        }
    }
    return *nearest;
}

}  // namespace vantrace
