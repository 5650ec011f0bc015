#include "app/station/engine_passes.h"

#include <exception>
#include <utility>

namespace vantrace {

EnginePasses::EnginePasses(TextProgram& program, std::optional<Site> site, std::function<void()> refresh)
    : m_program(program), m_site(std::move(site)), m_refresh(std::move(refresh)) {}

std::optional<ComingPass> EnginePasses::passOf(std::string_view lineName, const Instant& from,
                                               std::string& reason) {
    try {
        m_refresh();
        m_program.engine().EngineSetKepPath(m_program.state().AppPath);
        m_program.setSite(m_site ? *m_site : siteOfSettings(m_program.services()));
        return comingPass(m_program.engine(), lineName, from, reason);
    } catch (const std::exception& failure) {
        reason = failure.what();
        return std::nullopt;
    }
}

}  // namespace vantrace
