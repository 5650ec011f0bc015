#include "core/hosts.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <string_view>

#include "core/program_state.h"
#include "core/texts.h"
#include "platform/desktop.h"
#include "platform/text_file.h"

namespace vantrace {

namespace {

constexpr std::size_t longestFileBytes = 65536;

bool isPage(std::string_view value) {
    return isOpenableAddress(value) && !equalsIgnoringCase(value.substr(0, value.find(':')), "mailto");
}

/// No part of it may begin the header fields that a mail address can carry.
bool isMail(std::string_view value) {
    const std::size_t at = value.find('@');
    return isOpenableAddress("mailto:" + std::string(value)) && at != std::string_view::npos &&
           value.find('@', at + 1) == std::string_view::npos && at + 1 < value.size() &&
           value.find_first_of("?#/,;:") == std::string_view::npos;
}

bool isPort(std::string_view text) {
    int port = 0;
    const char* const end = text.data() + text.size();
    const auto [stop, error] = std::from_chars(text.data(), end, port);
    return error == std::errc() && stop == end && port >= 1 && port <= 65535;
}

bool isHost(std::string_view value) {
    const std::size_t colon = value.find(':');
    const std::string_view name = value.substr(0, colon);
    const auto isNameSign = [](char sign) {
        return (sign >= 'a' && sign <= 'z') || (sign >= 'A' && sign <= 'Z') || (sign >= '0' && sign <= '9') ||
               sign == '.' || sign == '-';
    };
    return !name.empty() && std::ranges::all_of(name, isNameSign) && name.front() != '.' &&
           name.front() != '-' && (colon == std::string_view::npos || isPort(value.substr(colon + 1)));
}

struct Entry {
    std::string_view key;
    std::string Hosts::*value;
    bool (*isGood)(std::string_view);
};

constexpr std::array entries{
    Entry{"homePage", &Hosts::homePage, isPage},
    Entry{"helpPage", &Hosts::helpPage, isPage},
    Entry{"videoPlaylists", &Hosts::videoPlaylists, isPage},
    Entry{"searchPage", &Hosts::searchPage, isPage},
    Entry{"maintainer", &Hosts::maintainer, isMail},
    Entry{"flareHost", &Hosts::flareHost, isHost},
    Entry{"elementHost", &Hosts::elementHost, isHost},
    Entry{"updateHost", &Hosts::updateHost, isHost},
    Entry{"timeHost", &Hosts::timeHost, isHost},
};

void readLine(std::string_view line, Hosts& hosts) {
    const std::size_t equals = line.find('=');
    if (trimmed(line).starts_with('#') || equals == std::string_view::npos) return;
    const std::string_view key = trimmed(line.substr(0, equals));
    const std::string_view value = trimmed(line.substr(equals + 1));
    const auto entry = std::ranges::find_if(
        entries, [&](const Entry& candidate) { return equalsIgnoringCase(candidate.key, key); });
    if (entry != entries.end() && entry->isGood(value)) hosts.*entry->value = value;
}

}  // namespace

Hosts readHosts(const ProgramState& state) {
    Hosts hosts;
    try {
        const std::string text = readTextFile(state.AppPath + "hosts.dat", longestFileBytes);
        for (const std::string_view line : splitLines(text)) readLine(line, hosts);
    } catch (const FileError&) {
        // What stands in the header is as good as any file.
        return hosts;
    }
    return hosts;
}

}  // namespace vantrace
