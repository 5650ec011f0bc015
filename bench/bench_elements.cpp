#include "bench/bench_elements.h"

#include <stdlib.h>

#include <algorithm>
#include <fstream>
#include <limits>
#include <stdexcept>
#include <system_error>

#include "orbit/elements/element_catalogue.h"
#include "orbit/elements/element_fields.h"
#include "orbit/engine_error.h"
#include "platform/text_file.h"

namespace vantrace {

namespace {

/// Lines 1 and 2 of every shipped set.
struct Lines {
    std::string line1;
    std::string line2;
};

std::vector<Lines> shippedLines() {
    std::vector<Lines> result;
    for (const auto& entry : std::filesystem::directory_iterator(shippedFolder())) {
        if (!entry.is_regular_file()) continue;
        const std::string text = readTextFile(entry.path(), std::numeric_limits<std::size_t>::max());
        std::string_view before;
        for (const std::string_view line : splitLines(text)) {
            if (line.size() >= 69 && line.substr(0, 2) == "2 " && before.size() >= 69 &&
                before.substr(0, 2) == "1 ") {
                result.push_back({std::string(before.substr(0, 69)), std::string(line.substr(0, 69))});
            }
            before = line;
        }
    }
    return result;
}

/// The line under another catalogue number, its check digit made right.
std::string renumbered(std::string line, std::size_t number) {
    constexpr std::size_t width = 5;
    const std::string digits = std::to_string(number);
    line.replace(2, width, std::string(width - digits.size(), '0') + digits);
    line[68] = static_cast<char>('0' + checkDigit(line));
    return line;
}

}  // namespace

std::filesystem::path shippedFolder() {
    return VANTRACE_SHIPPED_FOLDER;
}

ElementSet shippedSet(std::string_view name) {
    ElementCatalogue catalogue;
    catalogue.refresh(shippedFolder());
    const CatalogueEntry* entry = catalogue.find(name);
    if (entry == nullptr) throw std::runtime_error("no element set of " + std::string(name));
    return *entry->set;
}

std::vector<std::string> shippedNames(std::size_t count) {
    ElementCatalogue catalogue;
    catalogue.refresh(shippedFolder());
    const std::unique_ptr<OrbitEngine> engine = shippedEngine();
    const std::size_t stride = std::max<std::size_t>(1, catalogue.entries().size() / count - 1);
    std::vector<std::string> names;
    for (std::size_t i = 0; names.size() < count && i < catalogue.entries().size(); i += stride) {
        const std::string& name = catalogue.entries()[i].set->name;
        try {
            engine->track(name, benchTime());
            names.push_back(name);
        } catch (const EngineError&) {
            continue;  // decayed by then
        }
    }
    return names;
}

std::unique_ptr<OrbitEngine> shippedEngine() {
    auto engine = std::make_unique<OrbitEngine>();
    engine->EngineSetKepPath(shippedFolder().string());
    engine->EngineSetLatitude(52.0);
    engine->EngineSetLongitude(5.0);
    engine->EngineSetHeight(10.0);
    return engine;
}

Instant benchTime() {
    return instantFromCalendar({2026, 8, 21, 12, 0, 0.0});
}

ElementFolder::ElementFolder(std::size_t sets) {
    std::string name = (std::filesystem::temp_directory_path() / "vantrace-bench-XXXXXX").string();
    if (mkdtemp(name.data()) == nullptr) throw std::runtime_error(name + " can't be made");
    m_path = name;
    const std::vector<Lines> lines = shippedLines();
    constexpr std::size_t setsOfFile = 1000;
    for (std::size_t first = 0; first < sets; first += setsOfFile) {
        std::ofstream file(m_path + "/set" + std::to_string(first) + ".txt", std::ios::binary);
        for (std::size_t i = first; i < std::min(sets, first + setsOfFile); ++i) {
            const Lines& set = lines[i % lines.size()];
            file << "SATELLITE " << i << '\n'
                 << renumbered(set.line1, i + 1) << '\n'
                 << renumbered(set.line2, i + 1) << '\n';
        }
    }
}

ElementFolder::~ElementFolder() {
    std::error_code ignored;
    std::filesystem::remove_all(m_path, ignored);
}

}  // namespace vantrace
