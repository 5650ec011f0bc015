// The fixed tables of the program.
#pragma once

#include <array>
#include <concepts>
#include <cstddef>
#include <stdexcept>
#include <string>
#include <utility>

namespace vantrace {

/// Entries 0 to Bound, counted from 1 by those who use them; entry 0 exists. An index outside throws
/// std::out_of_range.
template <class Record, std::size_t Bound>
class Table {
  public:
    static constexpr std::size_t bound = Bound;

    Record& operator[](std::integral auto index) { return m_records[checked(index)]; }
    const Record& operator[](std::integral auto index) const { return m_records[checked(index)]; }

  private:
    static std::size_t checked(std::integral auto index) {
        if (std::cmp_less(index, 0) || std::cmp_greater(index, Bound)) {
            throw std::out_of_range("index " + std::to_string(index) + " is outside 0 to " +
                                    std::to_string(Bound));
        }
        return static_cast<std::size_t>(index);
    }

    std::array<Record, Bound + 1> m_records{};
};

}  // namespace vantrace
