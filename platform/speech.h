// The voice.
#pragma once

#include <string_view>

namespace vantrace {

class Speech {
  public:
    virtual ~Speech() = default;

    /// Speaks a text and doesn't wait for its end. May throw a std::exception where there is no voice;
    /// whoever calls ignores it.
    virtual void speak(std::string_view text) = 0;
};

/// For programs that have no voice.
class SilentSpeech final : public Speech {
  public:
    void speak(std::string_view) override {}
};

}  // namespace vantrace
