#include "dialogs/groups_settings.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <exception>
#include <filesystem>
#include <functional>

#include "catalogue/data_files.h"
#include "catalogue/element_files.h"
#include "catalogue/favourites.h"
#include "catalogue/groups.h"
#include "catalogue/satellite_database.h"
#include "core/error_label.h"
#include "core/files.h"
#include "core/labels.h"
#include "core/numbers.h"
#include "core/program_state.h"
#include "core/services.h"
#include "core/texts.h"
#include "dialogs/favourites_edit.h"
#include "orbit/elements/element_catalogue.h"
#include "orbit/elements/element_reader.h"
#include "platform/file_error.h"
#include "platform/text_file.h"

namespace vantrace {

namespace {

/// Sets a tick as the user or the program does; either way the check event follows.
void setTick(GroupsForm& form, ProgramState& state, Services& services, std::size_t index, bool isTicked) {
    if (!form.SatelliteList.setTick(index, isTicked)) return;
    ErrorLabel label(services, labels::groupsCONSatlistItemcheck);
    label.step([&] {
        const std::string name = form.SatelliteList.list.at(index).text;
        if (form.UserIsChecking) SetFavourite(state, name, isTicked);
        if (!services.windows.isOnScreen("frmCONGroups") || form.Warned3D || !state.ThreeDViewActive) return;
        form.Warned3D = true;
        services.dialogs.message(
            "As you have activated the 3D view, Changes to your favourites won't take effect until you "
            "restart vantrace.");
    });
}

void tickAll(GroupsForm& form, ProgramState& state, Services& services, bool isTicked) {
    ErrorLabel label(services, {});
    label.quietStep([&] {
        form.UserIsChecking = true;
        for (std::size_t i = 0; i < form.SatelliteList.list.size(); ++i) {
            setTick(form, state, services, i, isTicked);
        }
        services.events.yield();
    });
}

/// The epoch of a line 1: year, day and its fraction.
bool hasEpoch(std::string_view line1) {
    constexpr std::size_t firstColumn = 19;
    constexpr std::ptrdiff_t columns = 13;
    return numberValue(columnsFrom(line1, firstColumn, columns)) != 0.0;
}

/// The names of a file's sets, behind that number of lines. A set that is cut short ends the list.
void listSatellites(TickList& satellites, std::string_view text, int linesBefore) {
    LineReader lines(text);
    for (int i = 0; i < linesBefore && !lines.atEnd(); ++i) lines.next();
    while (!lines.atEnd()) {
        const std::string_view nameLine = lines.next();
        if (lines.atEnd() || trimmed(nameLine).empty()) return;
        const std::string_view line1 = lines.next();
        if (lines.atEnd()) return;
        lines.next();
        const std::string_view name = trimmed(withoutNameMark(nameLine).substr(0, cutNameLength));
        // A mark may stand there without a name.
        if (hasEpoch(line1) && !name.empty()) satellites.add(std::string(name));
    }
}

void showGroup(GroupsForm& form, ProgramState& state, Services& services) {
    if (!form.GroupList.isSelected()) return;
    const unsigned own = ++form.groupClicks;
    const std::string bareName = elementFileName(state.Groups[form.GroupList.selected + 1].Url);
    const std::filesystem::path file = dataFile(state, bareName);
    if (bareName.empty() || !FileExists(file)) {
        services.dialogs.message(
            bareName + " satellite group keps are not updated yet, the keplerian file doesn't exist");
        return;
    }
    form.SatelliteList.clear();
    const int linesBefore = FindFirstKepLine(state, services, bareName) + 1;
    // At one of its yields the user may have chosen another group.
    if (form.groupClicks != own) return;
    listSatellites(form.SatelliteList, readTextFile(file, elementFileLimitBytes), linesBefore);
    for (std::size_t i = 0; i < form.SatelliteList.list.size(); ++i) {
        if (IsFavourite(state, services, form.SatelliteList.list[i].text)) {
            setTick(form, state, services, i, true);
        }
    }
}

/// A list that the disk doesn't take is lost when nobody is told; the first such failure is kept for the end,
/// so that the other list is written all the same.
void saveList(Services& services, std::exception_ptr& failure, const std::function<void()>& save) {
    ErrorLabel label(services, {});
    label.quietStep([&] {
        try {
            save();
        } catch (const FileError&) {
            if (!failure) failure = std::current_exception();
        }
    });
}

}  // namespace

std::span<const ElementFileRow> publicElementFiles() {
    static constexpr std::array rows{
        ElementFileRow{"Amateur", "amateur.txt"},
        ElementFileRow{"Educational", "education.txt"},
        ElementFileRow{"Engineering", "engineering.txt"},
        ElementFileRow{"Geostationary", "geo.txt"},
        ElementFileRow{"Geodetic", "geodetic.txt"},
        ElementFileRow{"Globalstar", "globalstar.txt"},
        ElementFileRow{"GOES Weather", "goes.txt"},
        ElementFileRow{"Gorizont", "gorizont.txt"},
        ElementFileRow{"GPS Navigation", "gps-ops.txt"},
        ElementFileRow{"IntelSat", "intelsat.txt"},
        ElementFileRow{"Iridium", "iridium.txt"},
        ElementFileRow{"Molniya", "molniya.txt"},
        ElementFileRow{"Russian Navigation", "musson.txt"},
        ElementFileRow{"Navy Navigation", "nnss.txt"},
        ElementFileRow{"NOAA Weather", "noaa.txt"},
        ElementFileRow{"Orbcomm", "orbcomm.txt"},
        ElementFileRow{"Other Comms", "other-comm.txt"},
        ElementFileRow{"Radar Calibration", "radar.txt"},
        ElementFileRow{"Raduga", "raduga.txt"},
        ElementFileRow{"Earth Resources", "resource.txt"},
        ElementFileRow{"Search and Rescue", "sarsat.txt"},
        ElementFileRow{"Space Stations", "stations.txt"},
        ElementFileRow{"Tracking and Data Relay", "tdrss.txt"},
        ElementFileRow{"New Launches", "tle-new.txt"},
        ElementFileRow{"Bright and visual", "visual.txt"},
        ElementFileRow{"Weather", "weather.txt"},
        ElementFileRow{"Experimental", "x-comm.txt"},
    };
    return rows;
}

void Form_Load(GroupsForm& form, ProgramState& state, Services& services) {
    ErrorLabel label(services, labels::groupsCONFormLoad);
    label.step([&] {
        ApplySkin(services, form.skin);
        for (const ElementFileRow& row : publicElementFiles()) {
            form.COMCelestrak.list.emplace_back(row.label);
        }
        for (std::int16_t i = 1; i <= state.GroupCount; ++i) form.GroupList.add(state.Groups[i].Name);
        if (state.GroupCount <= 0) return;
        form.GroupList.select(0);
        GroupList_Click(form, state, services);
    });
}

void Form_Unload(GroupsForm& /*form*/, ProgramState& state, Services& services) {
    std::exception_ptr failure;
    saveList(services, failure, [&] { SaveFavourites(state); });
    saveList(services, failure, [&] {
        constexpr auto bound = static_cast<std::int16_t>(decltype(state.Groups)::bound);
        state.GroupCount = std::min(state.GroupCount, bound);
        SaveGroups(state);
    });
    if (failure) std::rethrow_exception(failure);
}

void GroupList_Click(GroupsForm& form, ProgramState& state, Services& services) {
    ErrorLabel label(services, labels::conGroupsGrouplistClick);
    label.step([&] { showGroup(form, state, services); });
}

void SatelliteList_MouseDown(GroupsForm& form) {
    form.UserIsChecking = true;
}

void SatelliteList_MouseUp(GroupsForm& form) {
    form.UserIsChecking = false;
}

void tickSatellite(GroupsForm& form, ProgramState& state, Services& services, std::size_t index,
                   bool isTicked) {
    setTick(form, state, services, index, isTicked);
}

void SatelliteList_Click(GroupsForm& form, ProgramState& state, Services& services) {
    ErrorLabel label(services, {});
    label.quietStep([&] {
        if (!form.SatelliteList.isSelected()) return;
        form.Details =
            SatelliteDataFunc(state, services, std::string(trimmed(form.SatelliteList.selectedText())));
        if (!form.Details.empty()) return;
        form.Details =
            "You can still track the position of this Satellite, but No further Information is Available, To "
            "send a request for information to be added to the database for this object CLICK HERE. "
            "Information if found will be added within a week or so.";
    });
}

void BUTsel_Click(GroupsForm& form, ProgramState& state, Services& services) {
    tickAll(form, state, services, true);
}

void BUTdesel_Click(GroupsForm& form, ProgramState& state, Services& services) {
    tickAll(form, state, services, false);
}

}  // namespace vantrace
