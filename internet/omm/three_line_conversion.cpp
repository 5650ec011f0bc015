#include "internet/omm/three_line_conversion.h"

#include "core/texts.h"
#include "internet/omm/element_message.h"
#include "internet/omm/three_line_writer.h"
#include "platform/text_file.h"

namespace vantrace {

namespace {

/// The first line that says something: comments may stand before it.
std::string_view firstLine(std::string_view text) {
    for (LineReader lines(text); !lines.atEnd();) {
        const std::string_view line = trimmed(lines.next());
        if (!line.empty() && !line.starts_with("COMMENT")) return line;
    }
    return {};
}

/// The reader for the form that the text is written in.
bool readMessages(std::string_view text, const MessageReceiver& receiver) {
    const std::string_view line = firstLine(text);
    // In front of an XML declaration nothing may stand.
    if (line.starts_with('<')) {
        text.remove_prefix(static_cast<std::size_t>(line.data() - text.data()));
        return readXmlMessages(text, receiver);
    }
    if (line.starts_with('{') || line.starts_with('[')) return readJsonMessages(text, receiver);
    if (line.find('=') < line.find(',')) return readKeyValueMessages(text, receiver);
    return readCsvMessages(text, receiver);
}

}  // namespace

ThreeLineConversion threeLinesFromMessages(std::string_view content) {
    constexpr std::size_t mostRemarks = 1000;
    ThreeLineConversion conversion;
    MessageReceiver receiver;
    receiver.remark = [&](const std::string& remark) {
        if (conversion.refused.size() < mostRemarks) {
            conversion.refused.push_back(remark);
        } else {
            ++conversion.furtherRefused;
        }
    };
    receiver.message = [&](const ElementMessage& message) {
        const ThreeLineSet set = makeThreeLineSet(message);
        if (!set.refusal.empty()) return receiver.remark(set.refusal);
        conversion.text += set.text;
        ++conversion.good;
    };
    conversion.hasHeading = readMessages(content, receiver);
    return conversion;
}

}  // namespace vantrace
