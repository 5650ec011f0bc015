// The text of a settings file: headings "[application/section]", under each one "key=value" a line.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace vantrace {

/// One section of such a text can be read and changed; everything else in it, also what nobody understands,
/// stays as it is. Of two lines with the same key the later one counts. Blanks around key and value count for
/// nothing. A backslash starts an escape: "\\", "\n", "\r", "\xHH"; what would not survive as plain text
/// (control characters, a blank at either end, "=" in a key, bytes that aren't UTF-8) is written by one.
/// Lines that start with "#" or ";" are remarks.
class SettingsDocument {
  public:
    /// Takes any bytes; never fails. `heading` is the section's, without brackets.
    SettingsDocument(std::string_view text, std::string_view heading);

    /// The value of a key, without regard to case; null where it isn't there.
    const std::string* find(std::string_view key) const;
    /// False where the key had that value already. A key that is there keeps its spelling.
    bool set(std::string_view key, std::string_view value);
    void removeAll();
    std::string text() const;

  private:
    struct Line {
        /// As it is to be written.
        std::string text;
        /// Of a setting in our section: the key as it is spelled, and the value. Elsewhere no key.
        std::optional<std::string> key;
        std::string value;
    };

    void rebuildIndex();

    std::string m_heading;
    std::vector<Line> m_lines;
    /// Where in m_lines the next setting goes; nothing while there is no heading of ours.
    std::optional<std::size_t> m_end;
    /// Lower-case key to index in m_lines.
    std::unordered_map<std::string, std::size_t> m_index;
};

/// The key as it is looked up: A to Z in lower case.
std::string settingsKey(std::string_view key);

}  // namespace vantrace
