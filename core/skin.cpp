#include "core/skin.h"

#include "core/config.h"

namespace vantrace {

void ApplySkin(Services& services, Skin& skin) {
    if (GetConfig(services, settings::skin) == "1") skin.isApplied = true;
}

}  // namespace vantrace
