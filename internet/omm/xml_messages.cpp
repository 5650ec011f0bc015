// Messages as XML elements "omm", alone or within others.
#include "internet/omm/element_message.h"
#include "platform/qt/xml_reading.h"

namespace vantrace {

bool readXmlMessages(std::string_view text, const MessageReceiver& receiver) {
    constexpr std::string_view messageElement = "omm";
    bool isAboutElements = false;
    bool isInside = false;
    ElementMessage message;
    XmlReceiver events;
    events.begin = [&](std::string_view element) {
        if (element != messageElement) return;
        isAboutElements = true;
        isInside = true;
        message = {};
    };
    events.end = [&](std::string_view element, std::string_view content) {
        if (!isInside) return;
        if (const auto field = fieldOf(element)) {
            message.set(*field, content);
        } else if (element == messageElement) {
            isInside = false;
            receiver.message(message);
        }
    };
    // What comes behind a fault of the form is lost.
    if (const std::string failure = readXml(text, events); !failure.empty()) {
        receiver.remark("the XML ends in a fault: " + failure);
    }
    return isAboutElements;
}

}  // namespace vantrace
