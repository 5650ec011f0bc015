#include "catalogue/data_files.h"

#include <stdexcept>
#include <system_error>

#include "core/program_state.h"
#include "platform/file_replacement.h"

namespace vantrace {

std::filesystem::path dataFile(const ProgramState& state, std::string_view bareName) {
    return state.AppPath + std::string(bareName);
}

void replaceList(const ProgramState& state, std::string_view bareName, std::string_view content,
                 bool& isUnread) {
    const std::filesystem::path file = dataFile(state, bareName);
    std::error_code ignored;
    if (isUnread && std::filesystem::exists(file, ignored)) {
        throw FileError(file, "could not be read before, and is left as it is");
    }
    replaceFile(file, content);
    isUnread = false;
}

std::string_view columnsFrom(std::string_view text, std::size_t first, std::ptrdiff_t count) {
    if (count < 0) {
        throw std::invalid_argument("no text has " + std::to_string(count) + " characters");
    }
    if (first > text.size()) {
        return {};
    }
    return text.substr(first - 1, static_cast<std::size_t>(count));
}

}  // namespace vantrace
