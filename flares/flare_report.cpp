#include "flares/flare_report.h"

#include <array>
#include <cstddef>

#include "catalogue/data_files.h"
#include "core/hosts.h"
#include "core/program_state.h"
#include "core/texts.h"
#include "flares/flare_request.h"

namespace vantrace {

namespace {

constexpr std::array<std::size_t, flareColumns> widths = {9, 12, 5, 5, 6, 10, 9, 12};
constexpr const char* heading = "DATE     TIME        MAG  EL   AZ    DISTANCE  MAX-MAG  SATELLITE";
constexpr std::size_t ruleLength = 66;

constexpr Colour titleColour = 0x000080;
constexpr Colour headingColour = 0x800000;
constexpr Colour rowColour = 0x000000;

std::string creditLine(const ProgramState& state) {
    return "Created by Vantrace, " + readHosts(state).homePage + ", from predictions of Orbisky, " +
           flareService(state);
}

}  // namespace

std::string flareReportLine(const FlareRow& row) {
    std::string line;
    for (std::size_t column = 0; column < flareColumns; ++column) {
        line += FixedWidth(row.texts[column], widths[column]);
    }
    return line;
}

void composeFlareReport(RichText& Printed, const FlareList& list, const ProgramState& state) {
    const std::string end(lineEnd);
    Printed.clear();
    Printed.append(titleColour, "Iridium Satellite Flares for 7 days for " + state.ObserverName + end +
                                    creditLine(state) + end + end);
    Printed.append(headingColour, heading + end + std::string(ruleLength, '-') + end);
    std::string rows;
    for (const FlareRow& row : list) rows += flareReportLine(row) + end;
    if (!rows.empty()) Printed.append(rowColour, rows);
}

}  // namespace vantrace
