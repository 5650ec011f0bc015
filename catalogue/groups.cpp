#include "catalogue/groups.h"

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

#include "catalogue/data_files.h"
#include "core/program_state.h"
#include "core/texts.h"
#include "platform/text_file.h"

namespace vantrace {

void LoadGroups(ProgramState& state) {
    constexpr std::size_t lastCleared = 20;
    state.GroupsUnread = true;
    const std::string text = readTextFile(dataFile(state, groupsFile), listLimitBytes);
    state.GroupsUnread = false;
    std::size_t index = 1;
    for (const std::string_view line : splitLines(text)) {
        if (trimmed(line).empty()) {
            break;
        }
        // Past the end the table throws; what it has counts all the same.
        GroupRecord& group = state.Groups[index];
        group.Name = GetDelimitedWord(line, 1, ",");
        group.Url = trimmed(GetDelimitedWord(line, 2, ","));
        group.Flag = line.back();
        state.GroupCount = static_cast<std::int16_t>(index);
        ++index;
    }
    state.GroupCount = static_cast<std::int16_t>(index - 1);
    for (; index <= lastCleared; ++index) {
        state.Groups[index].Name.clear();
    }
}

void SaveGroups(ProgramState& state) {
    std::string text;
    for (std::int16_t index = 1; index <= state.GroupCount; ++index) {
        const GroupRecord& group = state.Groups[index];
        if (trimmed(group.Name).empty()) {
            continue;
        }
        text += group.Name + "," + group.Url + "," + group.Flag;
        text += lineEnd;
    }
    replaceList(state, groupsFile, text, state.GroupsUnread);
}

}  // namespace vantrace
