// A timer of a window, as its handlers see it.
#pragma once

namespace vantrace {

/// The window has the real timer do what stands here after each handler.
struct TimerState {
    int intervalMs = 1000;
    bool isEnabled = false;

    friend bool operator==(const TimerState&, const TimerState&) = default;
};

}  // namespace vantrace
