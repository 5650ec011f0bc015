// The name of the text program, which its messages begin with.
#pragma once

#include <string_view>

namespace vantrace {

inline constexpr std::string_view programName = "vantrace-cli";

}  // namespace vantrace
