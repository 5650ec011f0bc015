#include "internet/omm/element_message.h"

#include <algorithm>

#include "core/texts.h"

namespace vantrace {

namespace {

/// In the order of MessageField.
constexpr std::array<std::string_view, messageFieldCount> keys = {
    "OBJECT_NAME",  "OBJECT_ID",       "CENTER_NAME",
    "REF_FRAME",    "TIME_SYSTEM",     "MEAN_ELEMENT_THEORY",
    "EPOCH",        "MEAN_MOTION",     "ECCENTRICITY",
    "INCLINATION",  "RA_OF_ASC_NODE",  "ARG_OF_PERICENTER",
    "MEAN_ANOMALY", "EPHEMERIS_TYPE",  "CLASSIFICATION_TYPE",
    "NORAD_CAT_ID", "ELEMENT_SET_NO",  "REV_AT_EPOCH",
    "BSTAR",        "MEAN_MOTION_DOT", "MEAN_MOTION_DDOT",
};

}  // namespace

std::string_view keyOf(MessageField field) {
    return keys[static_cast<std::size_t>(field)];
}

std::optional<MessageField> fieldOf(std::string_view key) {
    const auto found = std::ranges::find(keys, key);
    if (found == keys.end()) return std::nullopt;
    return static_cast<MessageField>(found - keys.begin());
}

void ElementMessage::set(MessageField field, std::string_view text) {
    constexpr std::size_t longest = 256;
    m_texts[static_cast<std::size_t>(field)] = trimmed(trimmed(text).substr(0, longest));
}

bool ElementMessage::isEmpty() const {
    return std::ranges::all_of(m_texts, [](const std::string& text) { return text.empty(); });
}

}  // namespace vantrace
