// An entry of a menu, as its handlers see it.
#pragma once

namespace vantrace {

struct MenuEntryState {
    bool isChecked = false;
    bool isEnabled = true;
};

}  // namespace vantrace
