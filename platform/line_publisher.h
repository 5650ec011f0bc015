// One line of text that other programs of the machine can read whenever they like.
#pragma once

#include <string_view>

namespace vantrace {

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
