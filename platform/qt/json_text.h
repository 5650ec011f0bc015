// Values to JSON.
#pragma once

#include <cstdint>
#include <string>
#include <variant>
#include <vector>

namespace vantrace {

/// Nothing is null, and so is a double that is no finite number. Texts are UTF-8; bytes that aren't become
/// U+FFFD.
using JsonValue = std::variant<std::monostate, bool, std::int64_t, double, std::string>;

/// Rows of values as JSON objects with the same members.
class JsonRows {
  public:
    explicit JsonRows(const std::vector<std::string>& memberNames);

    /// One object on one line, without a line end, its members in the order of their names. Doubles are
    /// written so that they read back to the same bits. There are as many values as names.
    std::string object(const std::vector<JsonValue>& values) const;

  private:
    std::vector<std::string> m_keys;  ///< quoted, with their colons
};

}  // namespace vantrace
