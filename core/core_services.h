// Small services that every room leans on.
#pragma once

#include <string_view>

#include "platform/event_queue.h"
#include "platform/process_priority.h"

namespace vantrace {

struct Services;

/// Speaks a text unless the setting "Speechpack" is "0". A voice that fails is ignored. Everything that is
/// spoken goes through here.
void Speak(Services& services, std::string_view text);

/// Yields to the event queue 2 x n times.
void YieldCycles(EventQueue& events, int n);

/// The priority of the process.
struct mPriority {
    /// False where the platform refuses.
    static bool SetPriorityClass(PriorityClass priority) { return setProcessPriority(priority); }
};

}  // namespace vantrace
