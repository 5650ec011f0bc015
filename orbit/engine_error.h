#pragma once

#include <stdexcept>
#include <string>
#include <string_view>

#include "orbit/instant.h"

namespace vantrace {

/// A question that the engine can't answer. what() names the object, the time where there is one, and the
/// reason.
class EngineError : public std::runtime_error {
  public:
    explicit EngineError(const std::string& reason) : std::runtime_error(reason) {}
    EngineError(std::string_view object, std::string_view reason)
        : std::runtime_error(std::string(object) + ": " + std::string(reason)) {}
    EngineError(std::string_view object, const Instant& time, std::string_view reason)
        : std::runtime_error(std::string(object) + " at " + isoText(time, 3) + ": " + std::string(reason)) {}
};

}  // namespace vantrace
