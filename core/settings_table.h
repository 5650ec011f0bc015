// Every setting of the program, with its default.
#pragma once

#include <string>
#include <string_view>

namespace vantrace {

struct Setting {
    /// The store takes letters of both cases for the same.
    std::string_view key;
    std::string_view defaultValue;
    /// The default is the program folder instead.
    bool defaultIsAppPath = false;
};

namespace settings {

inline constexpr Setting threeDFontSize{"3DFontSize", "20"};
/// "1": the alternative world picture is the whole-world view.
inline constexpr Setting altWorld{"Altworld", "0"};
/// "1": the display mode is switched at start and end.
inline constexpr Setting changeRes{"ChangeRes", "0"};
/// "1": no blended drawing.
inline constexpr Setting compatibility{"Compatibility", "0"};
/// "1": the location is typed as degrees, minutes and seconds.
inline constexpr Setting dms{"DMS", "0"};
/// Minutes of the ground track.
inline constexpr Setting groundTrackLen{"GroundTrackLen", "90"};
/// The observer: metres above sea level, degrees north, name, degrees west.
inline constexpr Setting hasl{"HASL", "0"};
inline constexpr Setting latitude{"Latitude", "0"};
inline constexpr Setting locationName{"Location Name", "Default"};
inline constexpr Setting longitude{"Longitude", "0"};
/// The pictures of the horizon and of the map.
inline constexpr Setting horizonFile{"HorizonFile", "hdefault"};
inline constexpr Setting mapFile{"MapFile", "Default"};
/// Seconds between two frames of the map.
inline constexpr Setting mapUpdate{"MapUpdate", "2"};
inline constexpr Setting proxyOn{"ProxyON", "0"};
inline constexpr Setting proxyHost{"ProxyHost", ""};
/// One key with two defaults: that of the flares and that of the updates. Whoever reads first fixes the
/// value.
inline constexpr Setting proxyPortForFlares{"ProxyPort", "80"};
inline constexpr Setting proxyPortForUpdates{"ProxyPort", "1080"};
inline constexpr Setting proxyUser{"ProxyUser", ""};
inline constexpr Setting proxyPass{"ProxyPass", ""};
/// "1": passes of the primary satellite, of weather satellites are recorded.
inline constexpr Setting recPrimary{"RecPrimary", "0"};
inline constexpr Setting recWxsat{"RecWxsat", "0"};
/// "1": the map has footprints, a ground track, a pane of information.
inline constexpr Setting showFootprints{"ShowFootprints", "1"};
inline constexpr Setting showGroundtrack{"ShowGroundtrack", "1"};
inline constexpr Setting showInfoPane{"ShowInfoPane", "1"};
/// "1": windows have a skin.
inline constexpr Setting skin{"Skin", "1"};
/// "1": the user wants to hear the program, as he said last on the map; nobody reads it.
inline constexpr Setting speech{"Speech", "0"};
/// Anything but "0": the program speaks, with this speed and voice.
inline constexpr Setting speechpack{"Speechpack", "0"};
inline constexpr Setting speechSpeed{"SpeechSpeed", "180"};
inline constexpr Setting voice{"Voice", "1"};
/// Left, top, width and height of the map and the horizon window.
inline constexpr Setting winPosX{"WinPosX", "200"};
inline constexpr Setting winPosY{"WinPosY", "200"};
inline constexpr Setting winPosW{"WinPosW", "12195"};
inline constexpr Setting winPosH{"WinPosH", "7920"};
/// Least elevation, degrees, of a pass that is recorded or listed.
inline constexpr Setting wxEl{"WxEL", "0"};
/// The folder of the recordings.
inline constexpr Setting wxWavDir{"WxWavDir", "", true};

}  // namespace settings

}  // namespace vantrace
