#include "internet/element_server/kept_sets.h"

#include "core/texts.h"
#include "orbit/elements/element_reader.h"
#include "platform/text_file.h"

namespace vantrace {

namespace {

bool isOfASet(std::string_view line) {
    return line.starts_with("1 ") || line.starts_with("2 ");
}

bool isMarkup(std::string_view line) {
    return line.starts_with('<') || line.starts_with('{') || line.starts_with('[');
}

/// A line that isn't one of a set must be the name of the one behind it.
bool areLinesOfSets(std::string_view content) {
    bool isFirst = true;
    bool isName = false;
    for (LineReader lines(content); !lines.atEnd();) {
        const std::string_view line = trimmed(lines.next());
        if (line.empty() || line.starts_with('#')) continue;
        if (isFirst && isMarkup(line)) return false;
        isFirst = false;
        if (isName && !line.starts_with("1 ")) return false;
        isName = !isOfASet(line);
    }
    return true;
}

}  // namespace

bool holdsSetsAlone(std::string_view content) {
    if (!areLinesOfSets(content)) return false;
    int count = 0;
    readElementSets(content, {[&](ElementSet&&) { ++count; }, [](ElementRemark&&) {}});
    return count > 0;
}

}  // namespace vantrace
