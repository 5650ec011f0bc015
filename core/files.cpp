#include "core/files.h"

#include <fcntl.h>
#include <unistd.h>

#include <string_view>
#include <system_error>

#include "platform/file_descriptor.h"

namespace vantrace {

namespace fs = std::filesystem;

namespace {

bool matches(std::string_view name, std::string_view pattern) {
    std::size_t inName = 0;
    std::size_t inPattern = 0;
    // Where the last star stands, and the part of the name that it may still swallow.
    std::size_t star = std::string_view::npos;
    std::size_t afterStar = 0;
    while (inName < name.size()) {
        if (inPattern < pattern.size() && pattern[inPattern] == '*') {
            star = inPattern++;
            afterStar = inName;
        } else if (inPattern < pattern.size() &&
                   (pattern[inPattern] == '?' || pattern[inPattern] == name[inName])) {
            ++inName;
            ++inPattern;
        } else if (star != std::string_view::npos) {
            inPattern = star + 1;
            inName = ++afterStar;
        } else {
            return false;
        }
    }
    return pattern.find_first_not_of('*', inPattern) == std::string_view::npos;
}

std::string canonicalText(const fs::path& path) {
    std::error_code error;
    const fs::path canonical = fs::canonical(path, error);
    return error ? std::string() : canonical.string();
}

}  // namespace

bool FileExists(const fs::path& path) {
    const std::string pattern = path.filename().string();
    if (pattern.empty()) return false;  // a folder with its separator matches nothing
    std::error_code error;
    if (fs::exists(path, error)) return true;
    if (pattern.find_first_of("*?") == std::string::npos) return false;

    const fs::path folder = path.has_parent_path() ? path.parent_path() : fs::path(".");
    fs::directory_iterator entry(folder, error);
    for (; !error && entry != fs::directory_iterator(); entry.increment(error)) {
        if (matches(entry->path().filename().string(), pattern)) return true;
    }
    return false;
}

std::string ShortPathOf(const fs::path& path) {
    std::error_code error;
    if (fs::exists(path, error)) return canonicalText(path);
    // Made here or not at all: what somebody else makes meanwhile is not ours to delete.
    const FileDescriptor made(open(path.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0644));
    if (!made.isOpen()) return canonicalText(path);
    std::string shortPath = canonicalText(path);
    unlink(path.c_str());
    return shortPath;
}

}  // namespace vantrace
