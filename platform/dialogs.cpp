#include "platform/dialogs.h"

#include <ostream>

namespace vantrace {

void StreamDialogs::message(std::string_view text, std::string_view) {
    m_stream << text << std::endl;
}

bool StreamDialogs::question(std::string_view text, std::string_view title) {
    message(text, title);
    return false;
}

std::optional<std::string> StreamDialogs::textInput(std::string_view, std::string_view, std::string_view) {
    return std::nullopt;
}

std::optional<std::filesystem::path> StreamDialogs::fileToOpen(const FileRequest&) {
    return std::nullopt;
}

std::optional<std::filesystem::path> StreamDialogs::fileToSave(const FileRequest&) {
    return std::nullopt;
}

std::optional<std::filesystem::path> StreamDialogs::folder(const FileRequest&) {
    return std::nullopt;
}

}  // namespace vantrace
