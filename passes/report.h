// The report of the results: a credit line, a heading, and a line of fixed columns for each row.
#pragma once

#include <string>
#include <string_view>

#include "core/rich_text.h"
#include "passes/result_list.h"

namespace vantrace {

struct ProgramState;

enum class ReportUse { saved, printed };

/// Puts a text at the end of the report.
void PrintResults(RichText& Printed, std::string_view Text, bool Bold, Colour colour);

/// One row as a line of the report, without its end.
std::string reportLine(const ResultRow& row);

/// Writes the report anew. The credit line has the home page of hosts.dat.
void composeReport(RichText& Printed, const ResultList& results, ReportUse use, const ProgramState& state);

}  // namespace vantrace
