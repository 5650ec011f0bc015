// Drop-downs and lists as the windows' structs hold them. Windows look at the counters, so that long lists
// aren't compared entry by entry.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace vantrace {

/// A drop-down whose text need not be an entry of its list.
struct DropDown {
    std::string text;
    std::vector<std::string> list;
    /// Counts how often the list was emptied; between two times it only grows.
    unsigned emptyings = 0;

    /// Empties the list and shows a text that is no entry.
    void empty(std::string_view shown) {
        list.clear();
        text = shown;
        ++emptyings;
    }
    /// As long as it shows one of the texts that ask the user to select.
    bool isUnselected() const { return text.find("elect") != std::string::npos; }
};

/// A list of which one entry may be selected.
struct ListBox {
    static constexpr int none = -1;

    std::vector<std::string> list;
    /// An index of `list`.
    int selected = none;
    /// Counts the changes of `list`.
    unsigned changes = 0;

    bool isSelected() const { return selected >= 0 && static_cast<std::size_t>(selected) < list.size(); }
    const std::string& selectedText() const { return list.at(static_cast<std::size_t>(selected)); }
    void add(std::string text) {
        list.push_back(std::move(text));
        ++changes;
    }
    /// Takes the entry away that is selected.
    void removeSelected() {
        if (!isSelected()) return;
        list.erase(list.begin() + selected);
        selected = none;
        ++changes;
    }
};

}  // namespace vantrace
