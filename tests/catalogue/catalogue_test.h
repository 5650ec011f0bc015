// What the tests of the catalogue share: a program folder, and real element sets to put into it.
#pragma once

#include "core/program_state.h"
#include "tests/support/test_services.h"
#include "tests/support/testing.h"

namespace vantrace {

// Element sets as CelesTrak publishes them.
inline constexpr std::string_view stationElements =
    "ISS (ZARYA)             \r\n"
    "1 25544U 98067A   26233.53315667  .00008864  00000+0  16558-3 0  9995\r\n"
    "2 25544  51.6331 336.6713 0007673  69.9303 290.2511 15.49551867581884\r\n";
inline constexpr std::string_view amateurElements =
    "FUNCUBE-1 (AO-73)       \r\n"
    "1 39444U 13066AE  26218.16117730  .00004124  00000+0  25315-3 0  9994\r\n"
    "2 39444  97.8314 190.6823 0036891  36.3587 324.0137 15.10127543687208\r\n";
inline constexpr std::string_view gpsElements =
    "GPS BIIR-5  (PRN 22)    \r\n"
    "1 26407U 00040A   26217.96851207  .00000101  00000+0  00000+0 0  9999\r\n"
    "2 26407  54.8461 213.1853 0119847 303.0522 284.5020  2.00557973190949\r\n"
    "GPS BIIR-8  (PRN 16)    \r\n"
    "1 27663U 03005A   26217.97883620  .00000101  00000+0  00000+0 0  9993\r\n"
    "2 27663  54.8764 212.9908 0148825  53.2954 317.9540  2.00557808172315\r\n";

class CatalogueTest : public ::testing::Test {
  protected:
    CatalogueTest() { state.AppPath = fakes.folder.appPath(); }

    TestServices fakes;
    TemporaryFolder& folder = fakes.folder;
    Services& services = fakes.services;
    ProgramState state;
};

}  // namespace vantrace
