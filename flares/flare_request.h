// What the flare service is asked, and how its page is fetched.
#pragma once

#include <cstddef>
#include <optional>
#include <string>

#include "platform/fetcher.h"

namespace vantrace {

struct ProgramState;
struct Services;

inline constexpr std::size_t flarePageLimitBytes = std::size_t{64} << 20;

/// "http://" and the host of hosts.dat.
std::string flareService(const ProgramState& state);

/// The address of the page with the flares of the coming seven days over the observer, times UTC. Longitudes
/// are degrees east there: 359.5 west is .5, 180 stays 180. Throws std::range_error where the place of the
/// observer is no number.
std::string flareUrl(const ProgramState& state);

/// Fetches an address into a file, by way of the proxy of the settings where "ProxyON" is "1".
std::optional<FetchError> fetchFlares(Services& services, const std::string& url, const std::string& file);

/// The page in a file as one text of UTF-8 (see asUtf8) without line ends, of which a lone CR is one. Throws
/// FileError.
std::string readFlarePage(const std::string& file);

}  // namespace vantrace
