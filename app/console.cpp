#include "app/console.h"

#include <string>

#include "app/output/printable.h"
#include "app/program_name.h"

namespace vantrace {

void Console::complain(std::string_view text) const {
    // In one piece, so that lines of several processes don't mix.
    err << std::string(programName) + ": " + printable(text) + "\n" << std::flush;
}

}  // namespace vantrace
