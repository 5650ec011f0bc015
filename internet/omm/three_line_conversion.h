// Messages of mean elements as three-line sets.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace vantrace {

struct ThreeLineConversion {
    /// The good sets in the order of the messages: name, line 1 and line 2, each ended by CR LF. Lines 1 and
    /// 2 have 69 characters, the name is padded with blanks to 24.
    std::string text;
    /// How many sets the text holds.
    int good = 0;
    /// One remark for each set that was left out, the first 1000 of them.
    std::vector<std::string> refused;
    /// The content is recognisably messages of mean elements, in any of its forms, were it without a good
    /// one.
    bool hasHeading = false;
    /// How many more were left out.
    std::size_t furtherRefused = 0;
};

/// Converts orbit mean-elements messages (CCSDS 502.0-B) written as CSV, JSON, XML or in lines of
/// "KEY = value"; which of them is told by the content. Whatever is wrong with a message costs it alone. What
/// comes out is what `readElementSets` takes, byte for byte as the publisher's own three-line files have it:
/// numbers go into their columns by their decimal digits, the eccentricity cut, all others rounded once.
/// Throws nothing.
ThreeLineConversion threeLinesFromMessages(std::string_view content);

}  // namespace vantrace
