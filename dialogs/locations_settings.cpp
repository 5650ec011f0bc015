#include "dialogs/locations_settings.h"

#include <cstdint>
#include <functional>
#include <optional>
#include <stdexcept>
#include <string>
#include <string_view>
#include <utility>

#include "catalogue/locations.h"
#include "core/error_label.h"
#include "core/labels.h"
#include "core/numbers.h"
#include "core/program_state.h"
#include "core/services.h"
#include "core/texts.h"
#include "dialogs/setting_values.h"

namespace vantrace {

namespace {

constexpr auto lastEntry = static_cast<std::int16_t>(decltype(ProgramState::Locations)::bound);

struct Question {
    std::string title;
    std::string prompt;
    /// Why an answer won't do; nothing where it will.
    std::function<std::string_view(const std::string&)> objection;
};

/// Asks until the answer passes; trimmed. Nothing where the user answers with nothing at all.
std::optional<std::string> answerTo(const Question& question, Services& services) {
    for (;;) {
        const std::string typed =
            services.dialogs.textInput(question.prompt, question.title, "").value_or("");
        if (typed.empty()) return std::nullopt;
        std::string answer(trimmed(typed));
        const std::string_view objection = question.objection(answer);
        if (objection.empty()) return answer;
        services.dialogs.message(objection);
    }
}

/// The file has it between its fields.
std::string_view separatorObjection(const std::string& answer) {
    if (answer.find(';') == std::string::npos) return {};
    return "Semicolons not allowed in a location";
}

std::string_view nameObjection(const std::string& answer) {
    if (answer.find(',') != std::string::npos) return "Commas not allowed in location name";
    return separatorObjection(answer);
}

std::string_view latitudeObjection(const std::string& answer) {
    if (HasBlank(answer)) return "The Latitude MUST be in decimal format (not DEG MIN SEC)";
    return separatorObjection(answer);
}

std::string_view longitudeObjection(const std::string& answer, const Services& services) {
    if (HasBlank(answer)) return "The Longitude MUST be in decimal format (not DEG MIN SEC)";
    if (typedValue(answer, services) < 0) return "Must be a positive number only and in degrees WEST";
    return separatorObjection(answer);
}

/// The four answers, as texts.
struct Answers {
    std::string name;
    std::string latitude;
    std::string longitude;
    std::string height;

    bool areWhole() const {
        return !name.empty() && !latitude.empty() && !longitude.empty() && !height.empty();
    }
};

std::optional<Answers> askForPlace(Services& services) {
    Answers answers;
    const auto ask = [&](std::string& field, const Question& question) {
        std::optional<std::string> answer = answerTo(question, services);
        if (answer) field = *std::move(answer);
        return answer.has_value();
    };
    const bool isAnswered =
        ask(answers.name, {"Add New Location", "Type the Name of the location", nameObjection}) &&
        ask(answers.latitude,
            {"Latitude (Positive is North, Negitive is South)",
             "Type the Latitude of " + answers.name + "\r\nMUST BE IN DECIMAL", latitudeObjection}) &&
        ask(answers.longitude,
            {"Longitude (degrees WEST only)", "Type the Longitude of " + answers.name,
             [&](const std::string& answer) { return longitudeObjection(answer, services); }}) &&
        ask(answers.height,
            {"Height above sea level for " + answers.name, "Type the Height above sea level (in Metres)",
             [](const std::string&) { return std::string_view(); }});
    if (!isAnswered) return std::nullopt;
    return answers;
}

}  // namespace

void Form_Load(LocationsForm& form, ProgramState& state, Services& services) {
    ErrorLabel label(services, labels::locCONFormLoad);
    label.step([&] {
        ApplySkin(services, form.skin);
        for (std::int16_t i = 1; i <= lastEntry; ++i) {
            const LocationRecord& location = state.Locations[i];
            const std::string_view name = trimmed(location.Name);
            if (name.empty()) return;
            form.ListLocations.add(std::string(name));
            if (location.Shown == "1") {
                ListLocations_ItemCheck(form, state, services, static_cast<std::size_t>(i - 1), true);
            }
        }
    });
}

void Form_Unload(LocationsForm& /*form*/, ProgramState& state, Services& /*services*/) {
    try {
        SaveLocations(state);
    } catch (const std::out_of_range&) {
        // A full table has no blank entry at its end; by then all lines are written.
        return;
    }
}

void ListLocations_ItemCheck(LocationsForm& form, ProgramState& state, Services& services, std::size_t index,
                             bool isTicked) {
    ErrorLabel label(services, {});
    label.quietStep([&] {
        form.ListLocations.setTick(index, isTicked);
        if (index < static_cast<std::size_t>(lastEntry)) {
            state.Locations[index + 1].Shown = isTicked ? "1" : "0";
        }
    });
}

void BUTaddlocations_Click(LocationsForm& form, ProgramState& state, Services& services) {
    ErrorLabel label(services, labels::locCONBUTaddloc);
    label.step([&] {
        const std::optional<Answers> answers = askForPlace(services);
        if (!answers) return;
        if (!answers->areWhole()) {
            services.dialogs.message("One or more entries were blank !");
            return;
        }
        const std::int16_t height = toInteger16(typedValue(answers->height, services));
        std::int16_t free = 1;
        // Past the end the table throws.
        while (!trimmed(state.Locations[free].Name).empty()) ++free;
        state.Locations[free] = {answers->name, answers->latitude, answers->longitude, height, "1"};
        // Its tick is seen at the next opening.
        form.ListLocations.add(answers->name);
    });
}

void BUTremovelocations_Click(LocationsForm& form, ProgramState& state, Services& services) {
    ErrorLabel label(services, labels::locCONBUTremLoc);
    label.step([&] {
        if (!form.ListLocations.isSelected()) return;
        const auto first = static_cast<std::int16_t>(form.ListLocations.selected + 1);
        for (std::int16_t i = first; i <= lastEntry; ++i) {
            LocationRecord next = i < lastEntry ? state.Locations[i + 1] : LocationRecord{};
            next.Shown = state.Locations[i].Shown;
            state.Locations[i] = std::move(next);
        }
        form.ListLocations.removeSelected();
    });
}

}  // namespace vantrace
