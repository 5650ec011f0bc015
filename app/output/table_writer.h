#pragma once

#include <ostream>
#include <span>
#include <string>
#include <vector>

#include "app/output/row_writer.h"

namespace vantrace {

/// Aligned columns for a terminal: texts to the left, all else to the right.
class TableWriter final : public RowWriter {
  public:
    TableWriter(std::span<const Column> columns, std::ostream& out);

    void add(const Row& row) override;
    void flush() override;
    void finish() override;

  private:
    using Cells = std::vector<std::string>;

    /// Fixes the widths by the rows held back, and writes the heading and them.
    void begin();
    void writeLine(const Cells& cells);

    std::span<const Column> m_columns;
    std::ostream& m_out;
    std::vector<std::size_t> m_shown;   ///< indices of the columns that a table has
    std::vector<std::size_t> m_widths;  ///< of those
    std::vector<Cells> m_heldBack;
    bool m_begun = false;
};

}  // namespace vantrace
