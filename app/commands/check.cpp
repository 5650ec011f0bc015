// What is good and what is not in the element files.
#include <array>
#include <cstdint>
#include <memory>
#include <string>

#include "app/command.h"
#include "orbit/elements/element_catalogue.h"

namespace vantrace {

namespace {

constexpr std::array checkColumns{
    Column{"file", "file", ValueForm::text},     Column{"good_sets", "good sets", ValueForm::count},
    Column{"line", "line", ValueForm::count},    Column{"name", "name", ValueForm::text},
    Column{"status", "status", ValueForm::text}, Column{"reason", "reason", ValueForm::text},
};

struct Totals {
    std::size_t files = 0;
    std::size_t goodSets = 0;
    std::size_t leftOut = 0;
    std::size_t odd = 0;
    std::size_t notListed = 0;
    std::size_t unreadable = 0;
};

void addFile(const ElementFile& file, RowWriter& rows, Totals& totals) {
    const Value nothing;
    ++totals.files;
    if (!file.failure.empty()) {
        ++totals.unreadable;
        rows.add({file.name, nothing, nothing, nothing, "unreadable", file.failure});
        return;
    }
    totals.goodSets += file.sets.size();
    rows.add({file.name, static_cast<std::int64_t>(file.sets.size()), nothing, nothing, "read", nothing});
    for (const ElementRemark& remark : file.remarks) {
        ++(remark.used ? totals.odd : totals.leftOut);
        const Value name = remark.name.empty() ? nothing : Value(remark.name);
        rows.add({file.name, nothing, static_cast<std::int64_t>(remark.line), name,
                  remark.used ? "odd, used" : "left out", remark.reason});
    }
    if (file.furtherRemarks == 0) return;
    totals.notListed += file.furtherRemarks;
    rows.add({file.name, nothing, nothing, nothing, "not listed",
              std::to_string(file.furtherRemarks) + " more of these"});
}

std::string summary(const Totals& totals, std::int32_t satellites) {
    const std::string notListed =
        totals.notListed == 0 ? "" : std::to_string(totals.notListed) + " more left out or odd, ";
    return "\n" + std::to_string(totals.goodSets) + " good sets of " + std::to_string(satellites) +
           " satellites in " + std::to_string(totals.files) + " files; " + std::to_string(totals.leftOut) +
           " left out, " + std::to_string(totals.odd) + " odd and used, " +
           std::to_string(totals.unreadable) + " files unreadable\n";
}

int runCheck(const CommandContext& context) {
    const ElementCatalogue& catalogue = context.engine().catalogue();
    const std::unique_ptr<RowWriter> rows = context.rows(checkColumns);
    Totals totals;
    for (const ElementFile* file : catalogue.files()) addFile(*file, *rows, totals);
    rows->finish();
    if (context.format == Format::table) {
        context.console().out << summary(totals, catalogue.satelliteCount());
    }
    return exit_status::good;
}

}  // namespace

Command checkCommand() {
    CommandSyntax syntax;
    syntax.name = "check";
    syntax.summary =
        "Tells of every element file how many good sets it has, and what is wrong with the others.";
    syntax.details =
        "A set whose check digit or numbers are wrong is left out. One whose two lines have different "
        "catalogue "
        "numbers is told and used all the same.";
    return {syntax, false, runCheck};
}

}  // namespace vantrace
