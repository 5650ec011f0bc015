#include "app/command.h"

#include <optional>

#include "app/program/arguments.h"
#include "core/texts.h"
#include "orbit/elements/element_catalogue.h"

namespace vantrace {

namespace {

/// Up to three names that hold the text, whatever the case: "; there is "A", "B"".
std::string likeNames(const ElementCatalogue& catalogue, std::string_view wanted) {
    constexpr int most = 3;
    const std::string lower = lowerCased(wanted);
    std::string text;
    int count = 0;
    for (const CatalogueEntry& entry : catalogue.entries()) {
        if (count == most || lower.empty()) break;
        if (lowerCased(entry.set->name).find(lower) == std::string::npos) continue;
        text += (count == 0 ? "; there is " : ", ") + inQuotes(entry.set->name);
        ++count;
    }
    return text;
}

}  // namespace

std::string nameOf(const CommandContext& context, std::string_view argument, bool skyBodiesToo) {
    const ElementCatalogue& catalogue = context.engine().catalogue();
    std::string name(trimmed(argument));
    const bool isBody = skyBodyOf(name).has_value();
    if (isBody && !skyBodiesToo) throw UserError(inQuotes(name) + " is no satellite");
    if (!isBody && catalogue.find(name) == nullptr) {
        throw UserError("no element file of " + context.program.state().AppPath + " holds " + inQuotes(name) +
                        likeNames(catalogue, name));
    }
    return name;
}

std::vector<std::string> namesOf(const CommandContext& context, bool skyBodiesToo) {
    std::vector<std::string> names;
    for (const std::string& argument : context.line.arguments) {
        names.push_back(nameOf(context, argument, skyBodiesToo));
    }
    return names;
}

Instant timeOrNow(const CommandContext& context, std::string_view option) {
    const std::optional<std::string> text = context.line.value(option);
    return text ? timeOption(option, *text) : context.program.now();
}

}  // namespace vantrace
