// Coloured text on its way to the printer.
#pragma once

#include <string>

#include "core/rich_text.h"
#include "platform/printer.h"

namespace vantrace {

/// The text as a document of that title, in the face that the reports are printed in.
PrintDocument printDocument(std::string title, const RichText& text);

}  // namespace vantrace
