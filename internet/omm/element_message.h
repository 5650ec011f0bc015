// One message of mean elements, as texts.
#pragma once

#include <array>
#include <cstddef>
#include <functional>
#include <optional>
#include <string>
#include <string_view>

namespace vantrace {

/// The words of a message that a three-line set is made of, or that tell whether one can be.
enum class MessageField : std::size_t {
    objectName,
    objectId,
    centerName,
    refFrame,
    timeSystem,
    meanElementTheory,
    epoch,
    meanMotion,
    eccentricity,
    inclination,
    raOfAscNode,
    argOfPericenter,
    meanAnomaly,
    ephemerisType,
    classificationType,
    noradCatId,
    elementSetNo,
    revAtEpoch,
    bStar,
    meanMotionDot,
    meanMotionDdot,
};
inline constexpr std::size_t messageFieldCount = 21;

/// "OBJECT_NAME" and its like.
std::string_view keyOf(MessageField field);
/// Nothing for a key that isn't among them.
std::optional<MessageField> fieldOf(std::string_view key);

class ElementMessage {
  public:
    /// The text, trimmed; empty where the message doesn't tell it.
    const std::string& operator[](MessageField field) const {
        return m_texts[static_cast<std::size_t>(field)];
    }
    /// Longer texts than any word of a message has are cut.
    void set(MessageField field, std::string_view text);
    bool isEmpty() const;

  private:
    std::array<std::string, messageFieldCount> m_texts;
};

struct MessageReceiver {
    std::function<void(const ElementMessage&)> message;
    /// Something that would be a message can't be read.
    std::function<void(const std::string&)> remark;
};

/// Each reads one form of writing, and tells whether the text is of that form and about mean elements at all.
bool readCsvMessages(std::string_view text, const MessageReceiver& receiver);
bool readJsonMessages(std::string_view text, const MessageReceiver& receiver);
bool readKeyValueMessages(std::string_view text, const MessageReceiver& receiver);
bool readXmlMessages(std::string_view text, const MessageReceiver& receiver);

}  // namespace vantrace
