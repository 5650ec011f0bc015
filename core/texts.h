// Small work on texts. Columns and words are counted from 1; letters are A to Z.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace vantrace {

/// The n-th word of a text. Word 1 starts at column 1, each later word after the next delimiter; a word ends
/// before the next delimiter or with the text. Past the last delimiter the search starts again at column 1:
/// of "a,b" the words are a, b, a, b, a ... Below 1, n is taken as 1.
std::string GetDelimitedWord(std::string_view text, int n, std::string_view delimiter);

/// Whether a text holds a blank.
bool HasBlank(std::string_view text);

/// "05 MAR"; without a name ("05 ") for what is no month.
std::string MonthDayText(int day, int month);

/// "hh:mm:ss". Parts beyond their ranges are carried, and whole days dropped.
std::string TimeText(int hour, int minute, int second);

/// The text cut or filled up with blanks to so many characters of UTF-8. A byte that belongs to none counts
/// as one.
std::string FixedWidth(std::string_view Text, std::size_t Width);

/// A text that is UTF-8 as it stands; any other is taken for Windows-1252, as old pages and files come.
std::string asUtf8(std::string_view text);

/// Without the blanks at both ends. A view into the text.
std::string_view trimmed(std::string_view text);

std::string upperCased(std::string_view text);
std::string lowerCased(std::string_view text);
bool equalsIgnoringCase(std::string_view left, std::string_view right);

/// The text with every `from` replaced by `to`.
std::string replacedAll(std::string_view text, std::string_view from, std::string_view to);

}  // namespace vantrace
