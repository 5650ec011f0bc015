// Messages in the lines of a table, under a heading of their keys (RFC 4180).
#include <algorithm>
#include <vector>

#include "core/texts.h"
#include "internet/omm/element_message.h"
#include "platform/text_file.h"

namespace vantrace {

namespace {

/// Nothing for a line whose quotes aren't closed, as no field of a message goes on in the next line, and for
/// one with more fields than any table of messages has.
std::optional<std::vector<std::string>> fieldsOf(std::string_view line) {
    constexpr std::size_t mostFields = 200;
    std::vector<std::string> fields(1);
    bool isQuoted = false;
    for (std::size_t at = 0; at < line.size(); ++at) {
        if (line[at] == '"') {
            if (isQuoted && line.substr(at + 1).starts_with('"')) {
                fields.back() += line[++at];
            } else {
                isQuoted = !isQuoted;
            }
        } else if (line[at] == ',' && !isQuoted) {
            if (fields.size() == mostFields) return std::nullopt;
            fields.emplace_back();
        } else {
            fields.back() += line[at];
        }
    }
    if (isQuoted) return std::nullopt;
    return fields;
}

class CsvReader {
  public:
    explicit CsvReader(const MessageReceiver& receiver) : m_receiver(receiver) {}

    void take(std::string_view line, std::size_t number) {
        if (trimmed(line).empty()) return;
        const auto fields = fieldsOf(line);
        if (fields && takeHeading(*fields)) return;
        if (m_columns.empty()) return;
        if (!fields || fields->size() != m_columns.size()) {
            m_receiver.remark("line " + std::to_string(number) + " has not the columns of its heading");
            return;
        }
        ElementMessage message;
        for (std::size_t i = 0; i < fields->size(); ++i) {
            if (m_columns[i]) message.set(*m_columns[i], (*fields)[i]);
        }
        m_receiver.message(message);
    }

    bool hasHeading() const { return !m_columns.empty(); }

  private:
    /// Where files have been put together there is more than one.
    bool takeHeading(const std::vector<std::string>& fields) {
        std::vector<std::optional<MessageField>> columns;
        for (const std::string& field : fields) columns.push_back(fieldOf(trimmed(field)));
        const auto has = [&](MessageField field) {
            return std::ranges::find(columns, std::optional(field)) != columns.end();
        };
        if (!has(MessageField::epoch) || !has(MessageField::meanMotion)) return false;
        m_columns = std::move(columns);
        return true;
    }

    const MessageReceiver& m_receiver;
    std::vector<std::optional<MessageField>> m_columns;
};

}  // namespace

bool readCsvMessages(std::string_view text, const MessageReceiver& receiver) {
    CsvReader reader(receiver);
    LineReader lines(text);
    for (std::size_t number = 1; !lines.atEnd(); ++number) reader.take(lines.next(), number);
    return reader.hasHeading();
}

}  // namespace vantrace
