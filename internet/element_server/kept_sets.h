// Whether an answer is a file of element sets, and nothing else.
#pragma once

#include <string_view>

namespace vantrace {

/// At least one good set, and no line but those of sets and their names: a page that shows a set in its midst
/// is none. Lines 1 and 2 that came through damaged are still lines of sets, as is a name at the very end;
/// blank lines and those that begin with '#' don't count.
bool holdsSetsAlone(std::string_view content);

}  // namespace vantrace
