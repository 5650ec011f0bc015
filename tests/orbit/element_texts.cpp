#include "tests/orbit/element_texts.h"

#include <algorithm>
#include <array>
#include <cstdio>
#include <limits>
#include <stdexcept>
#include <utility>

#include "platform/text_file.h"
#include "tests/support/testing.h"

namespace vantrace {

std::filesystem::path shippedFolder() {
    return VANTRACE_SHIPPED_FOLDER;
}

Texts shippedElementFiles() {
    Texts names;
    for (const auto& entry : std::filesystem::directory_iterator(shippedFolder())) {
        const std::string name = entry.path().filename().string();
        const bool isProse = name == "SOURCES.txt" || name == "CMakeLists.txt" || name == "history.txt";
        if (name.ends_with(".txt") && !isProse) {
            names.push_back(name);
        }
    }
    std::ranges::sort(names);
    return names;
}

std::string shippedText(const std::string& file) {
    return readTextFile(shippedFolder() / file, std::numeric_limits<std::size_t>::max());
}

std::string verificationText(const std::string& file) {
    return readTextFile(std::filesystem::path(VANTRACE_VERIFICATION_FOLDER) / file,
                        std::numeric_limits<std::size_t>::max());
}

ReadElements readAll(std::string_view text) {
    ReadElements result;
    readElementSets(text,
                    {[&result](ElementSet&& set) { result.sets.push_back(std::move(set)); },
                     [&result](ElementRemark&& remark) { result.remarks.push_back(std::move(remark)); }});
    return result;
}

ElementSet shippedSet(const std::string& file, std::string_view name) {
    for (ElementSet& set : readAll(shippedText(file)).sets) {
        if (set.name == name) return std::move(set);
    }
    throw std::runtime_error(file + " holds no " + std::string(name));
}

char checkDigitOf(std::string_view line) {
    int sum = 0;
    for (std::size_t i = 0; i < 68 && i < line.size(); ++i) {
        if (line[i] >= '0' && line[i] <= '9') sum += line[i] - '0';
        if (line[i] == '-') ++sum;
    }
    return static_cast<char>('0' + sum % 10);
}

std::string withColumns(std::string line, std::size_t firstColumn, std::string_view text) {
    line.replace(firstColumn - 1, text.size(), text);
    line[68] = checkDigitOf(line);
    return line;
}

std::string elementText(const MadeSet& made) {
    std::array<char, 128> line1{};
    std::array<char, 128> line2{};
    std::snprintf(line1.data(), line1.size(), "1 %05dU 26001A   %s  .00000000  00000+0 %s 0  999 ",
                  made.number, made.epoch.c_str(), made.bStar.c_str());
    std::snprintf(line2.data(), line2.size(), "2 %05d %8.4f %8.4f %07.0f %8.4f %8.4f %11.8f%5d ", made.number,
                  made.inclinationDeg, made.nodeDeg, made.eccentricity * 1e7, made.perigeeDeg,
                  made.meanAnomalyDeg, made.turnsPerDay, made.revolution);
    return made.name + "\n" + withColumns(line1.data(), 1, "1") + "\n" + withColumns(line2.data(), 1, "2") +
           "\n";
}

ElementSet madeElements(const MadeSet& made) {
    ReadElements read = readAll(elementText(made));
    if (read.sets.size() != 1) {
        throw std::runtime_error(read.remarks.empty() ? "no set" : read.remarks.front().reason);
    }
    return std::move(read.sets.front());
}

}  // namespace vantrace
