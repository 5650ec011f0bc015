#include "internet/element_server/web_address.h"

#include <algorithm>

#include "core/texts.h"

namespace vantrace {

std::string hostWord(std::string_view host) {
    if (const std::size_t at = host.rfind('@'); at != std::string_view::npos) host = host.substr(at + 1);
    for (const std::string_view ending : {":443", ":80", ":"}) {
        if (!host.ends_with(ending)) continue;
        host.remove_suffix(ending.size());
        break;
    }
    // In front of a port that stays, too.
    const std::size_t colon = std::min(host.rfind(':'), host.size());
    std::string_view name = host.substr(0, colon);
    while (name.ends_with('.')) name.remove_suffix(1);
    return lowerCased(name) + std::string(host.substr(colon));
}

std::optional<WebAddress> webAddress(std::string_view url) {
    const std::size_t mark = url.find("://");
    if (mark == std::string_view::npos) return std::nullopt;
    const std::string scheme = lowerCased(url.substr(0, mark));
    if (scheme != "http" && scheme != "https") return std::nullopt;
    url = url.substr(mark + 3);
    url = url.substr(0, url.find('#'));
    const std::size_t end = std::min(url.find_first_of("/?"), url.size());
    WebAddress address{scheme == "https", hostWord(url.substr(0, end)), std::string(url.substr(end))};
    if (!address.path.starts_with('/')) address.path = "/" + address.path;
    return address;
}

}  // namespace vantrace
