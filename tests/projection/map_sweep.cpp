#include "projection/map_sweep.h"

#include "core/map_design.h"
#include "projection/map_fields.h"
#include "projection/param_select.h"
#include "projection/projection_table.h"
#include "projection/reference_projection.h"

#include <initializer_list>
#include <ostream>

namespace quelmont {

namespace {

// ---- Maps between parallels and meridians.

std::vector<MapOfSweep> Cylinders(double pole) {
    return {{pole, -pole, 360.0},
            {pole, -pole, 360.0, 45.0},
            {60.0, 10.0, 75.5, 35.0},
            {-10.0, -50.0, 20.0, 30.0},
            {20.25, 20.0, 0.5, 89.0}};
}

std::vector<MapOfSweep> Ovals(double pole) {
    return {{pole, -pole, 360.0}, {75.0, 0.0, 100.0}, {-20.0, -20.5, 0.25}, {pole, 89.0, 359.0}};
}

/// The proposals for six maps, and odd parallels: as far apart as can be, close together, nearly
/// symmetric about the equator, one beyond the map.
std::vector<MapOfSweep> Cones() {
    return {{89.5, -89.5, 360.0, 60.0, 0.0},    {80.0, 10.0, 130.0, 68.3, 21.6},
            {-5.0, -75.0, 200.0, -16.6, -63.3}, {50.0, 25.0, 60.0, 45.0, 29.5},
            {55.0, 45.0, 20.0, 50.1, 50.0},     {89.0, -60.0, 360.0, 89.0, -10.0},
            {60.0, -60.0, 180.0, 30.0, -29.0},  {85.0, 60.0, 360.0, 20.0, 80.0},
            {-30.0, -60.0, 90.0, 10.0, -80.0}};
}

std::string Cone(const char* name, const MapOfSweep& map) {
    return Definition(name,
                      {{"lat_1", map.std1}, {"lat_2", map.std2}, {"lat_0", (map.north + map.south) / 2.0}});
}

// ---- Discs.

std::vector<MapOfSweep> Discs(std::initializer_list<double> heights = {0.0}) {
    std::vector<MapOfSweep> maps;
    for (const double height : heights) {
        for (const double centre :
             {90.0, -90.0, 89.0, 60.0, 40.0, 37.783333, 1.0, 0.0, -0.5, -33.25, -86.0}) {
            MapOfSweep map;
            map.centre = centre;
            map.height = height;
            maps.push_back(map);
        }
    }
    return maps;
}

} // namespace

void PrintTo(const SweptProjection& swept, std::ostream* stream) { *stream << swept.name; }

std::vector<SweptProjection> SweptProjections() {
    using Map = const MapOfSweep&;
    const auto merc = [](Map) { return Definition("merc"); };
    const auto eqc = [](Map map) { return Definition("eqc", {{"lat_ts", map.std1}}); };
    const auto cea = [](Map map) { return Definition("cea", {{"lat_ts", map.std1}}); };
    const auto hammer = [](Map) { return Definition("hammer"); };
    const auto moll = [](Map) { return Definition("moll"); };
    const auto eqdc = [](Map map) { return Cone("eqdc", map); };
    const auto lcc = [](Map map) { return Cone("lcc", map); };
    const auto aea = [](Map map) { return Cone("aea", map); };
    const auto gnom = [](Map map) { return Definition("gnom", {{"lat_0", map.centre}}); };
    const auto stere = [](Map map) { return Definition("stere", {{"lat_0", map.centre}}); };
    const auto ortho = [](Map map) { return Definition("ortho", {{"lat_0", map.centre}}); };
    const auto nsper = [](Map map) {
        return Definition("nsper", {{"lat_0", map.centre}, {"h", map.height / 6371.0}});
    };
    const auto aeqd = [](Map map) { return Definition("aeqd", {{"lat_0", map.centre}}); };
    const auto laea = [](Map map) { return Definition("laea", {{"lat_0", map.centre}}); };
    return {{"Mercator", ProjMercator, Cylinders(89.5), merc},
            {"Equirectangular", ProjEquirectangular, Cylinders(90.0), eqc},
            {"CylindricalEqualArea", ProjCylindricalEqualArea, Cylinders(90.0), cea},
            {"Hammer", ProjHammer, Ovals(90.0), hammer},
            {"Mollweide", ProjMollweide, Ovals(89.9), moll},
            {"InterruptedMollweide", ProjInterruptedMollweide, Ovals(89.9), moll},
            {"EquidistantConic", ProjEquidistantConic, Cones(), eqdc},
            {"ConformalConic", ProjConformalConic, Cones(), lcc},
            {"Albers", ProjAlbers, Cones(), aea},
            {"Gnomonic", ProjGnomonic, Discs(), gnom},
            {"Stereographic", ProjStereographic, Discs(), stere},
            {"Orthographic", ProjOrthographic, Discs(), ortho},
            {"VerticalPerspective", ProjVerticalPerspective, Discs({1.0, 400.0, 35840.0, 1e7}), nsper},
            {"AzimuthalEquidistant", ProjAzimuthalEquidistant, Discs(), aeqd},
            {"AzimuthalEqualArea", ProjAzimuthalEqualArea, Discs(), laea}};
}

void SetSweptMap(std::int16_t projNum, const MapOfSweep& map) {
    if (IsAzimuthal(projNum)) {
        SetDisc(projNum, map.centre, 60.0);
        Design.VpDistanceKm = map.height;
    } else {
        SetRectangle(projNum, map.north, map.south, map.span);
        Design.StdParNorth = map.std1;
        Design.StdParSouth = map.std2;
    }
    ParamSelect();
}

bool CountsFromWest(std::int16_t projNum) {
    return PropertiesOf(projNum).family == ProjectionFamily::Cylindrical;
}

} // namespace quelmont
