// Arguments and option values, read strictly: what isn't wholly understood is an error.
#pragma once

#include <optional>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

#include "orbit/instant.h"

namespace vantrace {

/// A mistake of the user, or a file that he named and that isn't there; what() is one line.
class UserError : public std::runtime_error {
  public:
    using std::runtime_error::runtime_error;
};

/// The finite number that the whole text is, with "." as decimal mark; nothing where it is none.
std::optional<double> parseNumber(std::string_view text);

struct NumberRange {
    double least;
    double most;
};

/// These throw UserError, which tells the option and its text.
double numberOption(std::string_view option, std::string_view text, const NumberRange& range);
int wholeNumberOption(std::string_view option, std::string_view text, const NumberRange& range);
/// Numbers with "," between.
std::vector<double> numberListOption(std::string_view option, std::string_view text,
                                     const NumberRange& range);
/// ISO 8601, without an offset UTC.
Instant timeOption(std::string_view option, std::string_view text);

std::string inQuotes(std::string_view text);

}  // namespace vantrace
