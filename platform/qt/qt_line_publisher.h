// The line, told over a socket.
#pragma once

#include <chrono>
#include <cstdint>
#include <filesystem>
#include <functional>
#include <memory>
#include <string_view>

#include "platform/line_publisher.h"

namespace vantrace {

/// Where programs find the line.
struct LinePlaces {
    /// On 127.0.0.1, TCP.
    std::uint16_t port = trackingLinePort;
    /// A socket in the file system, for this user alone; empty for none.
    std::filesystem::path socket;
    /// A line that is older isn't told to who connects.
    std::chrono::milliseconds lineLife{5000};
};

/// `trackingLineSocket` beside `trackingLinePort`; the port alone where the user has no folder for running
/// programs.
LinePlaces usualLinePlaces();

/// Needs a QCoreApplication. Everything happens on a thread of its own, made at the first line that isn't
/// empty: no port is open before.
///
/// Who connects gets the present line at once, unless that has grown old, and each further one as it is
/// published, each ended by LF. An empty line tells those who are connected that the line was switched off,
/// once; who connects while it is off hears nothing until there is a line again. Both places stay open until
/// the program ends.
///
/// Nobody is waited for: to whom some lines are still unsent, those that follow are left out, but for the
/// newest, which he gets next; none is ever cut. What is sent here is thrown away, and who sends much is cut
/// off; at most 16 are served at a time. A place that another program holds is done without, and tried again
/// now and then; that is told, once for each.
class QtLinePublisher final : public LinePublisher {
  public:
    using Tell = std::function<void(std::string_view)>;

    /// `tell` is called inside `publish`, when a place turned out to be taken.
    explicit QtLinePublisher(LinePlaces places, Tell tell = {});
    /// Waits for the thread at most 1 second.
    ~QtLinePublisher() override;
    QtLinePublisher(const QtLinePublisher&) = delete;
    QtLinePublisher& operator=(const QtLinePublisher&) = delete;

    /// Of lines that follow each other at once only the newest may be told. A line end within a line becomes
    /// a blank; of more than 1000 bytes the rest is cut.
    void publish(std::string_view line) override;

  private:
    class Desk;
    std::unique_ptr<Desk> m_desk;
};

}  // namespace vantrace
