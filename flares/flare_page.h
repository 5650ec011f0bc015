// The service's page as one text, in which places are counted from 1.
#pragma once

#include <cstddef>
#include <string_view>

namespace vantrace {

/// Places are those of bytes: what the scan looks for is plain ASCII in any encoding that a page may have.
class FlarePage {
  public:
    /// The text outlives this.
    explicit FlarePage(std::string_view text) : m_text(text) {}

    /// Where the token stands first, at or after `from` (from 1); 0 where it doesn't. Case counts.
    std::size_t find(std::string_view token, std::size_t from) const;
    /// The text from `start` up to, not including, `end`. Throws std::out_of_range where the end lies before
    /// the start, as it does when nobody found one.
    std::string_view between(std::size_t start, std::size_t end) const;
    /// Whether the text goes on like that from `start`.
    bool hasAt(std::size_t start, std::string_view token) const;

  private:
    std::string_view m_text;
};

}  // namespace vantrace
