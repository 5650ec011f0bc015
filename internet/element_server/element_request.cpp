#include "internet/element_server/element_request.h"

#include <algorithm>
#include <array>

#include "core/hosts.h"
#include "core/texts.h"
#include "internet/element_server/web_address.h"

namespace vantrace {

namespace {

constexpr std::string_view elementFolder = "/norad/elements/";
constexpr std::string_view supplementalFolder = "/norad/elements/supplemental/";

bool isLoopback(std::string_view host) {
    return host.substr(0, host.find(':')) == "localhost" || host.starts_with("127.");
}

std::string_view withoutWww(std::string_view host) {
    return host.starts_with("www.") ? host.substr(4) : host;
}

/// Of a name with two parts or more the name without the last; else nothing.
std::string_view withoutEnding(std::string_view host) {
    const std::size_t point = host.rfind('.');
    const bool isName = point != std::string_view::npos && host.find(':') == std::string_view::npos &&
                        std::ranges::any_of(host.substr(point), [](char sign) { return sign >= 'a'; });
    return isName ? host.substr(0, point) : std::string_view();
}

/// Only the host that the program came with is known to have other endings.
bool isSameServer(std::string_view host, std::string_view known, bool hasOtherEndings) {
    const std::string_view name = withoutWww(host);
    const std::string_view knownName = withoutWww(known);
    if (name == knownName) return true;
    return hasOtherEndings && !withoutEnding(name).empty() && withoutEnding(name) == withoutEnding(knownName);
}

struct Renaming {
    std::string_view before;
    /// Empty: there is none any more.
    std::string_view now;
};

/// The server's groups by their former names, where those differ or the group has ceased. From its list of
/// groups as of 2026.
constexpr std::array renamings{
    Renaming{"tle-new", "last-30-days"},
    Renaming{"1999-025", "fengyun-1c-debris"},
    Renaming{"1982-092", "cosmos-1408-debris"},
    Renaming{"gps", "gps-ops"},
    Renaming{"glonass", "glo-ops"},
    Renaming{"iridium-next", "iridium-NEXT"},
    Renaming{"iridium", ""},
    Renaming{"gorizont", ""},
    Renaming{"raduga", ""},
    Renaming{"molniya", ""},
    Renaming{"swarm", ""},
    Renaming{"2012-044", ""},
    Renaming{"2019-006", ""},
};

/// NAME of "NAME.txt"; nothing for a path that is anything else.
std::optional<std::string> fileStem(std::string_view path, std::string_view folder) {
    const std::string lower = lowerCased(path);
    if (!lower.starts_with(folder) || !lower.ends_with(".txt")) return std::nullopt;
    const std::string_view stem = path.substr(folder.size(), path.size() - folder.size() - 4);
    const auto isNameSign = [](char sign) {
        return (sign >= 'a' && sign <= 'z') || (sign >= 'A' && sign <= 'Z') || (sign >= '0' && sign <= '9') ||
               sign == '-' || sign == '_';
    };
    if (stem.empty() || !std::ranges::all_of(stem, isNameSign)) return std::nullopt;
    return std::string(stem);
}

/// The path to ask for a file of former times; also notes the group.
std::string presentPath(const std::string& path, ElementRequest& request) {
    if (const auto stem = fileStem(path, supplementalFolder)) {
        request.group = *stem;
        return "/NORAD/elements/supplemental/sup-gp.php?FILE=" + *stem + "&FORMAT=csv";
    }
    const auto stem = fileStem(path, elementFolder);
    if (!stem) return path;
    const auto renaming = std::ranges::find_if(
        renamings, [&](const Renaming& one) { return equalsIgnoringCase(one.before, *stem); });
    request.hasCeased = renaming != renamings.end() && renaming->now.empty();
    const bool isRenamed = renaming != renamings.end() && !request.hasCeased;
    request.group = isRenamed ? std::string(renaming->now) : *stem;
    return "/NORAD/elements/gp.php?GROUP=" + request.group + "&FORMAT=csv";
}

}  // namespace

std::optional<ElementRequest> elementRequest(std::string_view url, std::string_view elementHost) {
    const std::optional<WebAddress> address = webAddress(url);
    if (!address) return std::nullopt;
    const std::string usual = hostWord(Hosts{}.elementHost);
    for (const std::string& known : {hostWord(elementHost), usual}) {
        if (!isSameServer(address->host, known, known == usual)) continue;
        ElementRequest request;
        request.host = known;
        request.isForElements = lowerCased(address->path).starts_with(elementFolder);
        const std::string path = presentPath(address->path, request);
        request.url = (isLoopback(known) ? "http://" : "https://") + known + path;
        return request;
    }
    return std::nullopt;
}

}  // namespace vantrace
