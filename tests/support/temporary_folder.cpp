#include "tests/support/temporary_folder.h"

#include <stdlib.h>

#include <algorithm>
#include <fstream>
#include <limits>
#include <stdexcept>
#include <system_error>

#include "platform/text_file.h"

namespace vantrace {

TemporaryFolder::TemporaryFolder() {
    std::string name = (std::filesystem::temp_directory_path() / "vantrace-test-XXXXXX").string();
    if (mkdtemp(name.data()) == nullptr) throw std::runtime_error(name + " can't be made");
    m_path = std::filesystem::canonical(name);
}

TemporaryFolder::~TemporaryFolder() {
    std::error_code ignored;
    std::filesystem::remove_all(m_path, ignored);
}

void TemporaryFolder::write(const std::filesystem::path& name, std::string_view content) const {
    const std::filesystem::path path = m_path / name;
    std::filesystem::create_directories(path.parent_path());
    std::ofstream file(path, std::ios::binary | std::ios::trunc);
    file << content << std::flush;
    if (!file) throw std::runtime_error(path.string() + " can't be written");
}

std::string TemporaryFolder::read(const std::filesystem::path& name) const {
    return exists(name) ? readTextFile(m_path / name, std::numeric_limits<std::size_t>::max())
                        : std::string();
}

bool TemporaryFolder::exists(const std::filesystem::path& name) const {
    return std::filesystem::exists(m_path / name);
}

std::vector<std::string> TemporaryFolder::names() const {
    std::vector<std::string> names;
    for (const auto& entry : std::filesystem::directory_iterator(m_path)) {
        names.push_back(entry.path().filename().string());
    }
    std::ranges::sort(names);
    return names;
}

}  // namespace vantrace
