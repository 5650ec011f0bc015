// The satellites that the element files hold.
#include <array>
#include <filesystem>
#include <memory>
#include <optional>
#include <stdexcept>

#include "app/command.h"
#include "app/program/arguments.h"
#include "catalogue/data_files.h"
#include "catalogue/element_files.h"
#include "catalogue/groups.h"
#include "core/files.h"
#include "core/texts.h"
#include "orbit/elements/element_catalogue.h"

namespace vantrace {

namespace {

constexpr std::array listColumns{
    Column{"name", "name", ValueForm::text},
    Column{"file", "file", ValueForm::text},
    Column{"epoch_utc", "epoch UTC", ValueForm::tenths},
    Column{"catalog_number", "number", ValueForm::count},
};

Row setRow(const ElementSet& set, const ElementFile& file) {
    return {set.name, file.name, set.epoch, std::int64_t{set.catalogNumber}};
}

using Files = std::vector<const ElementFile*>;

Files filesOfName(const Files& all, std::string_view name) {
    Files found;
    for (const ElementFile* file : all) {
        if (equalsIgnoringCase(file->name, name)) return {file};
        if (equalsIgnoringCase(std::filesystem::path(file->name).stem().string(), name))
            found.push_back(file);
    }
    return found;
}

/// The file of a group of groups.dat; nothing where there is no such file or group.
std::optional<std::string> fileOfGroup(const CommandContext& context, std::string_view group) {
    ProgramState& state = context.program.state();
    if (!FileExists(dataFile(state, groupsFile))) return std::nullopt;
    try {
        LoadGroups(state);
    } catch (const std::out_of_range&) {
        throw UserError(dataFile(state, groupsFile).string() + ": has too many groups");
    }
    for (std::size_t i = 1; i <= static_cast<std::size_t>(state.GroupCount); ++i) {
        if (equalsIgnoringCase(trimmed(state.Groups[i].Name), group))
            return elementFileName(state.Groups[i].Url);
    }
    return std::nullopt;
}

Files filesOf(const CommandContext& context, std::string_view group) {
    const Files all = context.engine().catalogue().files();
    if (Files named = filesOfName(all, group); !named.empty()) return named;
    const std::string& folder = context.program.state().AppPath;
    const std::optional<std::string> fileName = fileOfGroup(context, group);
    if (!fileName)
        throw UserError(inQuotes(group) + " is neither an element file of " + folder + " nor a group");
    if (Files named = filesOfName(all, *fileName); !named.empty()) return named;
    throw UserError("the group " + inQuotes(group) + " is kept in " + inQuotes(*fileName) +
                    ", and that is no element file of " + folder);
}

int runList(const CommandContext& context) {
    const ElementCatalogue& catalogue = context.engine().catalogue();
    if (context.line.arguments.empty()) {
        const std::unique_ptr<RowWriter> rows = context.rows(listColumns);
        for (const CatalogueEntry& entry : catalogue.entries()) rows->add(setRow(*entry.set, *entry.file));
        rows->finish();
        return exit_status::good;
    }
    const Files files = filesOf(context, trimmed(context.line.arguments.front()));
    for (const ElementFile* file : files) {
        if (!file->failure.empty()) throw UserError(file->name + ": " + file->failure);
    }
    const std::unique_ptr<RowWriter> rows = context.rows(listColumns);
    for (const ElementFile* file : files) {
        for (const ElementSet& set : file->sets) rows->add(setRow(set, *file));
    }
    rows->finish();
    return exit_status::good;
}

}  // namespace

Command listCommand() {
    CommandSyntax syntax;
    syntax.name = "list";
    syntax.summary = "Lists the satellites of the element files, with file and epoch.";
    syntax.details =
        "Without a group every name once, with the newest of its element sets; with a group every set of its "
        "file.";
    syntax.arguments = {"[GROUP]", "an element file, with or without its ending, or a group of groups.dat", 0,
                        1};
    return {syntax, false, runList};
}

}  // namespace vantrace
