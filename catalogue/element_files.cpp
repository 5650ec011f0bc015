#include "catalogue/element_files.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <filesystem>
#include <optional>
#include <stdexcept>

#include "catalogue/data_files.h"
#include "core/date_time.h"
#include "core/error_label.h"
#include "core/files.h"
#include "core/labels.h"
#include "core/numbers.h"
#include "core/program_state.h"
#include "core/services.h"
#include "core/texts.h"
#include "platform/file_replacement.h"
#include "platform/text_file.h"

namespace vantrace {

namespace {

constexpr std::size_t epochYearColumn = 19;
constexpr std::size_t epochDayColumn = 21;

/// A line as it is quoted in an error.
std::string quoted(std::string_view line) {
    return " \"" + std::string(line.substr(0, 80)) + "\"";
}

bool isLine1WithEpoch(std::string_view line) {
    constexpr std::ptrdiff_t epochWidth = 14;
    return line.starts_with("1 ") && numberValue(columnsFrom(line, epochYearColumn, epochWidth)) != 0.0;
}

constexpr std::string_view gpsStart = "GPS ";
constexpr std::string_view prnStart = "(PRN";

/// "GPS PRN 32" of "GPS BIIA-10 (PRN 32)".
std::string shortGpsName(std::string_view line) {
    const std::size_t open = line.find(prnStart);
    const std::size_t close = line.find(')', open);
    if (close == std::string_view::npos) {
        throw std::invalid_argument("no \")\" after \"(PRN\" in the name" + quoted(line));
    }
    return std::string(gpsStart) + std::string(line.substr(open + 1, close - open - 1));
}

/// All lines with their names made short. A name that can't be made short stays; the first one is logged, so
/// that a broken file doesn't fill the log. Nothing where the file was converted before.
std::optional<std::string> withShortNames(std::string_view text, ErrorLabel& label) {
    std::string result;
    result.reserve(text.size() + text.size() / 32);
    bool isLogged = false;
    for (LineReader lines(text); !lines.atEnd();) {
        const std::string_view line = lines.next();
        std::string written(line);
        if (line.starts_with(gpsStart)) {
            if (line.find(prnStart) == std::string_view::npos) {
                return std::nullopt;
            }
            const auto makeShort = [&] { written = shortGpsName(line); };
            if (isLogged) {
                label.quietStep(makeShort);
            } else {
                isLogged = !label.step(makeShort);
            }
        }
        result += written;
        result += lineEnd;
    }
    return result;
}

}  // namespace

std::string elementFileName(std::string_view url) {
    const std::size_t slash = url.rfind('/');
    return std::string(slash == std::string_view::npos ? url : url.substr(slash + 1));
}

std::int16_t FindFirstKepLine(ProgramState& state, Services& services, std::string_view bareName) {
    ErrorLabel label(services, labels::globalFindFirstKepLine);
    const std::filesystem::path file = dataFile(state, bareName);
    const std::string name(bareName);  // a handler that runs inside a yield may change what it was taken from
    if (!FileExists(file)) {
        return -1;
    }
    std::string text;
    label.step([&] { text = readTextFile(file, elementFileLimitBytes); });

    LineReader lines(text);
    std::int16_t result = 0;
    std::int64_t linesBefore = 0;
    bool found = false;
    while (!found && !lines.atEnd()) {
        found = isLine1WithEpoch(lines.next());
        if (!found) {
            ++linesBefore;
        }
        label.step([&] { services.events.yield(); });
        if (state.MainTag == "exit") {
            return -1;
        }
    }
    if (found) {
        label.step([&] { result = toInteger16(static_cast<double>(linesBefore - 2)); });
    }
    if (lines.atEnd()) {
        label.step([&] {
            services.dialogs.message("There is a problem with " + name +
                                     ", Can't find 2 Line Keplerian elements in the file");
        });
    }
    return result;
}

std::string lineFoundAfter(const ProgramState& state, std::string_view bareName, std::int16_t start) {
    const std::string text = readTextFile(dataFile(state, bareName), elementFileLimitBytes);
    LineReader lines(text);
    for (std::int32_t number = 0; number <= start && !lines.atEnd(); ++number) {
        lines.next();
    }
    lines.next();
    if (lines.atEnd()) {
        throw std::out_of_range(std::string(bareName) + ": the file ends before its first element set");
    }
    return std::string(lines.next());
}

std::string monthDayYearText(double localDateTime) {
    const DateParts parts = dateParts(localDateTime);
    return formatNumber(parts.month, "00") + "-" + formatNumber(parts.day, "00") + "-" +
           formatNumber(parts.year, "0000");
}

std::int32_t DayOfYear(std::string_view monthDayYear) {
    constexpr std::array<std::int32_t, 12> daysBefore = {0,   31,  59,  90,  120, 151,
                                                         181, 212, 243, 273, 304, 334};
    const std::string_view month = columnsFrom(monthDayYear, 1, 2);
    const std::size_t yearWidth = std::min<std::size_t>(4, monthDayYear.size());
    const std::string_view year = monthDayYear.substr(monthDayYear.size() - yearWidth);

    std::int32_t day = toInteger32(numberValue(columnsFrom(monthDayYear, 4, 2)));
    const std::int32_t monthNumber = toInteger32(numberValue(month));
    if (monthNumber >= 1 && monthNumber <= 12) {
        day += daysBefore[static_cast<std::size_t>(monthNumber - 1)];
    }
    if (toInteger32(numberValue(year)) % 4 == 0 && month > "02") {
        ++day;
    }
    return day;
}

std::int32_t elementEpochDay(std::string_view line1) {
    const std::size_t point = line1.find('.');
    const auto pointColumn = point == std::string_view::npos ? 0 : static_cast<std::ptrdiff_t>(point) + 1;
    const std::ptrdiff_t width = pointColumn - static_cast<std::ptrdiff_t>(epochYearColumn);
    if (width < 0) {
        throw std::invalid_argument("no epoch in the element line" + quoted(line1));
    }
    return toInteger32(numberValue(columnsFrom(line1, epochDayColumn, width)));
}

std::int32_t elementEpochYear(std::string_view line1) {
    const std::string_view year = trimmed(columnsFrom(line1, epochYearColumn, 2));
    if (year.empty() || year.find_first_not_of("0123456789") != std::string_view::npos) {
        throw std::invalid_argument("no epoch year in the element line" + quoted(line1));
    }
    return 2000 + toInteger32(numberValue(year));
}

bool FixGPSKeps(ProgramState& state, Services& services) {
    ErrorLabel label(services, labels::mainFixGpsKeps);
    const std::filesystem::path file = dataFile(state, gpsFile);
    if (!FileExists(file)) {
        return false;
    }
    bool isChanged = false;
    label.step([&] {
        const std::string text = readTextFile(file, elementFileLimitBytes);
        const std::optional<std::string> converted = withShortNames(text, label);
        if (converted && *converted != text) {
            replaceFile(file, *converted);
            isChanged = true;
        }
    });
    // An earlier conversion that was cut short may have left its half-written file.
    label.step([&] { std::filesystem::remove(dataFile(state, gpsScratchFile)); });
    return isChanged;
}

}  // namespace vantrace
