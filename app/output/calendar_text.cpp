#include "app/output/calendar_text.h"

#include <array>
#include <cstdio>
#include <set>

#include "app/program/program_name.h"

namespace vantrace {

namespace {

/// Section 3.3.11 of the RFC.
std::string escaped(std::string_view text) {
    std::string result;
    for (const char sign : text) {
        if (sign == '\n') {
            result += "\\n";
            continue;
        }
        if (sign == '\\' || sign == ';' || sign == ',') result += '\\';
        result += sign;
    }
    return result;
}

/// "20260821T203000Z".
std::string timeText(const Instant& time) {
    const CalendarTime parts = calendarTime(time, 0);
    std::array<char, 32> text{};
    std::snprintf(text.data(), text.size(), "%04d%02d%02dT%02d%02d%02.0fZ", parts.year, parts.month,
                  parts.day, parts.hour, parts.minute, parts.second);
    return text.data();
}

void addEvent(std::string& text, const CalendarEvent& event, const std::string& stamp) {
    text += foldedLine("BEGIN:VEVENT");
    text += foldedLine("UID:" + escaped(event.uid));
    text += foldedLine("DTSTAMP:" + stamp);
    text += foldedLine("DTSTART:" + timeText(event.start));
    const std::string end = timeText(event.end);
    if (end != timeText(event.start)) text += foldedLine("DTEND:" + end);
    text += foldedLine("SUMMARY:" + escaped(event.summary));
    if (!event.description.empty()) text += foldedLine("DESCRIPTION:" + escaped(event.description));
    if (!event.location.empty()) text += foldedLine("LOCATION:" + escaped(event.location));
    // Nobody is busy while a satellite passes.
    text += foldedLine("TRANSP:TRANSPARENT");
    text += foldedLine("END:VEVENT");
}

}  // namespace

std::string foldedLine(std::string_view line) {
    constexpr std::size_t mostBytes = 75;
    const auto isInsideCharacter = [&](std::size_t place) {
        return place < line.size() && (static_cast<unsigned char>(line[place]) & 0xC0U) == 0x80U;
    };
    std::string result;
    std::size_t room = mostBytes;
    while (line.size() > room) {
        std::size_t length = room;
        while (length > 1 && isInsideCharacter(length)) --length;
        result += line.substr(0, length);
        result += "\r\n ";
        line.remove_prefix(length);
        // The blank at the start of the next line counts.
        room = mostBytes - 1;
    }
    result += line;
    return result + "\r\n";
}

std::string calendarText(const std::vector<CalendarEvent>& events, const Instant& stamp) {
    std::string text = foldedLine("BEGIN:VCALENDAR");
    text += foldedLine("VERSION:2.0");
    text += foldedLine("PRODID:-//Vantrace//" + std::string(programName) + "//EN");
    text += foldedLine("CALSCALE:GREGORIAN");
    text += foldedLine("METHOD:PUBLISH");
    std::set<std::string_view> written;
    for (const CalendarEvent& event : events) {
        if (written.insert(event.uid).second) addEvent(text, event, timeText(stamp));
    }
    return text + foldedLine("END:VCALENDAR");
}

}  // namespace vantrace
