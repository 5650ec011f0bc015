#include "app/prediction.h"

#include <array>
#include <charconv>
#include <cstdint>
#include <optional>

#include "app/output/calendar_text.h"
#include "app/program/arguments.h"
#include "app/program/printable.h"
#include "app/program/services_with.h"
#include "core/date_time.h"
#include "core/texts.h"
#include "passes/pass_prediction.h"
#include "passes/report.h"
#include "passes/sort_results.h"
#include "passes/window_stand_in.h"

namespace vantrace {

namespace {

std::optional<std::int16_t> digits(std::string_view text) {
    std::int16_t value = 0;
    const char* const end = text.data() + text.size();
    const auto [stop, error] = std::from_chars(text.data(), end, value);
    if (error != std::errc() || stop != end || text.front() == '-') return std::nullopt;
    return value;
}

/// "2026-08-22": a day of the years 1900 to 9998, which have days in front of them and behind.
std::optional<CalendarDate> parseDate(std::string_view text) {
    if (text.size() != 10 || text[4] != '-' || text[7] != '-') return std::nullopt;
    const auto year = digits(text.substr(0, 4));
    const auto month = digits(text.substr(5, 2));
    const auto day = digits(text.substr(8, 2));
    if (!year || !month || !day || *year < 1900 || *year > 9998) return std::nullopt;
    const DateParts back = dateParts(packDateTime({*year, *month, *day, 0, 0, 0}));
    if (back.month != *month || back.day != *day) return std::nullopt;
    return CalendarDate{*day, *month, *year};
}

CalendarDate dateOf(const CommandContext& context) {
    const std::optional<std::string> text = context.line.value("date");
    if (!text) return today(context.program.services().clock);
    const std::optional<CalendarDate> date = parseDate(trimmed(*text));
    if (!date) throw UserError("--date: " + inQuotes(*text) + " is no date such as 2026-08-22");
    return *date;
}

constexpr std::array columns{
    Column{"satellite", "", ValueForm::text},     Column{"date", "", ValueForm::text},
    Column{"time", "", ValueForm::text},          Column{"start_az", "", ValueForm::text},
    Column{"max_elevation", "", ValueForm::text}, Column{"duration", "", ValueForm::text},
    Column{"end_az", "", ValueForm::text},        Column{"sunlit", "", ValueForm::text},
    Column{"visible", "", ValueForm::text},       Column{"start_utc", "", ValueForm::moment},
    Column{"end_utc", "", ValueForm::moment},     Column{"length_s", "", ValueForm::count},
};

Instant startOf(const ResultRow& row, const Clock& clock) {
    const DateParts utc = dateParts(ToUTC(clock, row.startLocal));
    return instantFromCalendar(
        {utc.year, utc.month, utc.day, utc.hour, utc.minute, static_cast<double>(utc.second)});
}

Row outputRow(const ResultRow& row, const Clock& clock) {
    Row values;
    // The blank that keeps the columns of the report counts for nothing here.
    for (const std::string& text : row.texts) values.emplace_back(std::string(trimmed(text)));
    const Instant start = startOf(row, clock);
    values.emplace_back(start);
    values.emplace_back(plusSeconds(start, row.lengthSeconds));
    values.emplace_back(static_cast<std::int64_t>(row.lengthSeconds));
    return values;
}

/// FNV-1a, 64 bits: names may hold any signs, identifiers may not.
std::string fingerprint(std::string_view text) {
    std::uint64_t hash = 14695981039346656037ULL;
    for (const char sign : text) {
        hash ^= static_cast<unsigned char>(sign);
        hash *= 1099511628211ULL;
    }
    std::array<char, 16> digitsOfHash{};
    const auto end = std::to_chars(digitsOfHash.data(), digitsOfHash.data() + digitsOfHash.size(), hash, 16);
    return {digitsOfHash.data(), end.ptr};
}

CalendarEvent eventOf(const ResultRow& row, const Clock& clock, const Site& site) {
    CalendarEvent event;
    event.start = startOf(row, clock);
    event.end = plusSeconds(event.start, row.lengthSeconds);
    const std::string name = printable(trimmed(row[ResultColumn::Satellite]));
    const std::string place = placeText(site);
    event.uid = isoText(event.start, 0) + "-" + fingerprint(name + "\n" + place) + "@vantrace";
    std::string_view elevation = std::string_view(row[ResultColumn::MaxElevation]).substr(0, 2);
    if (elevation.starts_with('0')) elevation.remove_prefix(1);
    event.summary = name + ", up to " + std::string(elevation) + " degrees";
    for (std::size_t i = 1; i < resultColumns; ++i) {
        if (i > 1) event.description += '\n';
        event.description += std::string(resultHeadings.at(i)) + ": " + std::string(trimmed(row.texts.at(i)));
    }
    event.location = site.name.empty() ? place : printable(site.name) + ", " + place;
    return event;
}

}  // namespace

Prediction::Prediction(const CommandContext& context)
    : m_context(context),
      m_settings(context.program.services().settings),
      m_services(servicesWith(context.program.services(), context.program.services().clock, m_settings,
                              context.program.services().errorLog)),
      m_output(outputOf(context)) {
    WindowStandIn::putUp(m_services.windows);
    m_form.Calendar = dateOf(context);
    m_form.CHvisOnly = context.line.has("visible-only");
}

std::vector<OptionSyntax> Prediction::options() {
    return {
        {"date", "YYYY-MM-DD", "the local day on which the passes end, the first one of a job (else: today)"},
        {"visible-only", "", "leaves out what can't be seen with the naked eye"},
        {"format", "FORMAT", "text (the report), csv, json, or ics (a calendar)"},
        {"sort", "", "puts the passes in the order of their times, January before December"}};
}

Prediction::Output Prediction::outputOf(const CommandContext& context) {
    const std::string name = context.line.value("format").value_or("text");
    if (name == "text") return Output::text;
    if (name == "csv") return Output::csv;
    if (name == "json") return Output::json;
    if (name == "ics") return Output::ics;
    throw UserError("--format: " + inQuotes(name) + " is none of text, csv, json, ics");
}

Guard Prediction::guard() {
    return [this](const std::function<void()>& work) {
        try {
            work();
            return true;
        } catch (const std::exception& failure) {
            if (m_told.insert(failure.what()).second) m_context.console().complain(failure.what());
            return false;
        }
    };
}

int Prediction::write() {
    if (m_context.line.has("sort")) BUTsortChron_Click(m_form, state(), m_services);
    switch (m_output) {
        case Output::text:
            writeReport();
            break;
        case Output::csv:
            writeRows(Format::csv);
            break;
        case Output::json:
            writeRows(Format::json);
            break;
        case Output::ics:
            writeCalendar();
            break;
    }
    m_context.console().out << std::flush;
    if (!m_context.console().out) throw OutputFailure();
    return m_told.empty() ? exit_status::good : exit_status::incomplete;
}

/// To the byte what the window saves, but for signs that could steer a terminal.
void Prediction::writeReport() {
    composeReport(m_form.Printed, m_form.LISTpasses, ReportUse::saved, state());
    std::string_view rest = std::string_view();
    const std::string report = m_form.Printed.plainText() + "\r\n";
    for (rest = report; !rest.empty();) {
        const std::size_t end = rest.find("\r\n");
        m_context.console().out << printable(rest.substr(0, end)) << "\r\n";
        rest.remove_prefix(end + 2);
    }
}

void Prediction::writeRows(Format format) {
    const std::unique_ptr<RowWriter> rows = makeRowWriter(format, columns, m_context.console().out);
    for (const ResultRow& row : m_form.LISTpasses.rows()) rows->add(outputRow(row, m_services.clock));
    rows->finish();
}

void Prediction::writeCalendar() {
    std::vector<CalendarEvent> events;
    for (const ResultRow& row : m_form.LISTpasses.rows()) {
        events.push_back(eventOf(row, m_services.clock, m_context.program.site()));
    }
    m_context.console().out << calendarText(events, m_context.program.now());
}

}  // namespace vantrace
