// The labels by which routines sign their lines in the log. The spacing inside each is part of it.
#pragma once

#include <string_view>

namespace vantrace::labels {

inline constexpr std::string_view mainFixGpsKeps = "MAIN_FIXGPSKEPS";
inline constexpr std::string_view mainFormActivate = "Main Form_activate";
inline constexpr std::string_view mainFormLoad = "Main Form Load";
inline constexpr std::string_view mainLoadAllSettings = "MainLoadAllSettings";
inline constexpr std::string_view mainTimer1 = "MAIN_TIMER1";
inline constexpr std::string_view mapMakeannouncment = "map  - Makeannouncment";
inline constexpr std::string_view mapRedrawinfoPane = "map  - RedrawinfoPane";
inline constexpr std::string_view mapFinalMousedown = "map  - Final_Mousedown";
inline constexpr std::string_view mapFormActivate = "map  - Form_activate";
inline constexpr std::string_view mapFormLoad = "map - Form_load";
inline constexpr std::string_view mapFormResize = "map  - Form_resize";
inline constexpr std::string_view mapFormUnload = "map - Form_Unload";
inline constexpr std::string_view mapMenuFavelistClick = "map - menu favelist_Click";
inline constexpr std::string_view mapTimer1 = "map - Timer1";
inline constexpr std::string_view mapviewTimer2 = "mapview - Timer2";
inline constexpr std::string_view mapviewGsatroutine = "Mapview Gsatroutine";
inline constexpr std::string_view mapviewCalcGroundTrack = "Mapview CalcGroundTrack";
inline constexpr std::string_view mapviewCalcSunMoon = "Mapview CalcSunMoon";
inline constexpr std::string_view mapviewCalcFootprint = "MapView CalcFootprint";
inline constexpr std::string_view stretchBltError = "StretchBlt error";
inline constexpr std::string_view mapviewRepaintMapScreen = "mapview RepaintMapScreen";
inline constexpr std::string_view horizonDrawSkyTrack = "Horizon - DrawSkyTrack";
inline constexpr std::string_view horizonPaintScreen = "Horizon - PaintScreen";
inline constexpr std::string_view horizonFinalMousedown = "Horizon - FinalMousedown";
inline constexpr std::string_view horizonFormLoad = "Horizon - FormLoad";
inline constexpr std::string_view horizonTimer5sec = "Horizon - Timer5sec";
inline constexpr std::string_view passPrePresetGo = "PassPre  - PresetGo";
inline constexpr std::string_view globalUpdateQuickETA = "Global UpdateQuickETA";
inline constexpr std::string_view globalSatelliteDataFunc = "Global SatelliteDataFunc";
inline constexpr std::string_view globalFindFirstKepLine = "Global FindFirstKepLine";
inline constexpr std::string_view globalSatcalc = "Global Satcalc";
inline constexpr std::string_view globalNextPass = "Global NextPass";
inline constexpr std::string_view globalNextPassRAW = "Global NextPassRAW";
inline constexpr std::string_view iridiumSaveClick = "Iridium - SaveClick";
inline constexpr std::string_view iridiumFormLoad = "IridiumFormLoad";
inline constexpr std::string_view updateCONSyncClock = "UpdateCON - SyncClock";
inline constexpr std::string_view updateCONUpdateDB = "updateCON - UpdateDB";
inline constexpr std::string_view updateCONCheckKepFile = "updateCON - CheckKepFile";
inline constexpr std::string_view trackerTimer1 = "Tracker - Timer1";
inline constexpr std::string_view trackerUpdateCombos = "Tracker - UpdateCombos";
inline constexpr std::string_view twoDconFormLoad = "2Dcon - FormLoad";
inline constexpr std::string_view mainCONFormLoad = "mainCON - FormLoad";
inline constexpr std::string_view mainCONQueryUnload = "mainCON - QueryUnload";
inline constexpr std::string_view mainCONUnload = "mainCON - Unload";
inline constexpr std::string_view locCONBUTaddloc = "LocCON - BUTaddloc";
inline constexpr std::string_view locCONBUTremLoc = "LocCON - BUTremLoc";
inline constexpr std::string_view locCONFormLoad = "LocCON - FormLoad";
inline constexpr std::string_view groupsCONInFaves = "GroupsCON - InFaves";
inline constexpr std::string_view groupsCONBUTaddCelestrak = "GroupsCON - BUTaddCelestrak";
inline constexpr std::string_view groupsCONBUTaddgroup = "GroupsCON - BUTaddgroup";
inline constexpr std::string_view groupsCONBUTdelgroup = "GroupsCON - BUTdelgroup";
inline constexpr std::string_view groupsCONBUTmakeprime = "GroupsCON - BUTmakeprime";
inline constexpr std::string_view groupsCONDetailsClick = "GroupsCON - DetailsClick";
inline constexpr std::string_view groupsCONFormLoad = "GroupsCON - FormLoad";
inline constexpr std::string_view conGroupsGrouplistClick = "CONgroups  - grouplist_click";
inline constexpr std::string_view groupsCONSatlistItemcheck = "GroupsCON - Satlist_itemcheck";

}  // namespace vantrace::labels
