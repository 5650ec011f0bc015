// Rows on their way to a stream, as a table, CSV (RFC 4180) or JSON.
#pragma once

#include <memory>
#include <ostream>
#include <span>
#include <stdexcept>

#include "app/output/column.h"

namespace vantrace {

enum class Format { table, csv, json };

/// The stream takes no more: its reader is gone, or the disk is full.
class OutputFailure : public std::runtime_error {
  public:
    OutputFailure() : std::runtime_error("the output can't be written") {}
};

/// Writes the rows as they come; a table holds the first ones back until it knows how wide its columns are.
class RowWriter {
  public:
    virtual ~RowWriter() = default;

    /// As many values as columns. Throws OutputFailure.
    virtual void add(const Row& row) = 0;
    /// Puts out all rows so far, for a reader who waits. Throws OutputFailure.
    virtual void flush() = 0;
    /// The end of the rows, called once. Throws OutputFailure.
    virtual void finish() = 0;
};

/// Columns and stream outlive the writer.
std::unique_ptr<RowWriter> makeRowWriter(Format format, std::span<const Column> columns, std::ostream& out);

/// A table, right into its stream, for texts that hold several.
void writeTable(std::span<const Column> columns, std::span<const Row> rows, std::ostream& out);

}  // namespace vantrace
