// Messages in lines of "KEY = value".
#include "core/texts.h"
#include "internet/omm/element_message.h"
#include "platform/text_file.h"

namespace vantrace {

namespace {

constexpr std::string_view versionKey = "CCSDS_OMM_VERS";

/// Without the unit that may stand behind a number: "51.6 [deg]". Names may end in brackets of their own.
std::string_view withoutUnit(std::string_view value) {
    const std::size_t bracket = value.find('[');
    return bracket == std::string_view::npos || !value.ends_with(']') ? value : value.substr(0, bracket);
}

}  // namespace

bool readKeyValueMessages(std::string_view text, const MessageReceiver& receiver) {
    bool hasVersion = false;
    ElementMessage message;
    const auto finish = [&] {
        if (!message.isEmpty() && hasVersion) receiver.message(message);
        message = {};
    };
    for (LineReader lines(text); !lines.atEnd();) {
        const std::string_view line = trimmed(lines.next());
        const std::size_t equals = line.find('=');
        if (equals == std::string_view::npos) continue;
        const std::string_view key = trimmed(line.substr(0, equals));
        const std::string_view value = trimmed(line.substr(equals + 1));
        if (key == versionKey) {
            finish();
            hasVersion = true;
        } else if (const auto field = fieldOf(key)) {
            message.set(*field, *field == MessageField::objectName ? value : withoutUnit(value));
        }
    }
    finish();
    return hasVersion;
}

}  // namespace vantrace
