// How much of the machine the calling thread claims.
#pragma once

namespace vantrace {

/// The numbers are those by which the program asks for a class.
enum class PriorityClass { Normal = 32, Idle = 64 };

/// Sets the nice value of the calling thread: 19 for Idle, 0 for Normal. False, and nothing changed, where
/// the platform refuses, where a user gave the program a nice value of his own, and for Idle also where the
/// way back to Normal would be barred, since a thread that can never return would stay slow for good.
bool setProcessPriority(PriorityClass priority);

}  // namespace vantrace
