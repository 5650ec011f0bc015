// The place beside a file where its next content arrives.
#pragma once

#include <filesystem>
#include <string_view>

namespace vantrace {

/// Files that fetches bring with them, in the program folder: an element file that is mended, and what is
/// remembered of requests.
inline constexpr std::string_view mendedElementsFile = "keps.tmp";
inline constexpr std::string_view requestsFile = "fetches.dat";

/// An empty file of a name of its own, "NAME.xxxxxx.part", in the folder of the file that it is for. Goes
/// with this object. What a program that was killed has left there for the same file or one of those two,
/// this or replaceFile()'s "NAME.xxxxxx.tmp", is removed when it is older than a day.
class PartFile {
  public:
    /// Throws FileError where none can be made, or where what is there already is no regular file or may not
    /// be written: nothing has to arrive first to know.
    explicit PartFile(const std::filesystem::path& target);
    ~PartFile();
    PartFile(const PartFile&) = delete;
    PartFile& operator=(const PartFile&) = delete;

    const std::filesystem::path& path() const { return m_path; }

  private:
    std::filesystem::path m_path;
};

}  // namespace vantrace
