// One line of text that other programs of the machine can read whenever they like.
#pragma once

#include <cstdint>
#include <string_view>

namespace vantrace {

/// Where the line is told and looked for: a TCP port of 127.0.0.1, and a socket of this name in the user's
/// folder for running programs ($XDG_RUNTIME_DIR).
inline constexpr std::uint16_t trackingLinePort = 7867;
inline constexpr std::string_view trackingLineSocket = "vantrace-tracking";

class LinePublisher {
  public:
    virtual ~LinePublisher() = default;

    /// The line, without an end, replaces the one before as a whole; whoever reads gets it whole or not at
    /// all. An empty one means that there is nothing to tell. Returns at once, however slow a reader is, and
    /// throws nothing.
    virtual void publish(std::string_view line) = 0;
};

/// For programs that tell nobody.
class NoLinePublisher final : public LinePublisher {
  public:
    void publish(std::string_view) override {}
};

}  // namespace vantrace
