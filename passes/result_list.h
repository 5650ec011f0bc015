// The predicted passes: rows of texts, and nothing else remembers them.
#pragma once

#include <array>
#include <cstddef>
#include <string>
#include <utility>
#include <vector>

namespace vantrace {

inline constexpr std::size_t resultColumns = 9;

inline constexpr std::array<const char*, resultColumns> resultHeadings = {
    "Satellite", "Date", "Time", "Start AZ", "Max Elevation", "Duration", "End Az", "Sunlit", "Visible"};

/// The columns by what they tell; "MaxElevation" with the azimuth at the middle of the pass.
enum class ResultColumn : std::size_t {
    Satellite,
    Date,
    Time,
    StartAZ,
    MaxElevation,
    Duration,
    EndAz,
    Sunlit,
    Visible
};

/// Of the width of "Yes", so that what is behind keeps its column.
inline constexpr const char* yesText = "Yes";
inline constexpr const char* noText = "No ";

struct ResultRow {
    std::array<std::string, resultColumns> texts;
    /// What the texts of date, time and length were made of: a local day number, and seconds. The window
    /// shows neither.
    double startLocal = 0;
    int lengthSeconds = 0;

    std::string& operator[](ResultColumn column) { return texts.at(static_cast<std::size_t>(column)); }
    const std::string& operator[](ResultColumn column) const {
        return texts.at(static_cast<std::size_t>(column));
    }

    friend bool operator==(const ResultRow&, const ResultRow&) = default;
};

class ResultList {
  public:
    bool isVisible = true;

    const std::vector<ResultRow>& rows() const { return m_rows; }
    std::size_t size() const { return m_rows.size(); }
    /// Counts what was done to the rows.
    unsigned changes() const { return m_changes; }

    void add(ResultRow row) {
        m_rows.push_back(std::move(row));
        ++m_changes;
    }
    void removeLast() {
        m_rows.pop_back();
        ++m_changes;
    }
    /// Indices count from 0.
    void exchange(std::size_t one, std::size_t other) {
        std::swap(m_rows.at(one), m_rows.at(other));
        ++m_changes;
    }
    void clear() {
        m_rows.clear();
        ++m_changes;
    }

  private:
    std::vector<ResultRow> m_rows;
    unsigned m_changes = 0;
};

}  // namespace vantrace
