// Passes of the element files in the program folder, for the site of the settings.
#pragma once

#include <functional>
#include <optional>
#include <string>

#include "app/program/text_program.h"
#include "station/steering/coming_pass.h"

namespace vantrace {

class EnginePasses final : public PassSource {
  public:
    /// `site` stands in place of the settings. `refresh` has the settings read again. The program outlives
    /// this.
    EnginePasses(TextProgram& program, std::optional<Site> site, std::function<void()> refresh);

    /// Element files and settings may have changed since the last question.
    std::optional<ComingPass> passOf(std::string_view lineName, const Instant& from,
                                     std::string& reason) override;

  private:
    TextProgram& m_program;
    std::optional<Site> m_site;
    std::function<void()> m_refresh;
};

}  // namespace vantrace
