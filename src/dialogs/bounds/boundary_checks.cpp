#include "dialogs/bounds/boundary_checks.h"

#include "core/angle_text.h"
#include "core/degrees.h"
#include "core/map_design.h"
#include "core/number_text.h"
#include "projection/projection_table.h"

#include <array>
#include <cmath>
#include <stdexcept>
#include <string>

namespace quelmont {

namespace {

constexpr std::string_view LatitudeLimit = "Latitude cannot be > 90  00  00";
constexpr std::string_view LongitudeLimit = "Longitude cannot be > 180  00  00";
constexpr std::string_view LatGrLimit = "Latitude cannot be > 180  00  00";
constexpr std::string_view LonGrLimit = "Longitude cannot be > 360  00  00";
constexpr std::string_view LatGrZero =
    "The DEGREES OF LATITUDE BETWEEN GRID MARKS must be greater than zero.";
constexpr std::string_view LonGrZero =
    "The DEGREES OF LONGITUDE BETWEEN GRID MARKS must be greater than zero.";

constexpr AngleFieldKind Latitude = AngleFieldKind::Latitude;
constexpr AngleFieldKind Longitude = AngleFieldKind::Longitude;
constexpr AngleFieldKind Arc = AngleFieldKind::Arc;

using FieldTable = std::array<BoundaryField, 18>;

const FieldTable& Table() {
    // clang-format off
    static const FieldTable table = {{
        // dialog           control            kind       title                                     most at the limit     zero
        {"LatLonBounds",   "LatN",           {Latitude,  "Error: Northernmost latitude",            90, LatitudeLimit}},
        {"LatLonBounds",   "LatS",           {Latitude,  "Error: Southernmost latitude",            90, LatitudeLimit}},
        {"LatLonBounds",   "LatGr",          {Arc,       "Error: Degrees of latitude",             180, LatGrLimit,     LatGrZero}},
        {"LatLonBounds",   "LonW",           {Longitude, "Error: Westernmost longitude",           180, LongitudeLimit}},
        {"LatLonBounds",   "LonE",           {Longitude, "Error: Easternmost longitude",           180, LongitudeLimit}},
        {"LatLonBounds",   "LonGr",          {Arc,       "Error: Degrees of longitude",            360, LonGrLimit,     LonGrZero}},
        {"LatLonBoundsAz", "LatCentral",     {Latitude,  "Error: Central latitude",                 90, LatitudeLimit}},
        {"LatLonBoundsAz", "LonCentral",     {Longitude, "Error: Central longitude",               180, LongitudeLimit}},
        {"LatLonBoundsAz", "LatGr",          {Arc,       "Error: Degrees of latitude",             180, LatGrLimit,     LatGrZero}},
        {"LatLonBoundsAz", "LonGr",          {Arc,       "Error: Degrees of longitude",            360, LonGrLimit,     LonGrZero}},
        {"LatLonBoundsVp", "LatCentral",     {Latitude,  "Error: Central latitude",                 90, LatitudeLimit}},
        {"LatLonBoundsVp", "LonCentral",     {Longitude, "Error: Central longitude",               180, LongitudeLimit}},
        {"LatLonBoundsVp", "LatGr",          {Arc,       "Error: Degrees of latitude",             180, LatGrLimit,     LatGrZero}},
        {"LatLonBoundsVp", "LonGr",          {Arc,       "Error: Degrees of longitude",            360, LonGrLimit,     LonGrZero}},
        {"LatLonStdPar",   "LatNorthStdPar", {Latitude,  "Error: Northernmost standard parallel",   90, LatitudeLimit}},
        {"LatLonStdPar",   "LatSouthStdPar", {Latitude,  "Error: Southernmost standard parallel",   90, LatitudeLimit}},
        {"UtmParameters",  "UtmLonCentral",  {Longitude, "Error: Central longitude",               180, LongitudeLimit}},
        {"UtmParameters",  "UtmLatOrigin",   {Latitude,  "Error: Latitude of map origin",           90, LatitudeLimit}},
    }};
    // clang-format on
    return table;
}

AngleField RuleOf(std::string_view dialog, std::string_view control) {
    for (const BoundaryField& field : Table()) {
        if (field.dialog == dialog && field.control == control) {
            return field.rule;
        }
    }
    throw std::out_of_range("no field " + std::string(control) + " in " + std::string(dialog));
}

/// Shows a message box and answers what came of it: RefuseField while a field is left, RefuseAcceptance when
/// the dialog is accepted.
using Refuse = Refusal (*)(std::string_view control, std::string_view title, std::string_view text);

bool IsPoleText(std::string_view latitude) { return SplitAngle(Latitude, latitude).degrees == 90.0; }

Refusal CheckMercatorPole(Refuse refuse, std::string_view control, std::string_view text) {
    if (Design.ProjNum != ProjMercator || !IsPoleText(text)) {
        return {};
    }
    const bool south = SplitAngle(Latitude, text).letter == 'S';
    return refuse(control, "Error: Mercator Projection",
                  std::string("You have included the ") +
                      (south ? "South Pole (90\u00B0S)" : "North Pole (90\u00B0N)") +
                      " in your grid.  The poles cannot be plotted on a Mercator projection because they "
                      "project to infinity.");
}

/// The figures of a range as one number, DDDMMSS.
double RangeNumber(std::string_view text) { return ValueOf(BareDigits(text)); }

constexpr double NinetyDegrees = 900000.0;

/// What the projection can show of the globe; empty when the range is within it.
std::string_view RangeBeyondProjection(std::string_view text) {
    if (Design.ProjNum == ProjGnomonic && RangeNumber(text) >= NinetyDegrees) {
        return "RANGE OF MAP IN DEGREES must be < 90\u00B0.";
    }
    if ((Design.ProjNum == ProjStereographic || Design.ProjNum == ProjOrthographic) &&
        RangeNumber(text) > NinetyDegrees) {
        return "RANGE OF MAP IN DEGREES must be <= 90\u00B0.";
    }
    return "";
}

std::string_view RangeFault(std::string_view text) {
    const AngleGroups range = SplitAngle(Arc, text);
    if (range.seconds > 59.0) {
        return "Seconds must be <= 59.";
    }
    if (range.minutes > 59.0) {
        return "Minutes must be <= 59.";
    }
    if (range.degrees > 180.0) {
        return "Degrees must be <= 180\u00B0.";
    }
    if (RangeNumber(text) == 0.0) {
        return "RANGE OF MAP IN DEGREES must be > 0\u00B0.";
    }
    const std::string_view beyond = RangeBeyondProjection(text);
    if (!beyond.empty()) {
        return beyond;
    }
    if (range.degrees == 180.0 && (range.minutes > 0.0 || range.seconds > 0.0)) {
        return "RANGE OF MAP IN DEGREES must be <= 180\u00B0.";
    }
    return "";
}

Refusal CheckRange(std::string_view text) {
    const std::string_view fault = RangeFault(text);
    return fault.empty() ? Refusal{} : RefuseField("AzRangeDist", "Error: Range of map in degrees", fault);
}

Refusal CheckDistance(std::string_view text) {
    return ValueOf(BareDigits(text)) < 1.0 ? RefuseField("VpDistanceKM", "Error: Distance above surface",
                                                         "DISTANCE ABOVE SURFACE IN KILOMETERS must be >= 1.")
                                           : Refusal{};
}

double LatitudeOf(std::string_view text) { return DegreesOf(LatitudeSeconds(text)); }

constexpr std::string_view NorthParallel = "LatNorthStdPar";
constexpr std::string_view SouthParallel = "LatSouthStdPar";

/// A standard parallel's place on the map and on the globe.
Refusal CheckParallelPlace(Refuse refuse, std::string_view control, std::string_view text) {
    const bool north = control == NorthParallel;
    const std::string title = RuleOf("LatLonStdPar", control).title;
    const double latitude = LatitudeOf(text);
    const bool inside = north ? latitude < Design.LatNorth : latitude > Design.LatSouth;
    if (!HasOneStandardParallel() && !inside) {
        return refuse(control, title,
                      north ? "The latitude of the NORTHERNMOST STANDARD PARALLEL must be less than that of "
                              "the NORTHERNMOST LATITUDE of the grid."
                            : "The latitude of the SOUTHERNMOST STANDARD PARALLEL must be greater than that "
                              "of the SOUTHERNMOST LATITUDE of the grid.");
    }
    if ((HasOneStandardParallel() || Design.ProjNum == ProjConformalConic) && IsPoleText(text)) {
        return refuse(control, title,
                      std::string("The latitude of the ") + (north ? "NORTHERNMOST" : "SOUTHERNMOST") +
                          " STANDARD PARALLEL cannot be 90\u00B0 for the " + Design.ProjName +
                          " projection.");
    }
    return {};
}

/// The one parallel is measured from the equator to the north.
Refusal CheckOneParallelIsNorth(std::string_view north) {
    AngleField rule = RuleOf("LatLonStdPar", NorthParallel);
    rule.kind = AngleFieldKind::NorthLatitude;
    const bool refused = HasOneStandardParallel() && SplitAngle(rule.kind, north).letter != 'N';
    return refused ? RefuseAcceptance(NorthParallel, rule.title, AngleFieldFault(rule, north)) : Refusal{};
}

/// How the parallels of a cone lie to each other, and on the conformal conic to a pole on the map.
Refusal CheckParallelsOfCone(double north, double south) {
    const bool conformal = Design.ProjNum == ProjConformalConic;
    const std::string_view title =
        conformal ? "Error: Conformal Conic standard parallels" : "Error: Standard parallels";
    if (north == south || north == -south) {
        return RefuseAcceptance(
            NorthParallel, title,
            "The latitudes of the NORTHERN- and SOUTHERNMOST STANDARD PARALLELS  cannot be "
            "equal, and they cannot be symmetric about the equator.");
    }
    if (!conformal) {
        return {};
    }
    if (Design.LatNorth == 90.0 && std::fabs(north) <= std::fabs(south)) {
        return RefuseAcceptance(NorthParallel, title,
                                "For maps which show the North Pole (90\u00B0N), the NORTHERNMOST STANDARD "
                                "PARALLEL must be further from the equator than the SOUTHERNMOST STANDARD "
                                "PARALLEL.");
    }
    if (Design.LatSouth == -90.0 && std::fabs(south) <= std::fabs(north)) {
        return RefuseAcceptance(SouthParallel, title,
                                "For maps which show the South Pole (90\u00B0S), the SOUTHERNMOST STANDARD "
                                "PARALLEL must be further from the equator than the NORTHERNMOST STANDARD "
                                "PARALLEL.");
    }
    return {};
}

} // namespace

bool HasOneStandardParallel() { return PropertiesOf(Design.ProjNum).standardParallels == 1; }

bool HasStandardParallels() { return PropertiesOf(Design.ProjNum).standardParallels > 0; }

std::span<const BoundaryField> BoundaryFields() { return Table(); }

Refusal CheckBoundaryField(std::string_view dialog, std::string_view control, std::string_view text) {
    if (dialog == "LatLonBoundsAz" && control == "AzRangeDist") {
        return CheckRange(text);
    }
    if (dialog == "LatLonBoundsVp" && control == "VpDistanceKM") {
        return CheckDistance(text);
    }
    AngleField rule = RuleOf(dialog, control);
    const bool standardParallel = dialog == "LatLonStdPar";
    if (standardParallel && control == NorthParallel && HasOneStandardParallel()) {
        rule.kind = AngleFieldKind::NorthLatitude;
    }
    Refusal refusal = CheckAngleField(control, rule, text);
    if (!IsRefused(refusal) && dialog == "LatLonBounds" && rule.kind == Latitude) {
        refusal = CheckMercatorPole(RefuseField, control, text);
    }
    if (!IsRefused(refusal) && standardParallel) {
        refusal = CheckParallelPlace(RefuseField, control, text);
    }
    return refusal;
}

Refusal AcceptLatLonBounds(std::string_view latN, std::string_view latS) {
    Refusal refusal = CheckMercatorPole(RefuseAcceptance, "LatN", latN);
    if (!IsRefused(refusal)) {
        refusal = CheckMercatorPole(RefuseAcceptance, "LatS", latS);
    }
    if (!IsRefused(refusal) && Design.ProjNum == ProjConformalConic && IsPoleText(latN) && IsPoleText(latS)) {
        refusal = RefuseAcceptance("LatN", "Error: Conformal Conic Projection",
                                   "The Lambert Conformal Conic map projection cannot display both poles.");
    }
    return refusal;
}

Refusal AcceptLatLonBoundsAz(std::string_view azRangeDist) {
    const std::string_view beyond = RangeBeyondProjection(azRangeDist);
    return beyond.empty() ? Refusal{} : RefuseAcceptance("AzRangeDist", "Error: Range of map", beyond);
}

Refusal AcceptLatLonStdPar(std::string_view north, std::string_view south) {
    Refusal refusal = CheckOneParallelIsNorth(north);
    if (!IsRefused(refusal)) {
        refusal = CheckParallelPlace(RefuseAcceptance, NorthParallel, north);
    }
    if (!IsRefused(refusal)) {
        refusal = CheckParallelPlace(RefuseAcceptance, SouthParallel, south);
    }
    if (!IsRefused(refusal) && !HasOneStandardParallel() && !(LatitudeOf(north) > LatitudeOf(south))) {
        refusal = RefuseAcceptance(NorthParallel, "Error: Standard parallels",
                                   "The latitude of the NORTHERNMOST STANDARD PARALLEL must be greater than "
                                   "that of the SOUTHERNMOST STANDARD PARALLEL.");
    }
    if (!IsRefused(refusal) && !HasOneStandardParallel()) {
        refusal = CheckParallelsOfCone(LatitudeOf(north), LatitudeOf(south));
    }
    return refusal;
}

} // namespace quelmont
