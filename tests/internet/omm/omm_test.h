// Messages for tests.
#pragma once

#include "internet/omm/three_line_conversion.h"
#include "platform/text_file.h"
#include "tests/support/testing.h"

namespace vantrace {

inline std::string example(std::string_view name) {
    return readTextFile(std::string(VANTRACE_MESSAGES_FOLDER) + "/" + std::string(name), 1 << 20);
}

/// The words of a good message; a test changes some.
inline std::map<std::string, std::string> goodWords() {
    return {{"OBJECT_NAME", "ISS (ZARYA)"},
            {"OBJECT_ID", "1998-067A"},
            {"EPOCH", "2026-08-06T01:17:37.872384"},
            {"MEAN_MOTION", "15.49359774"},
            {"ECCENTRICITY", ".00072161"},
            {"INCLINATION", "51.6321"},
            {"RA_OF_ASC_NODE", "53.3065"},
            {"ARG_OF_PERICENTER", "17.1615"},
            {"MEAN_ANOMALY", "342.9616"},
            {"EPHEMERIS_TYPE", "0"},
            {"CLASSIFICATION_TYPE", "U"},
            {"NORAD_CAT_ID", "25544"},
            {"ELEMENT_SET_NO", "999"},
            {"REV_AT_EPOCH", "57948"},
            {"BSTAR", ".7969016E-4"},
            {"MEAN_MOTION_DOT", ".3997E-4"},
            {"MEAN_MOTION_DDOT", "0"}};
}

/// What comes out for `goodWords` as they are.
inline constexpr std::string_view goodSet =
    "ISS (ZARYA)             \r\n"
    "1 25544U 98067A   26218.05391056  .00003997  00000+0  79690-4 0  9990\r\n"
    "2 25544  51.6321  53.3065 0007216  17.1615 342.9616 15.49359774579487\r\n";

using Words = std::map<std::string, std::string>;

inline std::string keyValueMessage(const Words& words) {
    std::string text = "CCSDS_OMM_VERS = 2.0\n";
    for (const auto& [key, value] : words) text += key + " = " + value + "\n";
    return text;
}

/// The good message with other words in place of some.
inline std::string messageWith(const Words& changed) {
    Words words = changed;
    words.merge(goodWords());
    return keyValueMessage(words);
}

inline std::string jsonMessage() {
    std::string text;
    for (const auto& [key, value] : goodWords()) {
        text += (text.empty() ? "{\"" : ",\"") + key + "\":\"" + value + "\"";
    }
    return text + "}";
}

inline std::string csvHeading() {
    std::string line;
    for (const auto& [key, value] : goodWords()) line += (line.empty() ? "" : ",") + key;
    return line + "\n";
}
inline std::string csvRow() {
    std::string line;
    for (const auto& [key, value] : goodWords()) line += (line.empty() ? "" : ",") + value;
    return line + "\n";
}

inline std::string xmlMessage() {
    std::string text = "<omm>";
    for (const auto& [key, value] : goodWords()) text += "<" + key + ">" + value + "</" + key + ">";
    return text + "</omm>";
}

}  // namespace vantrace
