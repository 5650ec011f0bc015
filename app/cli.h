// The program, apart from the process it runs in.
#pragma once

#include <string>
#include <vector>

#include "app/program/text_program.h"

namespace vantrace {

/// Runs the command of the arguments (those behind the program's name); the exit status is the answer. Throws
/// OutputFailure and nothing else.
int runProgram(const std::vector<std::string>& arguments, Surroundings& surroundings, Console& console);

}  // namespace vantrace
