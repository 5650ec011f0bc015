// The running program itself.
#pragma once

#include <filesystem>
#include <string>
#include <vector>

namespace vantrace {

class Process {
  public:
    virtual ~Process() = default;

    /// Starts the program anew, beside this one. Throws std::runtime_error where that fails.
    virtual void startAgain() = 0;
    /// Ends the process at once. In a test it comes back, so a caller returns after it.
    virtual void end(int status) = 0;
};

/// Starts a program in a session of its own; nobody waits for it, and it outlives this one. It has the
/// environment and the present folder from here, but no open files: it reads nothing, and what it writes to
/// the standard streams is lost. Throws std::runtime_error with program and reason where it can't be run.
void startDetached(const std::filesystem::path& executable, const std::vector<std::string>& arguments);

/// The process of the operating system.
class SystemProcess final : public Process {
  public:
    /// What startAgain starts: the executable with these arguments.
    SystemProcess(std::filesystem::path executable, std::vector<std::string> arguments);

    void startAgain() override;
    /// What was written is flushed first; nothing else is tidied up.
    [[noreturn]] void end(int status) override;

  private:
    std::filesystem::path m_executable;
    std::vector<std::string> m_arguments;
};

}  // namespace vantrace
