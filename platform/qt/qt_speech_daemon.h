// A look at the speech daemon before anybody relies on it.
#pragma once

#include <chrono>
#include <filesystem>

namespace vantrace {

/// Where speech-dispatcher's clients look for it: by $SPEECHD_ADDRESS, else speech-dispatcher/speechd.sock in
/// the user's runtime folder. Empty where it isn't a socket of this machine.
std::filesystem::path speechDaemonSocket();

/// Whether somebody keeps that socket open and yet doesn't answer a greeting in that time. A client of a
/// daemon that hangs would hang along. False where nobody keeps it open: such a daemon can be started.
bool isSpeechDaemonHanging(const std::filesystem::path& socketPath, std::chrono::milliseconds patience);

}  // namespace vantrace
