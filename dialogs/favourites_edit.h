// Favourites, as ticks put them in and take them out.
#pragma once

#include <string>

namespace vantrace {

struct ProgramState;
struct Services;

/// Whether a name stands among the favourites in front of the first blank one, to the letter.
bool IsFavourite(const ProgramState& state, Services& services, const std::string& Name);

/// With Add, a name comes into the first blank entry below 500, or into entry 500 where none is blank; that
/// entry's number is the count. A name that is there already comes a second time. Without, the first entry of
/// that name goes and those behind it move up, their names alone.
void SetFavourite(ProgramState& state, const std::string& Name, bool Add);

}  // namespace vantrace
