// What the tests of the catalogue share: a program folder, and elements of the navigation satellites.
#pragma once

#include "tests/orbit/program/program_test.h"

namespace vantrace {

// As CelesTrak publishes them.
inline constexpr std::string_view gpsElements =
    "GPS BIIR-5  (PRN 22)    \r\n"
    "1 26407U 00040A   26217.96851207  .00000101  00000+0  00000+0 0  9999\r\n"
    "2 26407  54.8461 213.1853 0119847 303.0522 284.5020  2.00557973190949\r\n"
    "GPS BIIR-8  (PRN 16)    \r\n"
    "1 27663U 03005A   26217.97883620  .00000101  00000+0  00000+0 0  9993\r\n"
    "2 27663  54.8764 212.9908 0148825  53.2954 317.9540  2.00557808172315\r\n";

class CatalogueTest : public ProgramTest {
  protected:
    TemporaryFolder& folder = fakes.folder;
};

}  // namespace vantrace
