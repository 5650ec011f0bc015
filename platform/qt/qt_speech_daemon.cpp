#include "platform/qt/qt_speech_daemon.h"

#include <poll.h>
#include <sys/socket.h>
#include <sys/un.h>

#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <string>
#include <string_view>

#include "platform/file_descriptor.h"
#include "platform/user_environment.h"

namespace vantrace {

namespace fs = std::filesystem;

namespace {

/// An absolute folder that a variable of the environment names.
fs::path folderOf(const char* variable) {
    const char* const value = std::getenv(variable);
    const fs::path folder = value ? value : "";
    return folder.is_absolute() ? folder : fs::path();
}

fs::path defaultSocket() {
    fs::path folder = folderOf("XDG_RUNTIME_DIR");
    if (folder.empty()) folder = folderOf("XDG_CACHE_HOME");
    if (folder.empty()) folder = userEnvironment().home / ".cache";
    return folder / "speech-dispatcher" / "speechd.sock";
}

}  // namespace

fs::path speechDaemonSocket() {
    const char* const variable = std::getenv("SPEECHD_ADDRESS");
    if (!variable) return defaultSocket();
    const std::string_view address = variable;
    constexpr std::string_view method = "unix_socket";
    if (address == method) return defaultSocket();
    if (!address.starts_with(std::string(method) + ":")) return {};
    return fs::path(address.substr(method.size() + 1));
}

bool isSpeechDaemonHanging(const fs::path& socketPath, std::chrono::milliseconds patience) {
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    const std::string path = socketPath.string();
    if (path.empty() || path.size() >= sizeof(address.sun_path)) return false;
    std::memcpy(address.sun_path, path.c_str(), path.size() + 1);

    const FileDescriptor connection(::socket(AF_UNIX, SOCK_STREAM | SOCK_NONBLOCK | SOCK_CLOEXEC, 0));
    if (!connection.isOpen()) return false;
    const auto* const general = static_cast<const sockaddr*>(static_cast<const void*>(&address));
    // EAGAIN: so many wait for the daemon that the machine takes no more.
    if (::connect(connection.get(), general, sizeof(address)) != 0) return errno == EAGAIN;

    // The protocol's farewell, which it answers like any other line.
    constexpr std::string_view farewell = "QUIT\r\n";
    if (::send(connection.get(), farewell.data(), farewell.size(), MSG_NOSIGNAL) < 0) return false;
    pollfd answer{connection.get(), POLLIN, 0};
    return ::poll(&answer, 1, static_cast<int>(patience.count())) == 0;
}

}  // namespace vantrace
