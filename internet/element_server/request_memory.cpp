#include "internet/element_server/request_memory.h"

#include <array>
#include <charconv>
#include <cstdio>
#include <stdexcept>

#include "core/date_time.h"
#include "core/texts.h"
#include "internet/element_server/part_file.h"
#include "platform/file_replacement.h"
#include "platform/text_file.h"

namespace vantrace {

namespace {

constexpr std::size_t longestMemoryBytes = std::size_t{256} * 1024;
constexpr std::size_t mostRequests = 1000;

constexpr double hoursADay = 24;
constexpr double usualSpanDays = 2 / hoursADay;
constexpr double unknownSpanDays = 7;

/// "2026-11-23 06:18:38", of UTC.
constexpr std::size_t timeLength = 19;

std::optional<int> digits(std::string_view text, std::size_t start, std::size_t count) {
    int value = 0;
    const char* const end = text.data() + start + count;
    const auto [stop, error] = std::from_chars(text.data() + start, end, value);
    return error == std::errc() && stop == end && value >= 0 ? std::optional(value) : std::nullopt;
}

std::optional<double> timeOf(std::string_view text) {
    if (text.size() != timeLength || text[4] != '-' || text[7] != '-' || text[10] != ' ') return std::nullopt;
    const auto year = digits(text, 0, 4);
    const auto month = digits(text, 5, 2);
    const auto day = digits(text, 8, 2);
    const auto hour = digits(text, 11, 2);
    const auto minute = digits(text, 14, 2);
    const auto second = digits(text, 17, 2);
    if (!year || !month || !day || !hour || !minute || !second) return std::nullopt;
    try {
        return packDateTime({*year, *month, *day, *hour, *minute, *second});
    } catch (const std::range_error&) {
        return std::nullopt;
    }
}

std::string timeText(double time) {
    const DateParts parts = dateParts(time);
    std::array<char, 32> text{};
    std::snprintf(text.data(), text.size(), "%04d-%02d-%02d %02d:%02d:%02d", parts.year, parts.month,
                  parts.day, parts.hour, parts.minute, parts.second);
    return text.data();
}

}  // namespace

double RequestMemory::Request::spanDays() const {
    return isUnknown(status) ? unknownSpanDays : usualSpanDays;
}

RequestMemory::RequestMemory(const Clock& clock) : m_clock(clock) {}

std::optional<RequestMemory::Wait> RequestMemory::waitFor(const std::string& folder, const std::string& url) {
    if (load(folder)) save(folder);
    const auto request = m_requests.find(lowerCased(url));
    if (request == m_requests.end()) return std::nullopt;
    return Wait{request->second.time + request->second.spanDays(), request->second.status};
}

void RequestMemory::note(const std::string& folder, const std::string& url, int status) {
    load(folder);
    m_requests[lowerCased(url)] = {NowUTC(m_clock), status};
    save(folder);
}

void RequestMemory::forget(const std::string& folder, const std::string& url) {
    load(folder);
    m_requests.erase(lowerCased(url));
    save(folder);
}

bool RequestMemory::load(const std::string& folder) {
    std::string text;
    try {
        text = readTextFile(folder + std::string(requestsFile), longestMemoryBytes);
    } catch (const FileError&) {
        // None yet, or one that tells nothing.
        return clean();
    }
    if (text != m_text) {
        m_text = text;
        for (const std::string_view line : splitLines(m_text)) readLine(line);
    }
    return clean();
}

void RequestMemory::readLine(std::string_view line) {
    if (line.size() < timeLength + 3 || line[timeLength] != ' ' || m_requests.size() >= mostRequests) return;
    const std::optional<double> time = timeOf(line.substr(0, timeLength));
    const std::string_view rest = line.substr(timeLength + 1);
    const std::size_t blank = rest.find(' ');
    if (!time || blank == 0 || blank > 3 || blank + 1 == rest.size()) return;
    const std::optional<int> status = digits(rest, 0, blank);
    if (!status) return;
    const auto [known, isNew] = m_requests.try_emplace(lowerCased(rest.substr(blank + 1)));
    if (isNew || known->second.time <= *time) known->second = {*time, *status};
}

/// Drops what is over, and brings back what lies in the future; true when there was such.
bool RequestMemory::clean() {
    const double now = NowUTC(m_clock);
    bool isSetBack = false;
    for (auto& [url, request] : m_requests) {
        if (request.time <= now + slackDays) continue;
        request.time = now;
        isSetBack = true;
    }
    std::erase_if(m_requests, [&](const auto& entry) {
        return entry.second.time + entry.second.spanDays() <= now + slackDays;
    });
    return isSetBack;
}

std::string RequestMemory::text() const {
    std::string text;
    for (const auto& [url, request] : m_requests) {
        text += timeText(request.time) + " " + std::to_string(request.status) + " " + url + "\n";
    }
    return text;
}

void RequestMemory::save(const std::string& folder) {
    const std::string newText = text();
    if (newText == m_text) return;
    try {
        replaceFile(folder + std::string(requestsFile), newText);
        m_text = newText;
    } catch (const FileError&) {
        // This run remembers all the same.
    }
}

}  // namespace vantrace
