// The modes of the screen.
#pragma once

#include <vector>

namespace vantrace {

struct DisplayModeValues {
    /// Pixels.
    int width = 0;
    int height = 0;
    int bitsPerPixel = 0;
    int refreshHz = 0;
};

class DisplayMode {
  public:
    virtual ~DisplayMode() = default;

    /// Those that can be switched to; empty where the platform has no switch. Doesn't fail.
    virtual std::vector<DisplayModeValues> modes() const = 0;
    /// Throws std::runtime_error where the platform refuses.
    virtual void change(const DisplayModeValues& values) = 0;
};

/// For platforms where a program does not switch the screen.
class FixedDisplayMode final : public DisplayMode {
  public:
    std::vector<DisplayModeValues> modes() const override { return {}; }
    void change(const DisplayModeValues&) override {}
};

}  // namespace vantrace
