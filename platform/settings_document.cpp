#include "platform/settings_document.h"

#include <algorithm>
#include <charconv>
#include <cstdint>

#include "platform/ascii.h"

namespace vantrace {

namespace {

/// Length of the UTF-8 sequence at the start of the text, 0 for none; overlong forms and surrogates are none.
std::size_t sequenceLength(std::string_view text) {
    const auto byte = [&](std::size_t i) { return static_cast<std::uint8_t>(text[i]); };
    const std::uint8_t lead = byte(0);
    if (lead < 0x80) return 1;
    const std::size_t length = lead >= 0xF0 ? 4 : lead >= 0xE0 ? 3 : 2;
    if (lead < 0xC2 || lead > 0xF4 || text.size() < length) return 0;
    for (std::size_t i = 1; i < length; ++i) {
        if ((byte(i) & 0xC0) != 0x80) return 0;
    }
    const std::uint8_t second = byte(1);
    const bool bad = (lead == 0xE0 && second < 0xA0) || (lead == 0xED && second > 0x9F) ||
                     (lead == 0xF0 && second < 0x90) || (lead == 0xF4 && second > 0x8F);
    return bad ? 0 : length;
}

bool isUtf8(std::string_view text) {
    while (!text.empty()) {
        const std::size_t length = sequenceLength(text);
        if (length == 0) return false;
        text.remove_prefix(length);
    }
    return true;
}

void appendHex(std::string& text, char sign) {
    constexpr std::string_view digits = "0123456789ABCDEF";
    const auto byte = static_cast<std::uint8_t>(sign);
    text += "\\x";
    text += digits[byte >> 4];
    text += digits[byte & 15];
}

/// `special` are the signs that mean something where the text will stand.
std::string escaped(std::string_view text, std::string_view special) {
    const bool keepsHighBytes = isUtf8(text);
    std::string result;
    for (std::size_t i = 0; i < text.size(); ++i) {
        const char sign = text[i];
        const auto byte = static_cast<std::uint8_t>(sign);
        const bool atEnd = i == 0 || i + 1 == text.size();
        if (sign == '\\') {
            result += "\\\\";
        } else if (sign == '\n') {
            result += "\\n";
        } else if (sign == '\r') {
            result += "\\r";
        } else if (byte < 0x20 || byte == 0x7F || (sign == ' ' && atEnd) ||
                   (byte >= 0x80 && !keepsHighBytes) || special.find(sign) != std::string_view::npos) {
            appendHex(result, sign);
        } else {
            result += sign;
        }
    }
    return result;
}

std::string unescaped(std::string_view text) {
    std::string result;
    while (!text.empty()) {
        std::size_t used = 1;
        char sign = text[0];
        const char kind = sign == '\\' && text.size() > 1 ? text[1] : '\0';
        if (kind == '\\' || kind == 'n' || kind == 'r') {
            sign = kind == 'n' ? '\n' : kind == 'r' ? '\r' : '\\';
            used = 2;
        } else if (kind == 'x' && text.size() >= 4) {
            unsigned value = 0;
            const char* const end = text.data() + 4;
            const auto [read, error] = std::from_chars(text.data() + 2, end, value, 16);
            if (error == std::errc() && read == end) {
                sign = static_cast<char>(value);
                used = 4;
            }
        }
        result += sign;
        text.remove_prefix(used);
    }
    return result;
}

std::string lineOf(std::string_view key, std::string_view value) {
    return escaped(key, "=[#;") + '=' + escaped(value, "");
}

}  // namespace

std::string settingsKey(std::string_view key) {
    std::string result(key);
    for (char& sign : result) {
        if (sign >= 'A' && sign <= 'Z') sign = static_cast<char>(sign - 'A' + 'a');
    }
    return result;
}

SettingsDocument::SettingsDocument(std::string_view text, std::string_view heading) : m_heading(heading) {
    bool isOurs = false;
    while (!text.empty()) {
        const std::size_t end = text.find('\n');
        Line line{std::string(text.substr(0, end)), std::nullopt, {}};
        text.remove_prefix(end == std::string_view::npos ? text.size() : end + 1);

        std::string_view content = line.text;
        if (content.ends_with('\r')) content.remove_suffix(1);
        content = withoutBlanks(content);
        const std::size_t equals = content.find('=');
        if (content.starts_with('[') && content.ends_with(']')) {
            isOurs = content.substr(1, content.size() - 2) == m_heading;
        } else if (isOurs && equals != std::string_view::npos && !content.starts_with('#') &&
                   !content.starts_with(';')) {
            line.key = unescaped(withoutBlanks(content.substr(0, equals)));
            line.value = unescaped(withoutBlanks(content.substr(equals + 1)));
        }
        const bool counts = !content.empty();
        m_lines.push_back(std::move(line));
        if (isOurs && counts) m_end = m_lines.size();
    }
    rebuildIndex();
}

const std::string* SettingsDocument::find(std::string_view key) const {
    const auto entry = m_index.find(settingsKey(key));
    return entry == m_index.end() ? nullptr : &m_lines[entry->second].value;
}

bool SettingsDocument::set(std::string_view key, std::string_view value) {
    const auto entry = m_index.find(settingsKey(key));
    if (entry != m_index.end()) {
        Line& line = m_lines[entry->second];
        if (line.value == value) return false;
        line.value = value;
        line.text = lineOf(*line.key, value);
        return true;
    }
    if (!m_end) {
        m_lines.push_back({'[' + m_heading + ']', std::nullopt, {}});
        m_end = m_lines.size();
    }
    m_lines.insert(m_lines.begin() + static_cast<std::ptrdiff_t>(*m_end),
                   {lineOf(key, value), std::string(key), std::string(value)});
    m_end = *m_end + 1;
    rebuildIndex();
    return true;
}

void SettingsDocument::removeAll() {
    const auto isSetting = [](const Line& line) { return line.key.has_value(); };
    if (m_end) {
        const auto end = m_lines.begin() + static_cast<std::ptrdiff_t>(*m_end);
        *m_end -= static_cast<std::size_t>(std::count_if(m_lines.begin(), end, isSetting));
    }
    std::erase_if(m_lines, isSetting);
    rebuildIndex();
}

std::string SettingsDocument::text() const {
    std::string result;
    for (const Line& line : m_lines) {
        result += line.text;
        result += '\n';
    }
    return result;
}

void SettingsDocument::rebuildIndex() {
    m_index.clear();
    for (std::size_t i = 0; i < m_lines.size(); ++i) {
        if (m_lines[i].key) m_index[settingsKey(*m_lines[i].key)] = i;
    }
}

}  // namespace vantrace
