// What the windows and routines share: the observer, the catalogue tables, the selected satellite, the last
// position worked out, and the words by which the windows tell each other what is wanted.
//
// Angles are degrees, north positive; longitudes are degrees WEST, 0 up to 360. Dates are day numbers. A flag
// is a bool: nobody stores it or reckons with it, so that its width can't be told.
#pragma once

#include <cstdint>
#include <memory>
#include <string>

#include "core/table.h"

namespace vantrace {

class OrbitEngine;

/// A satellite that the user follows.
struct FavouriteRecord {
    /// As in the element files; blank when unused.
    std::string Name;
    /// Last sub-satellite point.
    double Latitude = 0;
    double Longitude = 0;
    /// Kept in the record; nobody writes or reads it.
    double Reserved = 0;
    /// As last seen by the observer; below the horizon the elevation is negative.
    double Azimuth = 0;
    double Elevation = 0;
};

/// A file of element sets.
struct GroupRecord {
    std::string Name;
    /// Where it is fetched from, without "http://"; what follows the last "/" is the file's bare name.
    std::string Url;
    /// "0": updated over the Internet, "1": by hand. Any other sign is carried along.
    std::string Flag;
};

/// A place on the map beside the observer's own.
struct LocationRecord {
    /// Blank when unused.
    std::string Name;
    /// Decimal texts as typed, the longitude degrees west.
    std::string Latitude;
    std::string Longitude;
    /// Metres.
    std::int16_t Height = 0;
    /// "1": drawn on the map, "0": not.
    std::string Shown;
};

struct ProgramState {
    /// The observer: name, degrees west, degrees north, metres above sea level.
    std::string ObserverName;
    double ObserverLongitude = 0;
    double ObserverLatitude = 0;
    double ObserverHeight = 0;

    /// The orbit mathematics; there from the load of `Main` to its unload.
    std::shared_ptr<vantrace::OrbitEngine> OrbitEngine;
    /// The program folder, ended by one '/'.
    std::string AppPath;
    /// The arguments of the program; in upper case from the first activation of `Main` on.
    std::string CommandLine;
    /// Whether the switches of the command line have acted.
    bool CommandLineDone = false;
    /// Whether the map painter leaves out its blended drawing.
    bool CompatibilityMode = false;
    /// Whether the three-dimensional view was started.
    bool ThreeDViewActive = false;
    /// The view that `Main` opens when it is next activated: "Horizon", "pass", "world", "3D" or none.
    std::string NextView;
    /// The word `Main.Tag`: which view is wanted. Long loops and timers leave when it isn't theirs.
    std::string MainTag;

    /// The satellites followed, and how many.
    Table<FavouriteRecord, 500> Favourites;
    std::int16_t FavouriteCount = 0;
    /// Whether its file could not be read, so that the table must not take the file's place. Likewise below.
    bool FavouritesUnread = false;
    /// The element files, and how many.
    Table<GroupRecord, 40> Groups;
    std::int16_t GroupCount = 0;
    bool GroupsUnread = false;
    /// The places; the first blank name ends them.
    Table<LocationRecord, 150> Locations;
    bool LocationsUnread = false;

    /// The selected satellite: its index in Favourites, 0 for none, and its name. Who selects writes both;
    /// the name is what is calculated, the index what is marked in lists.
    std::int16_t PrimarySatIndex = 0;
    std::string PrimarySatName;

    /// The satellite that `Satcalc` was last called for: its sub-point, and how the observer sees it.
    double SatLatitude = 0;
    double SatLongitude = 0;
    double SatAzimuth = 0;
    double SatElevation = 0;
    /// Km; km/s, positive receding; km above the ground.
    double SatRange = 0;
    double SatRangeRate = 0;
    double SatHeight = 0;
    /// Of the moon: its phase.
    double SatPhaseAngle = 0;
    /// Moving south.
    bool SatDescending = false;
    /// Whether the sun is above -18 degrees as seen from the satellite.
    bool SatSunlit = false;
    /// Whether it can be seen by eye now.
    bool SatVisible = false;
    /// The fraction of the orbit times 255, two decimals; the orbit's number; the fraction times 360.
    double SatPhase255 = 0;
    std::string SatOrbitNumber;
    std::string SatPhase360;
    /// The next pass: rise as "hh:mm:ss" local, length in minutes and seconds, greatest elevation.
    std::string SatNextAOS;
    std::string SatNextDuration;
    std::string SatNextMaxElevation;
    /// The place of the primary satellite, TEME, km; nobody reads it.
    double SatVectorX = 0;
    double SatVectorY = 0;
    double SatVectorZ = 0;

    /// The word `frmTracker.Tag`: the satellite that the antenna follows.
    std::string TrackerTag;
    /// Whether the user wants to hear the program, as he said last on the map; nobody reads it.
    bool SpeechEnabled = false;

    /// Whether the upcoming passes are being worked out.
    bool QuickETABusy = false;

    /// From the moment that the recording of a pass is decided until `StopRecording` has run; and the
    /// satellite.
    bool Recording = false;
    std::string RecordingSat;
    /// The form of what is captured: samples a second, channels, bits of a sample.
    std::int32_t WaveRate = 0;
    std::int16_t WaveChannels = 0;
    std::int16_t WaveBits = 0;
    /// A capture's file with a blank in its name: the platform's short form, the name itself, and 65535 from
    /// then on. Nobody reads them but whoever saves.
    std::string WaveShortName;
    std::string WaveLongName;
    std::uint16_t WaveNameFlag = 0;
};

}  // namespace vantrace
