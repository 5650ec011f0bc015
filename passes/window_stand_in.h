// Predictions without a window.
#pragma once

#include <memory>

#include "core/window_registry.h"

namespace vantrace {

/// Stands for the window where there is none: while it is on screen nobody looks for the next pass at each
/// position.
class WindowStandIn final : public RegisteredWindow {
  public:
    static void putUp(WindowRegistry& windows) {
        windows.registerWindow("PassPrediction", [] { return std::make_unique<WindowStandIn>(); });
        windows.show("PassPrediction");
    }

    void load() override {}
    void show() override {}
    void hide() override {}
    bool isOnScreen() const override { return true; }
};

}  // namespace vantrace
