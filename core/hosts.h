// Where the program goes on the Internet. No address is written anywhere else, but for those of groups.dat.
#pragma once

#include <string>

namespace vantrace {

struct ProgramState;

/// The words of hosts.dat in the program folder, lines of "key=value" with the names below for keys, in any
/// case. What begins with "#" is a remark; of two lines for one key the later good one counts. What is
/// missing there has the value that stands here.
struct Hosts {
    /// Pages and mail, whole addresses.
    std::string homePage = "https://vantrace.example/";
    std::string helpPage = "https://vantrace.example/help/";
    /// In front of a playlist's query.
    std::string videoPlaylists = "https://video.vantrace.example/";
    /// In front of the words that are looked for.
    std::string searchPage = "https://www.google.com/search?hl=en&q=";
    /// A mail address, without "mailto:".
    std::string maintainer = "maintainer@vantrace.example";
    /// Names of hosts, each with ":port" if need be.
    std::string flareHost = "flares.vantrace.example";
    std::string elementHost = "celestrak.org";
    std::string updateHost = "update.vantrace.example";
    std::string timeHost = "time.nist.gov";
};

/// Reads them afresh. A file that is missing, can't be read or holds more than 64 KB gives the values above;
/// a line that makes no sense, or whose value is no page (http or https), mail address or host, as its key
/// has it, costs itself alone. Doesn't fail.
Hosts readHosts(const ProgramState& state);

}  // namespace vantrace
