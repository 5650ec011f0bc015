#include "platform/user_environment.h"

#include <pwd.h>
#include <unistd.h>

#include <cstdlib>

namespace vantrace {

namespace {

/// A relative folder would be another one with every change of the current folder.
std::filesystem::path absoluteFrom(const char* variable) {
    const char* const value = std::getenv(variable);
    const std::filesystem::path path = value == nullptr ? "" : value;
    return path.is_absolute() ? path : std::filesystem::path();
}

}  // namespace

UserEnvironment userEnvironment() {
    UserEnvironment user;
    user.home = absoluteFrom("HOME");
    if (user.home.empty()) {
        const passwd* const account = getpwuid(geteuid());
        user.home = account != nullptr && account->pw_dir != nullptr ? account->pw_dir : "/";
    }
    user.configHome = absoluteFrom("XDG_CONFIG_HOME");
    if (user.configHome.empty()) user.configHome = user.home / ".config";
    user.dataHome = absoluteFrom("XDG_DATA_HOME");
    if (user.dataHome.empty()) user.dataHome = user.home / ".local/share";
    return user;
}

std::filesystem::path settingsPath(const UserEnvironment& user) {
    return user.configHome / "vantrace" / "settings.conf";
}

}  // namespace vantrace
