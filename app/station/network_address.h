// Where a program listens.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace vantrace {

/// A host and its port, or the path of a local socket.
struct NetworkAddress {
    std::string host;
    std::uint16_t port = 0;
    std::string localSocket;

    bool isLocal() const { return !localSocket.empty(); }
    std::string text() const;
    /// The same text for the names that this machine has for itself.
    std::string daemon() const;

    friend bool operator==(const NetworkAddress&, const NetworkAddress&) = default;
};

/// "HOST:PORT", where the host may be an address of IPv6 in brackets. Throws UserError, which tells the
/// option.
NetworkAddress addressOption(std::string_view option, std::string_view text);

}  // namespace vantrace
