// What the program asks of the desktop around it: to open addresses and texts, to start a program.
#pragma once

#include <filesystem>
#include <stdexcept>
#include <string>
#include <string_view>

namespace vantrace {

/// what() says what could not be opened or started, and why.
class DesktopError : public std::runtime_error {
  public:
    using std::runtime_error::runtime_error;
};

/// Nothing waits for what it started, so that a program which fails later isn't noticed. Each operation
/// throws DesktopError where nothing could be started.
class Desktop {
  public:
    virtual ~Desktop() = default;

    /// Opens an address in the program that the user has for it. Only http, https and mailto addresses are
    /// opened; any other throws.
    virtual void openAddress(std::string_view address) = 0;
    /// Opens a text file of the program in the user's text editor. It must be a regular file.
    virtual void openTextFile(const std::filesystem::path& file) = 0;
    /// Starts a program that stays in the background: it gets no arguments and no window of ours.
    virtual void startProgram(const std::filesystem::path& program) = 0;
    /// Whether the desktop has a tool that tells about the system. Doesn't fail.
    virtual bool hasSystemInformation() const = 0;
    virtual void startSystemInformation() = 0;
    /// The desktop's settings of date, time and time zone.
    virtual void startTimeSettings() = 0;
};

/// For programs without windows: there is no desktop.
class NoDesktop final : public Desktop {
  public:
    void openAddress(std::string_view address) override;
    void openTextFile(const std::filesystem::path& file) override;
    void startProgram(const std::filesystem::path& program) override;
    bool hasSystemInformation() const override { return false; }
    void startSystemInformation() override;
    void startTimeSettings() override;
};

/// Whether an address is one of those that are opened: http://, https:// or mailto: in any case, something
/// behind it, and no signs but those of RFC 3986: neither blanks nor control characters, quotes or bytes
/// above 126, which stand in an address as "%20" and so on.
bool isOpenableAddress(std::string_view address);

}  // namespace vantrace
