// What the window `IridiumFlares` shows and holds.
#pragma once

#include <string>

#include "core/rich_text.h"
#include "core/skin.h"
#include "flares/flare_list.h"

namespace vantrace {

struct IridiumFlaresForm {
    FlareList LSTflares;
    /// How the list came about; the page of the last retrieval; where a report is put together.
    std::string Label1;
    std::string txtHTML;
    RichText Printed;
    /// A retrieval is on the stack; meanwhile no other one starts.
    bool isRetrieving = false;
    /// The last retrieval went well: an empty list means that there are no flares.
    bool isComplete = false;
    /// The window has gone; a retrieval that is on the stack still fetches nothing any more.
    bool isUnloaded = false;
    Skin skin;
};

}  // namespace vantrace
