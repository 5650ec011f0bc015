#include "orbit/elements/element_reader.h"

#include <algorithm>

#include "core/texts.h"
#include "platform/text_file.h"

namespace vantrace {

namespace {

/// A line without trailing blanks. Longer ones are cut before they are looked at: no name and no element line
/// is that long.
std::string_view trimmedLine(std::string_view line) {
    constexpr std::size_t longestLine = 256;
    line = line.substr(0, longestLine);
    while (!line.empty() && (line.back() == ' ' || line.back() == '\r' || line.back() == '\t')) {
        line.remove_suffix(1);
    }
    return line;
}

/// A line 1 or 2 begins with its number, a blank and a catalogue number, and is long. A name such as "1
/// HOPEFUL" is not taken for one.
bool isElementLine(std::string_view line, char number) {
    constexpr std::size_t shortest = 24;
    return line.size() >= shortest && line[0] == number && line[1] == ' ' &&
           parseCatalogNumber(line.substr(2, 5)) >= 0;
}

/// A line that was meant as line 1 or 2 although its start is damaged: of the right length, with the right
/// number.
bool resemblesElementLine(std::string_view line, char number) {
    return isElementLine(line, number) ||
           (line.size() >= 60 && line[0] == number && line[1] == ' ' &&
            std::count_if(line.begin(), line.end(), [](char c) { return c >= '0' && c <= '9'; }) > 25);
}

/// The mark of a name line may stand alone.
std::string_view trimmedName(std::string_view line) {
    return line == "0" ? std::string_view() : trimmed(withoutNameMark(line));
}

/// A name goes to terminals and windows: control characters have no business in it.
bool holdsControlCharacters(std::string_view name) {
    return std::any_of(name.begin(), name.end(), [](char c) { return (c >= 0 && c < ' ') || c == 0x7f; });
}

/// Puts name line, line 1 and line 2 together as the lines come.
class SetAssembler {
  public:
    explicit SetAssembler(const ElementReceiver& receiver) : m_receiver(receiver) {}

    void take(std::string_view line, std::size_t number) {
        if (resemblesElementLine(line, '1')) {
            reportLonelyLine1();
            m_line1 = line;
            m_line1Number = number;
        } else if (resemblesElementLine(line, '2')) {
            takeLine2(line, number);
        } else {
            reportLonelyLine1();
            m_name = trimmedName(line);
        }
    }

    void finish() { reportLonelyLine1(); }

  private:
    void takeLine2(std::string_view line, std::size_t number) {
        if (m_line1.empty()) {
            remark(number, "line 2 without a line 1 before it", false);
        } else {
            takeSet(line, number);
        }
        clear();
    }

    void takeSet(std::string_view line2, std::size_t number) {
        if (holdsControlCharacters(m_name)) {
            m_name = {};
            remark(m_line1Number, "the name before line 1 holds control characters", false);
            return;
        }
        ElementParse parse = parseElementLines({m_line1, line2});
        if (!parse.reason.empty()) {
            remark(parse.wrongLine == 1 ? m_line1Number : number, parse.reason, false);
            return;
        }
        if (parse.mismatch) {
            remark(number,
                   "lines 1 and 2 carry different catalogue numbers (" + std::string(m_line1.substr(2, 5)) +
                       ", " + std::string(line2.substr(2, 5)) + ")",
                   true);
        }
        parse.set.name = m_name.empty() ? std::to_string(parse.set.catalogNumber) : std::string(m_name);
        m_receiver.set(std::move(parse.set));
    }

    void reportLonelyLine1() {
        if (!m_line1.empty()) {
            remark(m_line1Number, "line 1 without a line 2 behind it", false);
            clear();
        }
    }

    void remark(std::size_t line, std::string reason, bool used) {
        m_receiver.remark({line, std::string(m_name), std::move(reason), used});
    }

    void clear() {
        m_name = {};
        m_line1 = {};
    }

    const ElementReceiver& m_receiver;
    std::string_view m_name;
    std::string_view m_line1;
    std::size_t m_line1Number = 0;
};

}  // namespace

std::string_view withoutNameMark(std::string_view nameLine) {
    constexpr std::string_view mark = "0 ";
    if (nameLine.starts_with(mark)) {
        nameLine.remove_prefix(mark.size());
    }
    return nameLine;
}

void readElementSets(std::string_view text, const ElementReceiver& receiver) {
    LineReader lines(text);
    SetAssembler assembler(receiver);
    for (std::size_t number = 1; !lines.atEnd(); ++number) {
        const std::string_view line = trimmedLine(lines.next());
        if (!line.empty() && line.front() != '#') {
            assembler.take(line, number);
        }
    }
    assembler.finish();
}

bool looksLikeElementSets(std::string_view text) {
    constexpr std::size_t lookedAt = std::size_t{64} * 1024;
    const std::string_view start = text.substr(0, lookedAt);
    LineReader lines(start);
    while (!lines.atEnd()) {
        const std::string_view line = trimmedLine(lines.next());
        if (resemblesElementLine(line, '1') || resemblesElementLine(line, '2')) {
            return true;
        }
    }
    return false;
}

}  // namespace vantrace
