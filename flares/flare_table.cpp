#include "flares/flare_table.h"

#include <array>
#include <stdexcept>
#include <string>

#include "core/date_reading.h"
#include "core/date_time.h"
#include "core/texts.h"
#include "flares/flare_file.h"
#include "flares/flare_page.h"

namespace vantrace {

namespace {

/// A cell behind those of date and time: what its tag starts with, what ends its text, and the unit that is
/// put behind it.
struct Cell {
    FlareColumn column;
    std::string_view tag;
    std::string_view end;
    std::string_view unit = {};
};

constexpr std::array cells{
    Cell{FlareColumn::Intensity, "<TD", "<"},    Cell{FlareColumn::EL, "<TD", "&"},
    Cell{FlareColumn::AZ, "<TD", "&"},           Cell{FlareColumn::Distance, "<TD", " km", " km"},
    Cell{FlareColumn::MaxIntensity, "<TD", "<"}, Cell{FlareColumn::Satellite, "<A HREF", "</A>"},
};

/// Where a scan goes on after it went back to the start: at the cell of a date, or inside the tag of a time
/// or of one of the cells. The page alone decides what comes then, so that it goes round for ever once it
/// has come back to the same of these places.
constexpr int placesBehindAReturn = 2 + static_cast<int>(cells.size());

/// A row's date and time in UTC, in local time.
void turnToLocalTime(FlareRow& row, const Clock& clock) {
    const MonthDay date = readMonthDay(row[FlareColumn::Date]);
    const TimeOfDay time = readTimeOfDay(row[FlareColumn::Time]);
    // The cell holds no year, and the list shows none.
    const int year = clock.read().local.year;
    const double utc = packDateTime({year, date.month, date.day, time.hour, time.minute, time.second});
    const DateParts local = dateParts(ToLocal(clock, utc));
    row[FlareColumn::Date] = MonthDayText(local.day, local.month);
    row[FlareColumn::Time] = TimeText(local.hour, local.minute, local.second);
}

class TableScan {
  public:
    TableScan(std::string_view text, const Clock& clock, FlareList& list)
        : m_page(text), m_clock(clock), m_list(list) {}

    void run() {
        m_position = m_page.find("istance to", 1);
        if (m_position == 0) throw std::runtime_error("the page has no table of flares");
        while (readRow()) {
        }
    }

  private:
    /// Each of these is false where the table has ended.
    bool readRow();
    bool readDate();
    bool readTime();
    bool readCell(const Cell& cell);

    /// Goes behind the end of the tag that the position is in; without an end, to the start of the page.
    void leaveTag();
    void noteReturn();
    /// The text of the cell that the position is at.
    std::string_view cellUpTo(std::string_view end);
    /// A text that goes into the list.
    std::string taken(std::string_view text);
    FlareRow& lastRow() {
        if (m_list.empty()) throw std::out_of_range("the page's first cell starts no row");
        return m_list.back();
    }

    FlarePage m_page;
    const Clock& m_clock;
    FlareList& m_list;
    /// Of the scan, and of the end of the last cell.
    std::size_t m_position = 1;
    std::size_t m_cellEnd = 1;
    int m_returns = 0;
    std::size_t m_takenBytes = 0;
};

void TableScan::noteReturn() {
    if (++m_returns > placesBehindAReturn) throw std::runtime_error("the page's table has no end");
}

void TableScan::leaveTag() {
    const std::size_t end = m_page.find(">", m_position);
    if (end == 0) noteReturn();
    m_position = end + 1;
}

std::string_view TableScan::cellUpTo(std::string_view end) {
    m_cellEnd = m_page.find(end, m_position);
    return m_page.between(m_position, m_cellEnd);
}

std::string TableScan::taken(std::string_view text) {
    // A name may reach over the rows behind it, and theirs over the rest again: that sum has to be bounded.
    m_takenBytes += text.size();
    if (m_takenBytes > flareFileLimitBytes) throw std::length_error("the page's table holds too much text");
    return std::string(text);
}

bool TableScan::readRow() {
    if (!readDate() || !readTime()) return false;
    turnToLocalTime(lastRow(), m_clock);
    for (const Cell& cell : cells) {
        if (!readCell(cell)) return false;
    }
    return true;
}

bool TableScan::readDate() {
    constexpr std::string_view tag = "<TD>";
    constexpr std::size_t noDateCharacters = 7;
    const std::size_t found = m_page.find(tag, m_position);
    if (found == 0) noteReturn();
    // Required also where nothing was found: then the page's fourth character comes next.
    m_position = found + tag.size();
    const std::string_view cell = cellUpTo("<");
    const std::string_view text = trimmed(cell);
    if (FixedWidth(text, noDateCharacters - 1).size() < text.size()) return false;
    // A cell that starts with a line end belongs to the row before it.
    if (m_page.hasAt(m_position, "\r\n")) return true;
    if (m_list.size() == mostFlares) throw std::length_error("the page's table has too many rows");
    m_list.emplace_back()[FlareColumn::Date] = taken(cell);
    return true;
}

bool TableScan::readTime() {
    m_position = m_page.find("flaredetails", m_cellEnd);
    if (m_position == 0) return false;
    leaveTag();
    lastRow()[FlareColumn::Time] = taken(cellUpTo("<"));
    return true;
}

bool TableScan::readCell(const Cell& cell) {
    m_position = m_page.find(cell.tag, m_cellEnd);
    if (m_position == 0) return false;
    leaveTag();
    lastRow()[cell.column] = taken(cellUpTo(cell.end)) + std::string(cell.unit);
    return true;
}

}  // namespace

void readFlareTable(std::string_view page, const Clock& clock, FlareList& list) {
    TableScan(page, clock, list).run();
}

}  // namespace vantrace
