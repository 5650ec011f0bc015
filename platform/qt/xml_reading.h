// XML as events.
#pragma once

#include <functional>
#include <string>
#include <string_view>

namespace vantrace {

/// Names are without the prefix of their namespace.
struct XmlReceiver {
    std::function<void(std::string_view element)> begin;
    /// With the text between this end and the tag before it, trimmed; of a long one the first 4096 signs.
    std::function<void(std::string_view element, std::string_view text)> end;
};

/// Reads an XML text from its begin; the answer is why it stopped before the end, else empty. Elements in
/// more than 100 others are such a reason, and so is any declaration of a document type, so that no entity of
/// the text's own is ever expanded. Nothing outside the text is read. Throws what the receiver throws.
std::string readXml(std::string_view text, const XmlReceiver& receiver);

}  // namespace vantrace
