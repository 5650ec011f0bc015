#include "core/print_document.h"

#include <utility>

namespace vantrace {

PrintDocument printDocument(std::string title, const RichText& text) {
    PrintDocument document{std::move(title), "Lucida Console", {}};
    for (const RichText::Part& part : text.parts) {
        document.parts.push_back({part.colour, part.isBold, part.text});
    }
    return document;
}

}  // namespace vantrace
