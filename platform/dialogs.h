// What the program asks and tells the user face to face.
#pragma once

#include <iosfwd>
#include <string_view>

namespace vantrace {

class Dialogs {
  public:
    virtual ~Dialogs() = default;

    /// Shows a text, without a title, and waits for OK. Doesn't fail.
    virtual void message(std::string_view text) = 0;
};

/// For programs without windows: a message is a line of a stream.
class StreamDialogs final : public Dialogs {
  public:
    /// The stream outlives this.
    explicit StreamDialogs(std::ostream& stream) : m_stream(stream) {}
    void message(std::string_view text) override;

  private:
    std::ostream& m_stream;
};

}  // namespace vantrace
