#include "platform/desktop.h"

#include <algorithm>
#include <array>

namespace vantrace {

namespace {

/// The signs of an address by RFC 3986, section 2. Anything else is written with "%".
constexpr bool isAddressSign(char sign) {
    constexpr std::string_view marks = "-._~:/?#[]@!$&'()*+,;=%";
    return (sign >= 'a' && sign <= 'z') || (sign >= 'A' && sign <= 'Z') || (sign >= '0' && sign <= '9') ||
           marks.find(sign) != std::string_view::npos;
}

bool startsIgnoringCase(std::string_view text, std::string_view start) {
    const auto lower = [](char sign) {
        return sign >= 'A' && sign <= 'Z' ? static_cast<char>(sign - 'A' + 'a') : sign;
    };
    return text.size() >= start.size() &&
           std::ranges::equal(text.substr(0, start.size()), start, {}, lower, lower);
}

}  // namespace

bool isOpenableAddress(std::string_view address) {
    if (!std::ranges::all_of(address, isAddressSign)) return false;
    constexpr std::array<std::string_view, 3> starts{"https://", "http://", "mailto:"};
    for (const std::string_view start : starts) {
        if (!startsIgnoringCase(address, start)) continue;
        const std::string_view rest = address.substr(start.size());
        constexpr std::string_view noHost = "/?#:@";
        return !rest.empty() && noHost.find(rest.front()) == std::string_view::npos;
    }
    return false;
}

void NoDesktop::openAddress(std::string_view address) {
    throw DesktopError("there is no desktop to open " + std::string(address));
}

void NoDesktop::openTextFile(const std::filesystem::path& file) {
    throw DesktopError("there is no desktop to open " + file.string());
}

void NoDesktop::startProgram(const std::filesystem::path& program) {
    throw DesktopError("there is no desktop to start " + program.string());
}

void NoDesktop::startSystemInformation() {
    throw DesktopError("there is no desktop to open system information");
}

void NoDesktop::startTimeSettings() {
    throw DesktopError("there is no desktop to open time settings");
}

}  // namespace vantrace
