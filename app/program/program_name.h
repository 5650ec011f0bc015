#pragma once

#include <string_view>

namespace vantrace {

inline constexpr std::string_view programName = "vantrace-cli";

}  // namespace vantrace
