#include "platform/process.h"

#include <fcntl.h>
#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <iostream>
#include <stdexcept>
#include <utility>

#include "platform/file_descriptor.h"

namespace vantrace {

namespace {

/// What may be called between fork and exec is little, because other threads are not there any more and may
/// have held any lock: system calls, no memory. So everything is made before.
struct Start {
    const char* executable;
    char* const* arguments;
    /// Where an errno is written when the program can't be run; closed by a program that runs.
    int report;
    int descriptorLimit;
};

[[noreturn]] void failIn(const Start& start) {
    const int reason = errno;
    [[maybe_unused]] const ssize_t written = ::write(start.report, &reason, sizeof reason);
    ::_exit(127);
}

void resetSignals() {
    sigset_t none;
    ::sigemptyset(&none);
    ::sigprocmask(SIG_SETMASK, &none, nullptr);
    // A program with pipes may ignore this one; whoever is started expects the usual.
    ::signal(SIGPIPE, SIG_DFL);
}

/// Whoever reads what this program writes would otherwise wait for the end of the other one as well.
void silenceStandardStreams() {
    const int nothing = ::open("/dev/null", O_RDWR);
    if (nothing < 0) return;
    for (int stream = STDIN_FILENO; stream <= STDERR_FILENO; ++stream) ::dup2(nothing, stream);
}

void closeAtExec(int descriptorLimit) {
    if (::close_range(STDERR_FILENO + 1, ~0U, CLOSE_RANGE_CLOEXEC) == 0) return;
    for (int descriptor = STDERR_FILENO + 1; descriptor < descriptorLimit; ++descriptor) {
        ::fcntl(descriptor, F_SETFD, FD_CLOEXEC);
    }
}

/// Runs in the first child. The program is a grandchild, so that it belongs to nobody who would have to wait
/// for its end.
[[noreturn]] void runDetached(const Start& start) {
    ::setsid();
    const pid_t program = ::fork();
    if (program < 0) failIn(start);
    if (program > 0) ::_exit(0);
    resetSignals();
    silenceStandardStreams();
    closeAtExec(start.descriptorLimit);
    ::execv(start.executable, start.arguments);
    failIn(start);
}

/// The errno that was reported; 0 where the other end was closed without a word.
int reportedReason(int descriptor) {
    int reason = 0;
    ssize_t count = 0;
    do {
        count = ::read(descriptor, &reason, sizeof reason);
    } while (count < 0 && errno == EINTR);
    return count == sizeof reason ? reason : 0;
}

void waitFor(pid_t child) {
    while (::waitpid(child, nullptr, 0) < 0 && errno == EINTR) {
    }
}

}  // namespace

void startDetached(const std::filesystem::path& executable, const std::vector<std::string>& arguments) {
    const auto failure = [&](int reason) {
        return std::runtime_error(executable.string() + " can't be started: " + reasonOf(reason));
    };
    std::vector<std::string> words{executable.string()};
    words.insert(words.end(), arguments.begin(), arguments.end());
    std::vector<char*> pointers;
    for (std::string& word : words) pointers.push_back(word.data());
    pointers.push_back(nullptr);

    int ends[2];
    if (::pipe2(ends, O_CLOEXEC) != 0) throw failure(errno);
    const FileDescriptor result(ends[0]);
    FileDescriptor reportAnywhere(ends[1]);
    // In a program whose standard streams are closed the pipe may have taken their place.
    FileDescriptor report(::fcntl(ends[1], F_DUPFD_CLOEXEC, STDERR_FILENO + 1));
    if (!report.isOpen()) throw failure(errno);
    const Start start{executable.c_str(), pointers.data(), report.get(),
                      static_cast<int>(::sysconf(_SC_OPEN_MAX))};
    const pid_t child = ::fork();
    if (child < 0) throw failure(errno);
    if (child == 0) runDetached(start);
    report.close();
    reportAnywhere.close();
    waitFor(child);
    if (const int reason = reportedReason(result.get()); reason != 0) throw failure(reason);
}

SystemProcess::SystemProcess(std::filesystem::path executable, std::vector<std::string> arguments)
    : m_executable(std::move(executable)), m_arguments(std::move(arguments)) {}

void SystemProcess::startAgain() {
    startDetached(m_executable, m_arguments);
}

void SystemProcess::end(int status) {
    std::cout.flush();
    std::fflush(nullptr);
    std::_Exit(status);
}

}  // namespace vantrace
