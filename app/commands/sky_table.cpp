#include "app/commands/sky_table.h"

#include <algorithm>

#include "app/program/arguments.h"
#include "catalogue/favourites.h"
#include "core/texts.h"
#include "orbit/elements/element_catalogue.h"
#include "orbit/engine_error.h"

namespace vantrace {

namespace {

std::optional<Instant> eventTime(const CommandContext& context, SkyEntry& entry,
                                 const EventSearchResult& event) {
    if (!event.time && !event.failureReason.empty()) {
        context.console().complain(EngineError(entry.name, event.failureTime, event.failureReason).what());
        entry.isComplete = false;
    }
    return event.time;
}

}  // namespace

std::vector<std::string> knownFavourites(const CommandContext& context) {
    const FavouriteLines lines = readFavouriteLines(context.program.state());
    std::vector<std::string> known;
    const auto passOver = [&](std::string_view name) {
        const bool isDamaged = context.engine().catalogue().mayHold(name);
        context.console().complain(
            "the favourite " + inQuotes(trimmed(name)) +
            (isDamaged ? " has no element set that can be used" : " is in no element file"));
    };
    for (const std::string& name : lines.qualifying) {
        if (context.engine().catalogue().find(name) == nullptr) {
            passOver(name);
        } else if (std::ranges::find(known, name) == known.end()) {
            known.push_back(name);
        }
    }
    std::ranges::for_each(lines.dropped, passOver);
    return known;
}

SkyEntry skyEntry(const CommandContext& context, const std::string& name, const Instant& time) {
    OrbitEngine& engine = context.engine();
    SkyEntry entry;
    entry.name = name;
    try {
        entry.place = engine.track(name, time);
        entry.nextRise = eventTime(context, entry, engine.nextRise(name, time));
        // A path that ends before its next rise ends before its next set too, and is told once.
        if (entry.nextRise || entry.isUp())
            entry.nextSet = eventTime(context, entry, engine.nextSet(name, time));
    } catch (const EngineError& failure) {
        context.console().complain(failure.what());
        entry.isComplete = false;
    }
    return entry;
}

}  // namespace vantrace
