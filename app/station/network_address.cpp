#include "app/station/network_address.h"

#include <algorithm>

#include "app/program/arguments.h"

namespace vantrace {

std::string NetworkAddress::text() const {
    if (isLocal()) return localSocket;
    const bool isIp6 = host.find(':') != std::string::npos;
    return (isIp6 ? "[" + host + "]" : host) + ":" + std::to_string(port);
}

std::string NetworkAddress::daemon() const {
    NetworkAddress known = *this;
    if (host == "localhost" || host == "::1") known.host = "127.0.0.1";
    return known.text();
}

NetworkAddress addressOption(std::string_view option, std::string_view text) {
    const auto fail = [&] {
        return UserError("--" + std::string(option) + ": " + inQuotes(text) +
                         " is no HOST:PORT such as 127.0.0.1:4533");
    };
    const std::size_t colon = text.rfind(':');
    if (colon == std::string_view::npos) throw fail();
    std::string_view host = text.substr(0, colon);
    const std::string_view port = text.substr(colon + 1);
    if (host.starts_with('[') && host.ends_with(']')) host = host.substr(1, host.size() - 2);
    const bool isPort =
        !port.empty() && port.size() <= 5 && port.find_first_not_of("0123456789") == std::string_view::npos;
    const int number = isPort ? std::stoi(std::string(port)) : 0;
    const bool isHost = !host.empty() && std::ranges::all_of(host, [](char sign) {
        return sign > ' ' && sign <= '~' && sign != '[' && sign != ']';
    });
    if (!isHost || number < 1 || number > 65535) throw fail();
    return {std::string(host), static_cast<std::uint16_t>(number), {}};
}

}  // namespace vantrace
