// A text box whose text has a colour for each part.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "platform/colour.h"

namespace vantrace {

struct RichText {
    struct Part {
        Colour colour = 0;
        std::string text;
        bool isBold = false;

        friend bool operator==(const Part&, const Part&) = default;
    };

    std::vector<Part> parts;
    /// Counts what was done to the text, so that a window sees a change at once.
    unsigned changes = 0;
    bool isVisible = false;

    bool isEmpty() const { return parts.empty(); }
    void clear() {
        parts.clear();
        ++changes;
    }
    void append(Colour colour, std::string text, bool isBold = false);
    /// The whole without its colours.
    std::string plainText() const {
        std::string whole;
        for (const Part& part : parts) whole += part.text;
        return whole;
    }
};

}  // namespace vantrace
