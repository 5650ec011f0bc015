#include "passes/sort_results.h"

#include <array>
#include <charconv>
#include <stdexcept>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "core/date_time.h"
#include "core/program_state.h"
#include "core/services.h"
#include "core/texts.h"
#include "core/view_words.h"
#include "passes/pass_prediction_form.h"

namespace vantrace {

namespace {

[[noreturn]] void failAt(std::string_view text) {
    throw std::invalid_argument("\"" + std::string(text) + "\" is no date or time of a pass");
}

int twoDigits(std::string_view text, std::size_t from) {
    int value = -1;
    if (from + 2 <= text.size()) {
        const char* const first = text.data() + from;
        if (std::from_chars(first, first + 2, value).ptr != first + 2) value = -1;
    }
    if (value < 0) failAt(text);
    return value;
}

int monthOf(std::string_view date) {
    for (int month = 1; month <= 12; ++month) {
        if (date.substr(2) == std::string_view(MonthDayText(1, month)).substr(2)) return month;
    }
    failAt(date);
}

/// Seconds of a year whose months all have room for any day: the rows have no year, and all count as the
/// present one, in which there may be no 29 February.
int keyOf(const ResultRow& row) {
    const std::string& date = row[ResultColumn::Date];
    const std::string& time = row[ResultColumn::Time];
    const int days = monthOf(date) * 100 + twoDigits(date, 0);
    return ((days * 24 + twoDigits(time, 0)) * 60 + twoDigits(time, 3)) * 60 + twoDigits(time, 6);
}

/// The keys of the rows. What others did to the rows in a yield is taken up.
class Keys {
  public:
    explicit Keys(ResultList& list) : m_list(list) { read(); }

    /// Puts row `second`, counted from 1, in front of the one before it where it is the earlier one. Rows
    /// that aren't there any more are in order.
    void putInOrder(std::size_t second) {
        if (m_changes != m_list.changes()) read();
        if (second > m_keys.size() || !(m_keys[second - 1] < m_keys[second - 2])) return;
        std::swap(m_keys[second - 1], m_keys[second - 2]);
        m_list.exchange(second - 1, second - 2);
        m_changes = m_list.changes();
    }

  private:
    void read() {
        m_keys.clear();
        for (const ResultRow& row : m_list.rows()) m_keys.push_back(keyOf(row));
        m_changes = m_list.changes();
    }

    ResultList& m_list;
    std::vector<int> m_keys;
    unsigned m_changes = 0;
};

/// Hides the list for as long as it lives.
class Hidden {
  public:
    explicit Hidden(ResultList& list) : m_list(list) { m_list.isVisible = false; }
    ~Hidden() { m_list.isVisible = true; }
    Hidden(const Hidden&) = delete;
    Hidden& operator=(const Hidden&) = delete;

  private:
    ResultList& m_list;
};

bool userHasLeft(const ProgramState& state) {
    return hasLeftViews(state);
}

}  // namespace

void BUTsortChron_Click(PassPredictionForm& form, ProgramState& state, Services& services) {
    const std::size_t count = form.LISTpasses.size();
    form.PROsorting = {0, count};
    const Hidden hidden(form.LISTpasses);
    services.events.yield();
    if (userHasLeft(state)) return;
    Keys keys(form.LISTpasses);
    for (std::size_t i = 1; i <= count; ++i) {
        for (std::size_t j = 2; j <= count; ++j) {
            keys.putInOrder(j);
            form.PROsorting.value = i;
            services.events.yieldOften();
            if (userHasLeft(state)) return;
        }
    }
}

}  // namespace vantrace
