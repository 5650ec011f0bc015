#include "mapview/tables/footprint.h"

#include "core/labels.h"
#include "mapview/tables/small_circle.h"

namespace vantrace {

void CalcFootprint(MapState& map, Services& services, double Height, double Latitude, double Longitude) {
    constexpr int stepDeg = 2;
    ErrorLabel label(services, labels::mapviewCalcFootprint);
    SmallCircle circle(label, {Latitude, Longitude}, mapEarthRadiusKm + Height);
    for (int around = 0; around <= 360; around += stepDeg) {
        const MapPoint& point = circle.at(around);
        map.FootprintPoints[around] = point;
        map.FootprintPoints[around + 1] = point;
    }
}

}  // namespace vantrace
