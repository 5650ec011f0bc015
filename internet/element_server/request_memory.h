// Which addresses of the element server were asked, and when; also by the program's earlier runs.
#pragma once

#include <map>
#include <optional>
#include <string>
#include <string_view>

#include "platform/clock.h"

namespace vantrace {

/// Kept in `fetches.dat` of the program folder: one line for each address that may not be asked yet, with the
/// UTC of the request, the answer's status (0 before there was one), and the address, in lower case: whether
/// the server tells cases apart isn't known. Written whole or not at all; a file that can't be written costs
/// only what the next run would have known, one that can't be read or makes no sense tells nothing.
///
/// An address may be asked once in two hours; one that the server said it hasn't (404, 410), once in seven
/// days, so that a group that has ceased doesn't stand in the way of all those after it with every update. A
/// request that is told to lie in the future, because the clock has been set back, counts from now.
class RequestMemory {
  public:
    explicit RequestMemory(const Clock& clock);

    /// There was no answer, or none yet when the program ended.
    static constexpr int unanswered = 0;
    /// An answer came with 200, but had nothing of use in it. No status of HTTP.
    static constexpr int useless = 1;
    /// An answer came with 200, but couldn't be written to its file.
    static constexpr int unkept = 2;
    /// The server said that it hasn't got this.
    static bool isUnknown(int status) { return status == 404 || status == 410; }

    struct Wait {
        /// UTC, a day number.
        double notBefore = 0;
        /// The answer's, or one of the three above.
        int status = 0;
    };
    /// What stands against asking now; nothing where nothing does. `folder` is the program folder.
    std::optional<Wait> waitFor(const std::string& folder, const std::string& url);
    /// Counts from now on.
    void note(const std::string& folder, const std::string& url, int status);
    /// The request never arrived.
    void forget(const std::string& folder, const std::string& url);

  private:
    struct Request {
        /// UTC, a day number.
        double time = 0;
        int status = 0;

        double spanDays() const;
    };

    /// Takes in what another program has written; true when the file should be written again.
    bool load(const std::string& folder);
    void save(const std::string& folder);
    void readLine(std::string_view line);
    bool clean();
    std::string text() const;

    const Clock& m_clock;
    std::map<std::string, Request> m_requests;
    /// The file as it was read or written last.
    std::string m_text;
};

}  // namespace vantrace
