#include "internet/element_server/part_file.h"

#include <fcntl.h>
#include <stdlib.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <string>

#include "platform/file_descriptor.h"
#include "platform/file_error.h"

namespace vantrace {

PartFile::PartFile(const std::filesystem::path& target) {
    struct stat old {};
    const bool exists = stat(target.c_str(), &old) == 0;
    if (exists && !S_ISREG(old.st_mode)) throw FileError(target, "not a regular file");
    if (exists && access(target.c_str(), W_OK) != 0) throw FileError(target, reasonOf(errno));
    if (!target.has_filename()) throw FileError(target, "no name of a file");
    // The name may be as long as the platform allows; there must be room for the ending.
    const std::string stem = target.filename().string().substr(0, 200);
    std::string name = (target.parent_path() / (stem + ".XXXXXX.part")).string();
    const FileDescriptor made(mkostemps(name.data(), 5, O_CLOEXEC));
    if (!made.isOpen()) throw FileError(target, reasonOf(errno));
    m_path = name;
}

PartFile::~PartFile() {
    unlink(m_path.c_str());
}

}  // namespace vantrace
