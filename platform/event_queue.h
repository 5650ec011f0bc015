// The queue of window and timer events, as a long routine sees it.
#pragma once

namespace vantrace {

class EventQueue {
  public:
    virtual ~EventQueue() = default;

    /// Serves the events that are waiting, then comes back. Any handler of the program can run inside; what a
    /// handler throws doesn't come out here.
    virtual void yield() = 0;
    /// For a loop that yields at each of a million short steps: as above, but where the last yield ended less
    /// than a millisecond ago the events may wait for a later one.
    virtual void yieldOften() { yield(); }
};

/// For programs without windows: nobody waits for events.
class IdleEventQueue final : public EventQueue {
  public:
    void yield() override {}
};

}  // namespace vantrace
