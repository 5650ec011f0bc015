// Messages as JSON objects: one, or an array of them.
#include <algorithm>

#include "internet/omm/element_message.h"
#include "platform/qt/json_reading.h"

namespace vantrace {

namespace {

/// Takes a text apart into its outermost objects, so that one that is no good costs itself alone, and a
/// deep or huge one costs nothing at all.
class ObjectSplitter {
  public:
    explicit ObjectSplitter(std::string_view text) : m_text(text) {}

    /// The next object with its braces; nothing when there is none any more.
    std::optional<std::string_view> next() {
        std::size_t start = 0;
        for (; m_at < m_text.size(); ++m_at) {
            const char c = m_text[m_at];
            if (passesString(c)) continue;
            if (c == '{' && m_depth++ == 0) start = m_at;
            if (c == '}' && m_depth > 0 && --m_depth == 0) {
                ++m_at;
                return m_text.substr(start, m_at - start);
            }
        }
        return std::nullopt;
    }

    /// After the last object: whether a further one has begun.
    bool isCutOff() const { return m_depth > 0; }

  private:
    /// Whether a sign belongs to a string. None goes beyond its line: there a missing quote ends its harm.
    bool passesString(char c) {
        const bool wasInside = m_isInString;
        if (m_isEscaped) {
            m_isEscaped = false;
        } else if (c == '\n') {
            m_isInString = false;
        } else if (c == '"') {
            m_isInString = !m_isInString;
        } else {
            m_isEscaped = m_isInString && c == '\\';
        }
        return wasInside || c == '"';
    }

    std::string_view m_text;
    std::size_t m_at = 0;
    std::size_t m_depth = 0;
    bool m_isInString = false;
    bool m_isEscaped = false;
};

}  // namespace

bool readJsonMessages(std::string_view text, const MessageReceiver& receiver) {
    constexpr std::size_t largestObject = std::size_t{64} * 1024;
    bool isAboutElements = false;
    std::size_t number = 0;
    const auto remark = [&](std::string_view reason) {
        receiver.remark("JSON object " + std::to_string(number) + ": " + std::string(reason));
    };
    ObjectSplitter objects(text);
    while (const auto object = objects.next()) {
        ++number;
        if (object->size() > largestObject) {
            remark("too large for a message");
            continue;
        }
        const JsonObjectReading reading = readJsonObject(*object);
        if (!reading.failure.empty()) {
            remark(reading.failure);
            continue;
        }
        const auto has = [&](MessageField field) {
            return std::ranges::find(reading.members, keyOf(field), &JsonMember::name) !=
                   reading.members.end();
        };
        if (has(MessageField::epoch) && has(MessageField::meanMotion)) isAboutElements = true;
        ElementMessage message;
        for (const JsonMember& member : reading.members) {
            if (const auto field = fieldOf(member.name)) message.set(*field, member.text);
        }
        receiver.message(message);
    }
    if (objects.isCutOff()) {
        ++number;
        remark("cut off");
    }
    return isAboutElements;
}

}  // namespace vantrace
