// What servers of the daytime service (TCP port 13) say.
#pragma once

#include <chrono>
#include <optional>
#include <string_view>

namespace vantrace {

/// To the millisecond, UTC.
using UtcTime = std::chrono::sys_time<std::chrono::milliseconds>;

struct DaytimeReply {
    /// As the server wrote it, in whichever zone, at the moment when it wrote it.
    std::chrono::local_time<std::chrono::milliseconds> time;
    /// How far the server's zone is ahead of UTC; nothing where it says none.
    std::optional<std::chrono::minutes> aheadOfUtc;
    /// The other reading of a date such as 11/10/2023, of which nobody says what is the month: the fields
    /// above take it to be written first. Nothing where there is but one.
    std::optional<std::chrono::local_time<std::chrono::milliseconds>> otherTime;
};

/// Reads the first line that isn't blank. Understood are, with names in English and any case:
///   60271 23-11-23 06:18:38 00 0 0 895.3 UTC(NIST) *     of NIST's servers: UTC, and before that the
///                                                        milliseconds by which the text is ahead
///   Thursday, November 23, 2023 06:18:38-UTC             RFC 867
///   23 NOV 23 06:18:38 PST                               RFC 867
///   Thu Nov 23 06:18:38 2023, Thu Nov 23 06:18:38 CET 2023     of Unix machines
///   2023-11-23T06:18:38.250Z, 2023-11-23 06:18:38 +01:00       ISO 8601
///   6:18:38 AM 11/23/2023, 23/11/2023 18:18:38  of Windows machines
/// Two digits of a year are of 2000 to 2099. Where no fraction is given it may be anything, and half a second
/// is taken. Nothing for all else: a server of NIST's that says it isn't well, a zone that isn't known,
/// numbers beyond their ranges, signs that don't belong into a line, a year outside 2020 to 2099.
std::optional<DaytimeReply> readDaytimeReply(std::string_view text);

/// The instant that a reply tells. One without a zone is UTC or the machine's own local time, since servers
/// without a zone tell their local time and stand nearby, or else tell UTC: whichever lies closer to what the
/// machine's clock says, which is seldom wrong by hours. So with the two readings of a date.
UtcTime instantOf(const DaytimeReply& reply, UtcTime machine, std::chrono::minutes machineAheadOfUtc);

}  // namespace vantrace
