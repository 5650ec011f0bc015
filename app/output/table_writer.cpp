#include "app/output/table_writer.h"

#include <algorithm>

#include "app/program/printable.h"

namespace vantrace {

namespace {

/// Rows that the widths are taken from; later ones that are wider stick out.
constexpr std::size_t rowsHeldBack = 1000;
constexpr std::string_view gap = "  ";
/// One endless name mustn't push the other columns off the screen; it sticks out instead.
constexpr std::size_t widestColumn = 60;

}  // namespace

TableWriter::TableWriter(std::span<const Column> columns, std::ostream& out)
    : m_columns(columns), m_out(out) {
    for (std::size_t i = 0; i < columns.size(); ++i) {
        if (!columns[i].heading.empty()) m_shown.push_back(i);
    }
}

void TableWriter::add(const Row& row) {
    Cells cells;
    for (const std::size_t i : m_shown) cells.push_back(tableText(row.at(i), m_columns[i]));
    if (m_begun) {
        writeLine(cells);
        return;
    }
    m_heldBack.push_back(std::move(cells));
    if (m_heldBack.size() >= rowsHeldBack) begin();
}

void TableWriter::begin() {
    m_begun = true;
    Cells headings;
    for (const std::size_t i : m_shown) headings.emplace_back(m_columns[i].heading);
    for (std::size_t i = 0; i < m_shown.size(); ++i) {
        std::size_t width = displayWidth(headings[i]);
        for (const Cells& cells : m_heldBack) width = std::max(width, displayWidth(cells[i]));
        m_widths.push_back(std::min(width, widestColumn));
    }
    writeLine(headings);
    Cells rules;
    for (const std::size_t width : m_widths) rules.emplace_back(width, '-');
    writeLine(rules);
    for (const Cells& cells : m_heldBack) writeLine(cells);
    m_heldBack.clear();
}

void TableWriter::writeLine(const Cells& cells) {
    std::string line;
    for (std::size_t i = 0; i < cells.size(); ++i) {
        const std::size_t width = displayWidth(cells[i]);
        const std::string padding(m_widths[i] - std::min(width, m_widths[i]), ' ');
        const bool isText = m_columns[m_shown[i]].form == ValueForm::text;
        if (i > 0) line += gap;
        line += isText ? cells[i] + padding : padding + cells[i];
    }
    line.erase(line.find_last_not_of(' ') + 1);
    line += '\n';
    m_out.write(line.data(), static_cast<std::streamsize>(line.size()));
    if (!m_out) throw OutputFailure();
}

void TableWriter::flush() {
    if (!m_begun && !m_heldBack.empty()) begin();
    if (!m_out.flush()) throw OutputFailure();
}

void TableWriter::finish() {
    if (!m_begun) begin();
    if (!m_out.flush()) throw OutputFailure();
}

}  // namespace vantrace
