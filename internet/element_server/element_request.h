// Addresses of the element server, in the form that it answers today.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace vantrace {

struct ElementRequest {
    /// What is asked.
    std::string url;
    /// With ":port" where it has one.
    std::string host;
    /// It gives element sets, in one form or another; else it is any other page of that host.
    bool isForElements = false;
    /// The group that the address names, as it is called today; empty for all other addresses.
    std::string group;
    /// The server doesn't keep the group any more, and isn't to be asked for it.
    bool hasCeased = false;
};

/// What to ask for an address (scheme, host and path) on the element host, nothing for one on another host.
///
/// The element host is the one of hosts.dat, with or without "www." in front, and the one that the program
/// came with; the latter also under another ending than its own (.com for .org), since that server has moved
/// and wants to be asked under its present name only. A port of 80 or 443 and a point at the end of the name
/// make no other host. It is asked by https, but for "localhost" and addresses that begin
/// with "127.", where a server for trying things out has no certificate.
///
/// The server's files of former times, /NORAD/elements/NAME.txt, answer no more: what is asked instead is the
/// query for that group as messages in CSV, /NORAD/elements/gp.php?GROUP=NAME&FORMAT=csv, or for those in
/// /NORAD/elements/supplemental/ sup-gp.php?FILE=NAME&FORMAT=csv there. All other addresses are asked as they
/// stand. https://celestrak.org/NORAD/documentation/gp-data-formats.php describes the queries.
std::optional<ElementRequest> elementRequest(std::string_view url, std::string_view elementHost);

}  // namespace vantrace
