// Position and velocity as the orbit model gives them.
#include <array>
#include <memory>

#include "app/command.h"
#include "app/program/arguments.h"
#include "orbit/engine_error.h"

namespace vantrace {

namespace {

constexpr std::array stateColumns{
    Column{"name", "name", ValueForm::text},
    Column{"minutes", "minutes", ValueForm::figure, 3},
    Column{"x_km", "x km", ValueForm::figure, 4},
    Column{"y_km", "y km", ValueForm::figure, 4},
    Column{"z_km", "z km", ValueForm::figure, 4},
    Column{"vx_km_s", "vx km/s", ValueForm::figure, 7},
    Column{"vy_km_s", "vy km/s", ValueForm::figure, 7},
    Column{"vz_km_s", "vz km/s", ValueForm::figure, 7},
};

bool addRow(const CommandContext& context, const std::string& name, double minutes, RowWriter& rows) {
    try {
        const StateVector state = context.engine().stateAt(name, minutes);
        const Vector3& position = state.positionKm;
        const Vector3& velocity = state.velocityKmS;
        rows.add({name, minutes, position.x, position.y, position.z, velocity.x, velocity.y, velocity.z});
        return true;
    } catch (const EngineError& failure) {
        context.console().complain(failure.what());
        Row row(stateColumns.size());
        row[0] = name;
        row[1] = minutes;
        rows.add(row);
        return false;
    }
}

int runState(const CommandContext& context) {
    // Two centuries; what lies further off has nothing to do with the element set.
    constexpr NumberRange minutesRange{-1.0e8, 1.0e8};
    const std::optional<std::string> minutesText = context.line.value("minutes");
    if (!minutesText) throw UserError("state needs --minutes M1,M2,...");
    const std::vector<double> minutes = numberListOption("minutes", *minutesText, minutesRange);
    const std::vector<std::string> names = namesOf(context, false);
    const std::unique_ptr<RowWriter> rows = context.rows(stateColumns);
    bool isComplete = true;
    for (const std::string& name : names) {
        for (const double each : minutes) isComplete = addRow(context, name, each, *rows) && isComplete;
    }
    rows->finish();
    return isComplete ? exit_status::good : exit_status::incomplete;
}

}  // namespace

Command stateCommand() {
    CommandSyntax syntax;
    syntax.name = "state";
    syntax.summary =
        "Tells the state vectors of satellites at minutes from the epochs of their element sets.";
    syntax.details = "SGP4/SDP4 with WGS-72 constants; frame TEME of the moment, km and km/s.";
    syntax.arguments = {"NAME...", "names as in the element files", 1, anyNumber};
    syntax.options = {
        {"minutes", "M1,M2,...", "minutes from the epoch, negative ones before it; such as -1440,0,1440"}};
    return {syntax, false, runState};
}

}  // namespace vantrace
