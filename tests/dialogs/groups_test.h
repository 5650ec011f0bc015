// The groups dialog over three groups: one with three satellites, one with DELTA, one without its file.
#pragma once

#include "dialogs/favourites_edit.h"
#include "dialogs/groups_settings.h"
#include "tests/dialogs/dialogs_test.h"

namespace vantrace {

/// Three lines, of which only the name and the epoch count here.
inline std::string setOf(const std::string& name, const std::string& epoch) {
    return name + "\r\n1 25544U 98067A   " + epoch + "  .00008864\r\n2 25544  51.6331\r\n";
}

class GroupsTest : public DialogsTest {
  protected:
    GroupsTest() {
        fakes.folder.write("letters.txt", setOf("ALPHA          ", "26233.53315667") +
                                              setOf("BRAVO", "26233.53315667") +
                                              setOf("CHARLIE", "26233.53315667"));
        fakes.folder.write("others.txt", setOf("DELTA", "26233.53315667"));
        fakes.folder.write("satellite.dat", "BRAVO\r\nBEACON 145.8\r\n***\r\n");
        state.Groups[1] = {"Letters", "example.org/a/letters.txt", "0"};
        state.Groups[2] = {"Others", "others.txt", "1"};
        state.Groups[3] = {"Missing", "example.org/gone.txt", "0"};
        state.GroupCount = 3;
    }

    void load() { Form_Load(form, state, services); }
    void choose(int group) {
        form.GroupList.selected = group;
        GroupList_Click(form, state, services);
    }
    void select(int satellite) {
        form.SatelliteList.selected = satellite;
        SatelliteList_Click(form, state, services);
    }
    void addFavourite(const std::string& name) { SetFavourite(state, name, true); }
    Texts satellites() const {
        Texts names;
        for (const TickList::Entry& entry : form.SatelliteList.list) names.push_back(entry.text);
        return names;
    }
    Texts ticked() const {
        Texts names;
        for (const TickList::Entry& entry : form.SatelliteList.list) {
            if (entry.isTicked) names.push_back(entry.text);
        }
        return names;
    }
    Texts favourites() const {
        Texts names;
        for (int i = 1; i <= state.FavouriteCount; ++i) names.push_back(state.Favourites[i].Name);
        return names;
    }

    GroupsForm form;
};

}  // namespace vantrace
