#include "flares/flare_file.h"

#include <string>
#include <string_view>

#include "catalogue/data_files.h"
#include "core/texts.h"
#include "platform/file_replacement.h"
#include "platform/text_file.h"

namespace vantrace {

namespace {

constexpr std::string_view delimiter = ";";
/// A row of eight empty fields.
constexpr std::string_view endLine = ";;;;;;;";

FlareRow rowOf(std::string_view line) {
    FlareRow row;
    int word = 0;
    for (std::string& text : row.texts) text = GetDelimitedWord(line, ++word, delimiter);
    return row;
}

std::string lineOf(const FlareRow& row) {
    std::string line;
    for (const std::string& text : row.texts) line += (&text == row.texts.data() ? "" : ";") + text;
    return line;
}

}  // namespace

void saveFlares(const std::filesystem::path& file, const FlareList& list) {
    if (list.size() > mostFlares) throw FileError(file, "too many flares to write");
    std::string content;
    for (const FlareRow& row : list) content += lineOf(row) + std::string(lineEnd);
    if (content.size() > flareFileLimitBytes) throw FileError(file, "too long to write");
    replaceFile(file, content);
}

void loadFlares(const std::filesystem::path& file, FlareList& list) {
    const std::string content = readTextFile(file, flareFileLimitBytes);
    for (LineReader lines(content); !lines.atEnd();) {
        const std::string_view line = lines.next();
        if (line == endLine) return;
        if (list.size() == mostFlares) throw FileError(file, "has more lines than a list can have rows");
        list.push_back(rowOf(line));
    }
}

}  // namespace vantrace
