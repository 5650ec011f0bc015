// The parts of an address on the web that the fetcher tells hosts apart by.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace vantrace {

struct WebAddress {
    bool isEncrypted = false;
    /// See hostWord().
    std::string host;
    /// With the query, without the fragment; from "/" on.
    std::string path;
};

/// Nothing for an address that isn't one of http or https.
std::optional<WebAddress> webAddress(std::string_view url);

/// The host of an address, or of hosts.dat, in the one form in which hosts are compared: lower case, without
/// a user's name in front, a point at its end, or the ports 80 and 443; other ports stay.
std::string hostWord(std::string_view host);

}  // namespace vantrace
