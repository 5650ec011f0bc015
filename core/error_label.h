// The program's one way of failing: log and go on with the next statement.
#pragma once

#include <exception>
#include <string>
#include <string_view>
#include <utility>

#include "core/error_log.h"

namespace vantrace {

/// A routine names its label once and runs as steps what can fail. What must still run after a failure stands
/// in a step of its own. A routine without a label lets the exception out to the step of its caller.
class ErrorLabel {
  public:
    /// Both outlive this; the labels are those of core/labels.h.
    ErrorLabel(Services& services, std::string_view label) : m_services(services), m_label(label) {}

    /// Names what the routine is about from here on: the lines tell it as " (phase)" behind what happened.
    void phase(std::string_view name) { m_suffix = " (" + std::string(name) + ")"; }

    /// Runs a step. When it throws a std::exception, one line is logged and the answer is false.
    template <class Step>
    bool step(Step&& work) {
        try {
            std::forward<Step>(work)();
            return true;
        } catch (const std::exception& failure) {
            LogError(m_services, failure.what() + m_suffix, m_label);
            return false;
        }
    }

    /// The same without the line.
    template <class Step>
    bool quietStep(Step&& work) {
        try {
            std::forward<Step>(work)();
            return true;
        } catch (const std::exception&) {
            return false;
        }
    }

  private:
    Services& m_services;
    std::string_view m_label;
    std::string m_suffix;
};

}  // namespace vantrace
