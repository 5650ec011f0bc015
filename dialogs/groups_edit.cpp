// What the buttons of `frmCONGroups` do with groups, and with the satellite that is selected.
#include <algorithm>
#include <cstdint>
#include <string>
#include <utility>

#include "core/error_label.h"
#include "core/hosts.h"
#include "core/labels.h"
#include "core/program_state.h"
#include "core/services.h"
#include "core/texts.h"
#include "dialogs/groups_settings.h"

namespace vantrace {

namespace {

constexpr std::string_view elementsPath = "/NORAD/elements/";

/// A text as it stands in the query of an address: what has a meaning there, or isn't allowed, as "%" and two
/// digits (RFC 3986, section 2.1).
std::string inQuery(std::string_view text) {
    constexpr std::string_view plain = "-._~!$'()*,;:@/?";
    constexpr std::string_view digits = "0123456789ABCDEF";
    std::string result;
    for (const char sign : text) {
        const bool isLetterOrDigit =
            (sign >= 'a' && sign <= 'z') || (sign >= 'A' && sign <= 'Z') || (sign >= '0' && sign <= '9');
        if (isLetterOrDigit || plain.find(sign) != std::string_view::npos) {
            result += sign;
            continue;
        }
        const auto byte = static_cast<unsigned char>(sign);
        result += '%';
        result += digits[byte / 16U];
        result += digits[byte % 16U];
    }
    return result;
}

/// Into the list, and counted; only then the table takes it, or throws where it is full.
void addGroup(GroupsForm& form, ProgramState& state, GroupRecord group) {
    form.GroupList.add(group.Name);
    ++state.GroupCount;
    state.Groups[state.GroupCount] = std::move(group);
}

void deleteSelectedGroup(GroupsForm& form, ProgramState& state) {
    constexpr auto bound = static_cast<std::int16_t>(decltype(state.Groups)::bound);
    const auto first = static_cast<std::int16_t>(form.GroupList.selected + 1);
    for (std::int16_t i = first; i <= std::min(state.GroupCount, bound); ++i) {
        state.Groups[i] = i < bound ? state.Groups[i + 1] : GroupRecord{};
    }
    --state.GroupCount;
    form.GroupList.removeSelected();
}

}  // namespace

void BUTaddCelestrak_Click(GroupsForm& form, ProgramState& state, Services& services) {
    ErrorLabel label(services, labels::groupsCONBUTaddCelestrak);
    label.step([&] {
        const DropDown& box = form.COMCelestrak;
        if (box.text.find("Select") != std::string::npos) {
            services.dialogs.message("Select a group first, then click this button");
            return;
        }
        const std::string file(publicElementFiles()[static_cast<std::size_t>(box.selected)].file);
        addGroup(form, state,
                 {box.text, readHosts(state).elementHost + std::string(elementsPath) + file, "0"});
    });
}

void BUTaddgroup_Click(GroupsForm& form, ProgramState& state, Services& services) {
    ErrorLabel label(services, labels::groupsCONBUTaddgroup);
    label.step([&] {
        GroupRecord group;
        const bool isOnInternet =
            services.dialogs.question("Is this new group updated via the Internet?", "Update");
        group.Flag = isOnInternet ? "0" : "1";
        const auto ask = [&](const std::string& prompt, std::string_view title, std::string_view proposal) {
            return services.dialogs.textInput(prompt, title, proposal).value_or("");
        };
        group.Name = ask("Type a Display name for this group. This can be any name you would like.",
                         "Display name", "New Group");
        group.Url =
            isOnInternet
                ? ask("Type the Full Web site Address (not including 'http://') Eg. " +
                          readHosts(state).elementHost + std::string(elementsPath) + "amateur.txt",
                      "Web Address of Keplerian Elements", "")
                : ask("Type the name of the file containing the keps, this file must be in your Vantrace "
                      "folder. Eg. 'mykeps.txt'",
                      "Manually updated Keps", "");
        addGroup(form, state, std::move(group));
    });
}

void BUTdeletegroup_Click(GroupsForm& form, ProgramState& state, Services& services) {
    ErrorLabel label(services, labels::groupsCONBUTdelgroup);
    label.step([&] {
        if (state.GroupCount <= 0 || !form.GroupList.isSelected()) return;
        deleteSelectedGroup(form, state);
        if (form.GroupList.list.empty()) return;
        form.GroupList.select(0);
        GroupList_Click(form, state, services);
    });
}

void BUTmakeprime_Click(GroupsForm& form, ProgramState& state, Services& services) {
    ErrorLabel label(services, labels::groupsCONBUTmakeprime);
    label.step([&] {
        if (!form.SatelliteList.isSelected()) return;
        const std::string name = form.SatelliteList.selectedText();
        std::int16_t found = 1;
        while (found <= state.FavouriteCount && state.Favourites[found].Name != name) ++found;
        // One that is no favourite pushes the first name into entry 0, where nobody looks for it.
        if (found > state.FavouriteCount) found = 0;
        const std::string before = std::exchange(state.Favourites[1].Name, name);
        if (found != 1) state.Favourites[found].Name = before;
        services.dialogs.message("Primary Favourite Satellite changed from " + before + " to " + name);
    });
}

void BUTfindInfo_Click(GroupsForm& form, ProgramState& state, Services& services) {
    ErrorLabel label(services, {});
    label.quietStep([&] {
        if (!form.SatelliteList.isSelected()) return;
        const std::string name = replacedAll(inQuery(form.SatelliteList.selectedText()), "%20", "+");
        services.desktop.openAddress(readHosts(state).searchPage + name + "+satellite");
    });
}

void Details_Click(GroupsForm& form, ProgramState& state, Services& services) {
    ErrorLabel label(services, labels::groupsCONDetailsClick);
    label.step([&] {
        if (!form.Details.starts_with("You can st") || !form.SatelliteList.isSelected()) return;
        const std::string name = replacedAll(form.SatelliteList.selectedText(), " ", "_");
        services.dialogs.message(
            "A Request will now be sent via your email program for information about this satellite. When "
            "information is found, it will be added to the Vantrace database file, and you can update that "
            "file from the 'Internet Updates' window, but you already have the keps, so you can go ahead and "
            "start tracking it now.");
        services.desktop.openAddress("mailto:" + readHosts(state).maintainer +
                                     "?subject=" + inQuery("Satellite Info Request for " + name));
    });
}

}  // namespace vantrace
