#include "app/program/console.h"

#include <string>

#include "app/program/printable.h"
#include "app/program/program_name.h"

namespace vantrace {

void Console::complain(std::string_view text) const {
    // In one piece, so that lines of several processes don't mix.
    err << std::string(programName) + ": " + printable(text) + "\n" << std::flush;
}

}  // namespace vantrace
