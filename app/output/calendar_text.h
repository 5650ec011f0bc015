// Events as an iCalendar object (RFC 5545).
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "orbit/instant.h"

namespace vantrace {

struct CalendarEvent {
    /// The same whenever the same event is written. Of events with one identifier the first is written.
    std::string uid;
    Instant start;
    /// An event that ends with its start has no end.
    Instant end;
    /// Printable; line feeds stand for line ends.
    std::string summary;
    std::string description;
    std::string location;
};

/// The whole object: lines ended by CR LF and folded at 75 bytes, texts escaped, times in UTC to the second.
/// `stamp` is when it was made.
std::string calendarText(const std::vector<CalendarEvent>& events, const Instant& stamp);

/// One content line with its end, folded between characters.
std::string foldedLine(std::string_view line);

}  // namespace vantrace
