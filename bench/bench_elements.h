// Element sets that the benchmarks run on: those that ship with the program.
#pragma once

#include <cstddef>
#include <filesystem>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "orbit/elements/element_set.h"
#include "orbit/orbit_engine.h"

namespace vantrace {

std::filesystem::path shippedFolder();

/// The set of that name; throws where there is none.
ElementSet shippedSet(std::string_view name);

/// Names of low and high satellites, every one different.
std::vector<std::string> shippedNames(std::size_t count);

/// An engine over the shipped sets, its observer in the Netherlands.
std::unique_ptr<OrbitEngine> shippedEngine();

/// 2026-08-21 12:00:00 UTC, a day that most of the sets were made for.
Instant benchTime();

/// A temporary folder with element files of a thousand sets each: the shipped sets over and over, under
/// numbers and names of their own.
class ElementFolder {
  public:
    explicit ElementFolder(std::size_t sets);
    ~ElementFolder();
    ElementFolder(const ElementFolder&) = delete;
    ElementFolder& operator=(const ElementFolder&) = delete;

    const std::string& path() const { return m_path; }

  private:
    std::string m_path;
};

}  // namespace vantrace
