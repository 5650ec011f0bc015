// The list as it is saved and printed.
#pragma once

#include <string>

#include "core/rich_text.h"
#include "flares/flare_list.h"

namespace vantrace {

struct ProgramState;

/// One row as a line of fixed columns, without its end.
std::string flareReportLine(const FlareRow& row);

/// Writes the report anew, in fixed pitch, its lines ended by CR LF: what it is and whose it is in dark red,
/// the heading in dark blue, the rows in black.
void composeFlareReport(RichText& Printed, const FlareList& list, const ProgramState& state);

}  // namespace vantrace
