// A prediction without its window: the same routines fill the same rows.
#pragma once

#include <functional>
#include <set>
#include <string>

#include "app/command.h"
#include "app/program/unsaved_settings.h"
#include "passes/job_run.h"
#include "passes/pass_prediction_form.h"

namespace vantrace {

class Prediction {
  public:
    /// Reads the options --date, --format, --visible-only and --sort. Throws UserError.
    explicit Prediction(const CommandContext& context);

    PassPredictionForm& form() { return m_form; }
    ProgramState& state() { return m_context.program.state(); }
    Services& services() { return m_services; }

    /// Tells a failure once, and remembers that something is missing.
    Guard guard();

    /// Puts out the rows; the answer is the exit status.
    int write();

    /// The options that are read.
    static std::vector<OptionSyntax> options();

  private:
    enum class Output { text, csv, json, ics };

    static Output outputOf(const CommandContext& context);
    void writeReport();
    void writeRows(Format format);
    void writeCalendar();

    const CommandContext& m_context;
    UnsavedSettings m_settings;
    Services m_services;
    PassPredictionForm m_form;
    Output m_output;
    std::set<std::string> m_told;
};

}  // namespace vantrace
