// The next pass of a satellite, out of the engine's list of passes.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace vantrace {

class ErrorLabel;
struct ProgramState;
struct Services;

/// One record of the engine's list, and its rise as a UTC day number.
struct PassRecord {
    std::string text;
    double riseUtc = 0.0;
};

/// The first of the first 20 records whose rise is later than a time; the twentieth where none is. A list of
/// fewer records is read over again from its start, as `GetDelimitedWord` does. A record whose rise is no
/// date is logged and passed over; nothing where all are so. The list has no quotes.
std::optional<PassRecord> nextPassRecord(std::string_view list, double nowUtc, ErrorLabel& label);

/// Rise as "hh:mm:ss" local, length as "mmm : sss" and greatest elevation as two digits or more. Without a
/// pass, rise is the present date-time as the machine writes it. What can't be had stays as it was passed.
void NextPass(ProgramState& state, Services& services, std::string_view name, std::string& rise,
              std::string& length, std::string& greatestElevation);

/// The rise as a local day number; 9999-01-01 23:59:59 without a pass. Stays as it was passed where the
/// engine's answer can't be read.
void NextPassRAW(ProgramState& state, Services& services, std::string_view name, double& rise);

}  // namespace vantrace
