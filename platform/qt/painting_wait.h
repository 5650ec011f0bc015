// Waiting for another thread while windows stay painted.
#pragma once

#include <chrono>
#include <condition_variable>
#include <mutex>

namespace vantrace {

/// While the window thread waits, windows are painted and laid out, but none of their handlers runs: input,
/// shortcuts, closing and drops are thrown away, timers are held, and so are the coming of the focus and the
/// end of the program, which are told afterwards. Calls that other threads have queued are carried out. On
/// any other thread, and without windows, it waits plainly. Waits may nest.
class PaintingWait {
  public:
    /// Ends the wait, now or as soon as it begins; from any thread.
    void finish();
    /// False when the limit came first.
    bool waitFor(std::chrono::milliseconds limit);

  private:
    bool isFinished();
    bool waitPlainly(std::chrono::steady_clock::time_point end);
    bool waitPainting(std::chrono::steady_clock::time_point end);

    std::mutex m_mutex;
    std::condition_variable m_finished;
    bool m_isFinished = false;
};

}  // namespace vantrace
