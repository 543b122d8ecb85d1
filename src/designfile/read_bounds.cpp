#include "designfile/read_bounds.h"

#include "core/angle_text.h"
#include "core/checked_math.h"
#include "core/degrees.h"
#include "core/map_design.h"
#include "core/number_text.h"
#include "core/run_time_error.h"
#include "core/unseen_boxes.h"
#include "designfile/design_records.h"
#include "designfile/line_text.h"
#include "graticule/calculate_bounds.h"
#include "graticule/lobes.h"
#include "projection/param_select.h"
#include "projection/projection_table.h"
#include "projection/utm.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace quelmont {

namespace {

void Require(bool condition) {
    if (!condition) {
        throw RunTimeError(ErrorInvalidCall);
    }
}

bool Agree(double a, double b) {
    constexpr double tolerance = 1e-9;
    return std::fabs(a - b) <= tolerance * std::max(1.0, std::fabs(b));
}

double Distance(std::int32_t from, std::int32_t to) { return static_cast<double>(to) - from; }

/// Seconds and degrees, or metres both ways on UTM.
bool IsSame(double number, std::int32_t whole) {
    return Agree(number, Design.ProjNum == ProjUtm ? static_cast<double>(whole) : DegreesOf(whole));
}

bool IsCount(std::int32_t count, double distance, std::int32_t spacing) {
    return spacing > 0 && count >= 1 && std::fabs(distance / spacing - count) <= 0.5;
}

void TestLatitudes() {
    Require(Design.LatNorthSec > Design.LatSouthSec);
    Require(IsSame(Design.LatNorth, Design.LatNorthSec) && IsSame(Design.LatSouth, Design.LatSouthSec) &&
            IsSame(Design.LatGrid, Design.LatGridSec));
    Require(
        IsCount(Design.LatGridCount, Distance(Design.LatSouthSec, Design.LatNorthSec), Design.LatGridSec));
    if (Design.ProjNum != ProjUtm) {
        Require(Design.LatNorth <= 90.0 && Design.LatSouth >= -90.0);
    }
}

void TestLongitudes() {
    Require(Design.LonSpanSec > Design.LonZeroSec);
    Require(IsSame(Design.LonSpan, Design.LonSpanSec) && IsSame(Design.LonZero, Design.LonZeroSec) &&
            IsSame(Design.LonGrid, Design.LonGridSec) && IsSame(Design.LonEast, Design.LonEastSec) &&
            IsSame(Design.LonWest, Design.LonWestSec));
    Require(IsCount(Design.LonGridCount, Distance(Design.LonZeroSec, Design.LonSpanSec), Design.LonGridSec));
    if (Design.ProjNum == ProjUtm) {
        Require(Design.LonZeroSec == Design.LonWestSec && Design.LonSpanSec == Design.LonEastSec);
        return;
    }
    Require(std::fabs(Design.LonEast) <= 180.0 && std::fabs(Design.LonWest) <= 180.0);
    const double east = Distance(Design.LonWestSec, Design.LonEastSec);
    Require(Design.LonZeroSec == 0 && Design.LonSpanSec == (east > 0.0 ? east : east + SecPerCircle));
    Require(Agree(Design.LonCentral, (Design.LonSpan + Design.LonZero) / 2.0));
}

void TestExtent() {
    const double width = Design.MapXMax - Design.MapXMin;
    const double height = Design.MapYMax - Design.MapYMin;
    Require(std::isfinite(width) && std::isfinite(height) && width > 0.0 && height > 0.0);
    Require(std::isfinite(height / width) && height / width > 0.0);
}

void TestProjection() {
    const ProjectionEntry& projection = PropertiesOf(Design.ProjNum);
    if (projection.family == ProjectionFamily::Azimuthal) {
        Require(Design.RangeSec > 0 && Design.LonSpanSec == SecPerCircle);
        Require(Design.ProjNum != ProjVerticalPerspective || Design.VpP > 1.0);
    }
    Require(projection.standardParallels == 0 ||
            (std::fabs(Design.StdParNorth) <= 90.0 && std::fabs(Design.StdParSouth) <= 90.0));
    Require(projection.family != ProjectionFamily::Conic || Design.ConeConstant != 0.0);
    Require(projection.family != ProjectionFamily::Cylindrical || projection.standardParallels == 0 ||
            Design.CosStdPar > 0.0);
}

/// From the height of the view point and not from the seconds of the range, which are rounded: the
/// circle at which the grid is cut would move.
double PerspectiveCosRange() {
    const double c = Divide(1.0, Design.VpP);
    const double a = std::atan(Divide(SquareRoot(1.0 - c * c), c)) / DegToRad;
    return std::cos(a * DegToRad);
}

void DeriveRange() {
    if (Design.ProjNum == ProjVerticalPerspective) {
        // The small term keeps points just at the horizon visible.
        Design.HorizonCos[ProjVerticalPerspective - ProjGnomonic] = Divide(1.0, Design.VpP + 1e-10);
        Design.CosRange = PerspectiveCosRange();
    } else {
        Design.CosRange = std::cos(Design.RangeSec * DegToRad / SecPerDegree);
    }
}

double LatitudeOf(const std::string& text) { return DegreesOf(LatitudeSeconds(text)); }
double LongitudeOf(const std::string& text) { return DegreesOf(LongitudeSeconds(text)); }

void DeriveLobes() {
    std::transform(Design.LobeLonText.begin(), Design.LobeLonText.end(), Design.LobeLonDeg.begin(),
                   LongitudeOf);
}

/// The numbers of the design, computed of its texts as an acceptance does. No message box is shown.
void ComputeAgain() {
    const UnseenBoxes unseen;
    if (Design.ProjNum == ProjUtm) {
        CalcUtmZone();
    }
    CalculateBounds();
    Design.StdParNorth = LatitudeOf(Design.StdParText[StdParTextNorth]);
    Design.StdParSouth = LatitudeOf(Design.StdParText[StdParTextSouth]);
    if (Design.ProjNum == ProjInterruptedMollweide) {
        LonInterruptOffset();
    }
    ParamSelect();
    Design.GcStartLat = LatitudeOf(Design.GcText[0]);
    Design.GcStartLon = LongitudeOf(Design.GcText[1]);
    Design.GcEndLat = LatitudeOf(Design.GcText[2]);
    Design.GcEndLon = LongitudeOf(Design.GcText[3]);
    Design.ScCenterLat = LatitudeOf(Design.ScText[0]);
    Design.ScCenterLon = LongitudeOf(Design.ScText[1]);
    Design.ScRadiusDeg = DegreesOf(ArcSeconds(Design.ScText[2]));
}

/// The records whose numbers follow from texts of the design.
constexpr std::array ComputedRecords = {19, 29, 33, 34, 35, 37, 38, 43, 44, 47, 50, 52};

void TakeDigits(const FieldList& fields, const FieldList& again) {
    for (std::size_t i = 0; i < fields.size(); ++i) {
        double* const* const number = std::get_if<double*>(&fields[i].place);
        if (number != nullptr) {
            const double computed = *std::get<double*>(again[i].place);
            if (std::isfinite(computed) && SpacedText(**number) == SpacedText(computed)) {
                **number = computed;
            }
        }
    }
}

} // namespace

void TestReadBounds() {
    TestLatitudes();
    TestLongitudes();
    TestExtent();
    TestProjection();
}

void DeriveReadBounds() {
    Design.LatCentralRad = Design.LatCentral * DegToRad;
    Design.CosLatCentral = std::cos(Design.LatCentralRad);
    Design.SinLatCentral = std::sin(Design.LatCentralRad);
    Design.VpDistanceKm = ValueOf(Design.GridText[GridTextHeight]);
    DeriveRange();
    DeriveLobes();
    if (Design.ProjNum == ProjUtm) {
        Design.LatCentralSec = LatitudeSeconds(Design.UtmText[UtmTextOriginLat]);
        Design.LonCentralSec = LongitudeSeconds(Design.UtmText[UtmTextCentralLon]);
    } else {
        Design.LonWestText = CompactLongitude(Design.GridText[GridTextWest]);
        Design.LonEastText = CompactLongitude(Design.GridText[GridTextEast]);
        Design.LatCentralSec = LatitudeSeconds(Design.GridText[GridTextCentralLat]);
        Design.LonCentralSec = LongitudeSeconds(Design.GridText[GridTextCentralLon]);
    }
}

void RestoreLastDigits() {
    const MapDesign read = Design;
    MapDesign again;
    try {
        ComputeAgain();
        again = Design;
    } catch (const RunTimeError&) {
        again = read; // texts without numbers
    }
    Design = read;
    DesignFile file{Design};
    DesignFile computed{again};
    for (const Record& record : DesignRecords()) {
        if (std::find(ComputedRecords.begin(), ComputedRecords.end(), record.number) !=
            ComputedRecords.end()) {
            TakeDigits(record.fields(file, 0), record.fields(computed, 0));
        }
    }
    DeriveReadBounds();
}

} // namespace quelmont
