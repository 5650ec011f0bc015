#pragma once

#include <cstddef>
#include <functional>
#include <string>
#include <string_view>

#include "orbit/elements/element_set.h"

namespace vantrace {

/// A set that was left out, or one that was used although something about it is odd.
struct ElementRemark {
    std::size_t line = 0;  ///< of the file, counted from 1: the line that is wrong
    std::string name;      ///< of the set, where one is known
    std::string reason;
    bool used = false;  ///< told, and used all the same
};

struct ElementReceiver {
    std::function<void(ElementSet&&)> set;
    std::function<void(ElementRemark&&)> remark;
};

/// Reads two-line element sets: an optional name line (with or without a leading "0 "), then lines 1 and 2.
/// Lines end in LF or CR LF; trailing blanks, a UTF-8 mark at the start and lines that begin with '#' are
/// passed over; what stands behind column 69 after a blank is ignored. Catalogue numbers may be in the
/// Alpha-5 form. Nothing throws: whatever is wrong costs its own set alone.
void readElementSets(std::string_view text, const ElementReceiver& receiver);

/// A name line without the "0 " that some publishers put in front of the name.
std::string_view withoutNameMark(std::string_view nameLine);

/// Whether a text looks like element sets, whatever its file is called: somewhere in its first 64 KB stands a
/// line 1 or a line 2.
bool looksLikeElementSets(std::string_view text);

/// Reads lines 1 and 2. On failure the reason stands in `reason`, `wrongLine` is 1 or 2, and the set means
/// nothing. `mismatch` tells that the lines carry different catalogue numbers; line 1 then holds.
struct ElementLines {
    std::string_view line1;
    std::string_view line2;
};
struct ElementParse {
    ElementSet set;
    std::string reason;  ///< empty when all is well
    int wrongLine = 0;
    bool mismatch = false;
};
ElementParse parseElementLines(const ElementLines& lines);

/// Catalogue number of five columns, Alpha-5 included (A0000 is 100000; I and O are not used); -1 when it is
/// none.
std::int32_t parseCatalogNumber(std::string_view fiveColumns);

}  // namespace vantrace
