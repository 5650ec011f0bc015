// The flares that the tracker listed last.
#include <array>
#include <filesystem>
#include <memory>

#include "app/command.h"
#include "catalogue/data_files.h"
#include "flares/flare_file.h"
#include "flares/iridium_flares.h"
#include "platform/file_error.h"

namespace vantrace {

namespace {

constexpr std::array<Column, flareColumns> flareTableColumns{{
    {"local_date", "date", ValueForm::text},
    {"local_time", "time", ValueForm::text},
    {"magnitude", "mag", ValueForm::text},
    {"elevation_deg", "el", ValueForm::text},
    {"azimuth_deg", "az", ValueForm::text},
    {"distance", "distance", ValueForm::text},
    {"max_magnitude", "max mag", ValueForm::text},
    {"satellite", "satellite", ValueForm::text},
}};

void writeRows(const CommandContext& context, const FlareList& list) {
    const std::unique_ptr<RowWriter> rows = context.rows(flareTableColumns);
    for (const FlareRow& row : list) rows->add({row.texts.begin(), row.texts.end()});
    rows->finish();
}

int runFlares(const CommandContext& context) {
    FlareList list;
    try {
        loadFlares(dataFile(context.program.state(), flaresFile), list);
    } catch (const FileError&) {
        // The rows in front of what is wrong are good.
        if (!list.empty()) writeRows(context, list);
        throw;
    }
    writeRows(context, list);
    return exit_status::good;
}

}  // namespace

Command flaresCommand() {
    CommandSyntax syntax;
    syntax.name = "flares";
    syntax.summary = "Lists the Iridium flares of flares.dat.";
    syntax.details =
        "They are those that the tracker's window fetched last, for the observer of that time. Dates and "
        "times "
        "are local, by the offset of that time; all values stand as the service gave them.";
    return {syntax, false, runFlares};
}

}  // namespace vantrace
