// The passes of a satellite on a day, as rows of the results.
#pragma once

#include <cstdint>
#include <string>

namespace vantrace {

struct PassPredictionForm;
struct ProgramState;
struct Services;

/// Puts the passes that end on that local day, and whose greatest elevation in whole degrees the setting
/// "WxEL" doesn't exceed, behind the rows of the results; then yields, and has the user select anew. Of the
/// day only its number in the month is compared, which is enough within the three days that are searched.
/// `PrimarySatName` becomes the satellite. Local times have the offset of today. Throws EngineError where
/// there is no such satellite, std::invalid_argument for a record of the engine that makes no sense; the rows
/// before it stay.
void CalcResults(PassPredictionForm& form, ProgramState& state, Services& services,
                 const std::string& Satname, std::int16_t Day, std::int16_t Month, std::int16_t Year);

}  // namespace vantrace
