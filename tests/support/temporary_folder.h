// A folder for one test.
#pragma once

#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

namespace vantrace {

/// Made new, and removed with all that is in it at the end.
class TemporaryFolder {
  public:
    TemporaryFolder();
    ~TemporaryFolder();
    TemporaryFolder(const TemporaryFolder&) = delete;
    TemporaryFolder& operator=(const TemporaryFolder&) = delete;

    const std::filesystem::path& path() const { return m_path; }
    /// The same as a program folder: ended by '/'.
    std::string appPath() const { return m_path.string() + "/"; }

    /// Writes a file, with the folders on its way.
    void write(const std::filesystem::path& name, std::string_view content) const;
    /// The bytes of a file; empty where there is none.
    std::string read(const std::filesystem::path& name) const;
    bool exists(const std::filesystem::path& name) const;
    /// The names of what lies in the folder, sorted.
    std::vector<std::string> names() const;

  private:
    std::filesystem::path m_path;
};

}  // namespace vantrace
