#include "platform/working_folder.h"

#include <stdlib.h>
#include <unistd.h>

#include <string>
#include <system_error>

#include "platform/file_descriptor.h"

namespace vantrace {

bool canMakeFilesIn(const std::filesystem::path& folder) {
    std::string name = (folder / ".vantrace-XXXXXX").string();
    const FileDescriptor file(mkstemp(name.data()));
    if (!file.isOpen()) return false;
    unlink(name.c_str());
    return true;
}

void leaveUnwritableFolder(const std::filesystem::path& refuge) {
    if (canMakeFilesIn(".")) return;
    std::error_code ignored;
    std::filesystem::current_path(refuge, ignored);
}

}  // namespace vantrace
