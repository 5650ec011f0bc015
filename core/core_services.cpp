#include "core/core_services.h"

#include "core/config.h"
#include "core/services.h"

namespace vantrace {

void Speak(Services& services, std::string_view text) {
    if (GetConfig(services, settings::speechpack) == "0") return;
    try {
        services.speech.speak(text);
    } catch (...) {
        // A machine without a voice shows everything all the same.
        return;
    }
}

void YieldCycles(EventQueue& events, int n) {
    for (int i = 0; i < n; ++i) {
        events.yield();
        events.yield();
    }
}

}  // namespace vantrace
