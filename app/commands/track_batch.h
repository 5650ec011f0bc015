#pragma once

#include <string>

#include "app/command.h"

namespace vantrace {

/// Positions for the lines "TIME,NAME" of a file, or of standard input for "-". A line that can't be answered
/// gives a row without figures and a line on the error stream. Throws UserError where the file can't be read.
int trackBatch(const CommandContext& context, const std::string& path);

}  // namespace vantrace
