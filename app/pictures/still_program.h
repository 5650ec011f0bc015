// The tracker's own routines at a time of the user's choice: what a picture is painted from.
#pragma once

#include <string>
#include <vector>

#include "app/command.h"
#include "app/pictures/fixed_clock.h"
#include "app/program/unsaved_settings.h"

namespace vantrace {

/// The program with a clock that stands still. Reads the program folder and the settings and writes neither.
/// Nothing is recorded. What is told to the user goes to the error stream.
class StillProgram {
  public:
    /// `tag` is the word of `Main.Tag`. The context outlives this.
    StillProgram(const CommandContext& context, const Instant& time, const std::string& tag);
    StillProgram(const StillProgram&) = delete;
    StillProgram& operator=(const StillProgram&) = delete;
    ~StillProgram() = default;

    /// The satellites that are shown, at most as many as there is room for, and which of them is the primary
    /// one, counted from 0; one that can't be placed is left out.
    void setSatellites(const std::vector<std::string>& names, std::size_t primary);

    ProgramState& state() { return m_context.program.state(); }
    Services& services() { return m_services; }

    /// Tells of something that was asked for and is missing.
    void complain(const std::string& text);
    /// Whether nothing that was asked for is missing.
    bool isComplete() const { return m_isComplete; }

  private:
    bool canBePlaced(const std::string& name);

    const CommandContext& m_context;
    Instant m_time;
    UnsavedSettings m_settings;
    FixedClock m_clock;
    /// Without a folder it writes nothing.
    ErrorLog m_errorLog;
    Services m_services;
    bool m_isComplete = true;
};

}  // namespace vantrace
