#include "catalogue/data_files.h"

#include <stdexcept>

#include "core/program_state.h"

namespace vantrace {

std::filesystem::path dataFile(const ProgramState& state, std::string_view bareName) {
    return state.AppPath + std::string(bareName);
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
