// Messages for tests.
#pragma once

#include "internet/omm/three_line_conversion.h"
#include "platform/text_file.h"
#include "tests/support/testing.h"

namespace vantrace {

inline std::string example(std::string_view name) {
    return readTextFile(std::string(VANTRACE_MESSAGES_FOLDER) + "/" + std::string(name), 1 << 20);
}

using Words = std::map<std::string, std::string>;

/// A good message as a table.
inline const std::string goodHeading =
    "OBJECT_NAME,OBJECT_ID,EPOCH,MEAN_MOTION,ECCENTRICITY,INCLINATION,RA_OF_ASC_NODE,ARG_OF_PERICENTER,"
    "MEAN_ANOMALY,EPHEMERIS_TYPE,CLASSIFICATION_TYPE,NORAD_CAT_ID,ELEMENT_SET_NO,REV_AT_EPOCH,BSTAR,"
    "MEAN_MOTION_DOT,MEAN_MOTION_DDOT";
inline const std::string goodRow =
    "ISS (ZARYA),1998-067A,2026-08-06T01:17:37.872384,15.49359774,.00072161,51.6321,53.3065,17.1615,"
    "342.9616,0,U,25544,999,57948,.7969016E-4,.3997E-4,0";

/// Its words; a test changes some.
inline Words goodWords() {
    Words words;
    std::istringstream keys(goodHeading), values(goodRow);
    for (std::string key; std::getline(keys, key, ',');) std::getline(values, words[key], ',');
    return words;
}

/// What comes out for them as they are.
inline constexpr std::string_view goodSet =
    "ISS (ZARYA)             \r\n"
    "1 25544U 98067A   26218.05391056  .00003997  00000+0  79690-4 0  9990\r\n"
    "2 25544  51.6321  53.3065 0007216  17.1615 342.9616 15.49359774579487\r\n";

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

inline std::string xmlMessage() {
    std::string text = "<omm>";
    for (const auto& [key, value] : goodWords()) text += "<" + key + ">" + value + "</" + key + ">";
    return text + "</omm>";
}

}  // namespace vantrace
