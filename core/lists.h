// Lists and drop-downs as the windows' structs hold them. Windows look at the counters, so that long lists
// aren't compared entry by entry.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace vantrace {

/// No entry of a list.
inline constexpr int noEntry = -1;

/// Names of which one may be selected.
struct NameList {
    std::vector<std::string> list;
    /// An index of `list`.
    int selected = noEntry;
    /// Counts the changes that the program makes, those of the selection too.
    unsigned changes = 0;

    bool isSelected() const { return selected >= 0 && static_cast<std::size_t>(selected) < list.size(); }
    void add(std::string text) {
        list.push_back(std::move(text));
        ++changes;
    }
    void select(int index) {
        selected = index;
        ++changes;
    }
    const std::string& selectedText() const { return list.at(static_cast<std::size_t>(selected)); }
    /// Takes the entry away that is selected.
    void removeSelected() {
        if (!isSelected()) return;
        list.erase(list.begin() + selected);
        select(noEntry);
    }
};

/// Names with a tick each, of which one may be selected.
struct TickList {
    struct Entry {
        std::string text;
        bool isTicked = false;
    };

    std::vector<Entry> list;
    int selected = noEntry;
    /// Counts the changes of the names, and those of the ticks.
    unsigned changes = 0;
    unsigned tickChanges = 0;

    bool isSelected() const { return selected >= 0 && static_cast<std::size_t>(selected) < list.size(); }
    const std::string& selectedText() const { return list.at(static_cast<std::size_t>(selected)).text; }
    /// The entry comes without a tick.
    void add(std::string text) {
        list.push_back({std::move(text), false});
        ++changes;
    }
    void clear() {
        list.clear();
        selected = noEntry;
        ++changes;
    }
    void removeSelected() {
        if (!isSelected()) return;
        list.erase(list.begin() + selected);
        selected = noEntry;
        ++changes;
    }
    /// Whether this changes the tick; then somebody has to be told.
    bool setTick(std::size_t index, bool isTicked) {
        Entry& entry = list.at(index);
        if (entry.isTicked == isTicked) return false;
        entry.isTicked = isTicked;
        ++tickChanges;
        return true;
    }
};

/// A drop-down whose text need not be an entry of its list.
struct DropDown {
    std::string text;
    std::vector<std::string> list;
    /// The entry that was picked.
    int selected = noEntry;
    /// Counts how often the list was emptied; between two times it only grows.
    unsigned emptyings = 0;

    /// Shows an entry. Throws std::out_of_range where there is none.
    void select(std::size_t index) {
        text = list.at(index);
        selected = static_cast<int>(index);
    }
    /// Shows a text, an entry or not, as nobody's pick.
    void show(std::string_view shown) {
        text = shown;
        selected = noEntry;
    }
    /// Empties the list and shows a text.
    void empty(std::string_view shown) {
        list.clear();
        show(shown);
        ++emptyings;
    }
    /// As long as it shows one of the texts that ask the user to select.
    bool isUnselected() const { return text.find("elect") != std::string::npos; }
};

}  // namespace vantrace
