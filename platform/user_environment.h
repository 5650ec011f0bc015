// Where the user keeps things.
#pragma once

#include <filesystem>

namespace vantrace {

/// Three absolute folders; they need not exist.
struct UserEnvironment {
    std::filesystem::path home;
    /// $XDG_CONFIG_HOME, or .config in the home folder.
    std::filesystem::path configHome;
    /// $XDG_DATA_HOME, or .local/share in the home folder.
    std::filesystem::path dataHome;
};

/// From the environment; without $HOME the home folder is that of the user's account. A relative path in one
/// of the variables counts as none.
UserEnvironment userEnvironment();

/// The settings file of the user.
std::filesystem::path settingsPath(const UserEnvironment& user);

}  // namespace vantrace
