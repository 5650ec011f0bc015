#include "platform/program_folder.h"

#include <stdlib.h>
#include <unistd.h>

#include <cerrno>
#include <system_error>

#include "platform/file_descriptor.h"

namespace vantrace {

namespace fs = std::filesystem;

namespace {

constexpr const char* folderName = "vantrace";

std::string endedByOneSlash(const fs::path& folder) {
    std::string text = folder.lexically_normal().string();
    while (text.ends_with('/')) text.pop_back();
    return text + '/';
}

std::optional<fs::path> installedFolder(const fs::path& executable) {
    const fs::path binaries = executable.parent_path();
    if (binaries.filename() != "bin") return std::nullopt;
    fs::path shared = binaries.parent_path() / "share" / folderName;
    std::error_code error;
    if (!fs::is_directory(shared, error)) return std::nullopt;
    return shared;
}

/// What is installed may belong to somebody else and be closed to writing; the copy is the user's own.
void copyInto(const fs::path& from, const fs::path& to) {
    fs::create_directories(to);
    for (const fs::directory_entry& entry : fs::directory_iterator(from)) {
        const fs::path target = to / entry.path().filename();
        if (entry.is_directory()) {
            copyInto(entry.path(), target);
        } else if (entry.is_regular_file()) {
            fs::copy_file(entry.path(), target);
            fs::permissions(target, fs::perms::owner_read | fs::perms::owner_write, fs::perm_options::add);
        }
    }
}

/// A folder beside the target, removed again unless it took its place.
class ScratchFolder {
  public:
    explicit ScratchFolder(const fs::path& target) {
        std::string name = target.string() + ".part.XXXXXX";
        if (mkdtemp(name.data()) == nullptr) throw FileError(name, reasonOf(errno));
        m_path = name;
    }
    ~ScratchFolder() {
        std::error_code ignored;
        fs::remove_all(m_path, ignored);
    }
    ScratchFolder(const ScratchFolder&) = delete;
    ScratchFolder& operator=(const ScratchFolder&) = delete;

    const fs::path& path() const { return m_path; }

  private:
    fs::path m_path;
};

void fill(const fs::path& target, const fs::path& shared) {
    try {
        fs::create_directories(target.parent_path());
        const ScratchFolder scratch(target);
        copyInto(shared, scratch.path());
        fs::permissions(scratch.path(), fs::perms::owner_all | fs::perms::group_read | fs::perms::group_exec |
                                            fs::perms::others_read | fs::perms::others_exec);
        std::error_code error;
        fs::rename(scratch.path(), target, error);
        // Another process may have been quicker; then its folder is as good as ours.
        if (error && !fs::is_directory(target)) throw FileError(target, error.message());
    } catch (const fs::filesystem_error& failure) {
        throw FileError(failure.path2().empty() ? failure.path1() : failure.path2(),
                        failure.code().message());
    }
}

struct Choice {
    fs::path folder;
    /// Where the folder is to be filled from when it doesn't exist.
    std::optional<fs::path> shared;
};

Choice choose(const ProgramFolderRequest& request) {
    if (request.named) {
        std::error_code error;
        if (!fs::is_directory(*request.named, error)) {
            throw FileError(*request.named, error ? error.message() : "not a folder");
        }
        return {fs::absolute(*request.named), std::nullopt};
    }
    const fs::path executable = fs::absolute(request.executable);
    std::optional<fs::path> shared = installedFolder(executable);
    if (!shared) return {executable.parent_path(), std::nullopt};
    return {request.user.dataHome / folderName, std::move(shared)};
}

}  // namespace

std::string programFolder(const ProgramFolderRequest& request) {
    const Choice choice = choose(request);
    if (choice.shared) {
        std::error_code error;
        const fs::file_status status = fs::status(choice.folder, error);
        if (status.type() == fs::file_type::not_found) {
            try {
                fill(choice.folder, *choice.shared);
            } catch (const FileError&) {
                // Who has no place of his own reads what is installed; what can't be saved is told when it
                // is tried.
                return endedByOneSlash(*choice.shared);
            }
        } else if (!fs::is_directory(status)) {
            throw FileError(choice.folder, error ? error.message() : "not a folder");
        }
    }
    return endedByOneSlash(choice.folder);
}

std::string readOnlyProgramFolder(const ProgramFolderRequest& request) {
    const Choice choice = choose(request);
    std::error_code error;
    if (choice.shared && !fs::is_directory(choice.folder, error)) return endedByOneSlash(*choice.shared);
    return endedByOneSlash(choice.folder);
}

std::filesystem::path executablePath() {
    const fs::path link = "/proc/self/exe";
    std::error_code error;
    fs::path path = fs::read_symlink(link, error);
    if (error) throw FileError(link, error.message());
    return path;
}

}  // namespace vantrace
