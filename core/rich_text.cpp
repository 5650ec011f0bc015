#include "core/rich_text.h"

#include <utility>

namespace vantrace {

void RichText::append(Colour colour, std::string text, bool isBold) {
    parts.push_back({colour, std::move(text), isBold});
    ++changes;
}

}  // namespace vantrace
