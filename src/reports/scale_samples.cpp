#include "reports/scale_samples.h"

#include "core/degrees.h"
#include "core/map_design.h"
#include "projection/projection_table.h"
#include "reports/dist_err_select.h"
#include "reports/reports_state.h"

#include <algorithm>
#include <cmath>
#include <vector>

namespace quelmont {

namespace {

/// So near to its end, in degrees, a run of samples is there.
constexpr double EndTolerance = 6e-05;
/// Steps of a range whose grid has too many.
constexpr double Tenths = 10.0;
constexpr std::int32_t MostSpacings = 13;

/// start, start + step..., to the end, which the last one is when a step comes there.
std::vector<double> Steps(double start, double end, double step) {
    std::vector<double> values;
    for (int i = 0; values.size() < ScaleErrRowsMost; ++i) {
        const double value = start + i * step;
        if (std::fabs(value - end) <= EndTolerance) {
            values.push_back(end);
            break;
        }
        if (!((end - value) * step > 0.0)) {
            break;
        }
        values.push_back(value);
    }
    return values;
}

/// The rows of the table as they are filled.
class Table {
public:
    /// False once a sample has failed.
    bool Add(double lat, double lon) {
        ReportsNow.ScaleErrLat = lat;
        ReportsNow.ScaleErrLon = lon;
        ReportsNow.ScaleErrIndex = static_cast<std::int16_t>(rows + 1);
        if (!DistErrSelect()) {
            return false;
        }
        ++rows;
        return true;
    }
    bool AddColumn(const std::vector<double>& latitudes, double lon) {
        return std::all_of(latitudes.begin(), latitudes.end(), [&](double lat) { return Add(lat, lon); });
    }
    std::size_t Rows() const { return rows; }

private:
    std::size_t rows = 0;
};

bool Straddles() { return Design.LatNorth > 0.0 && Design.LatSouth < 0.0; }

/// The boundary farther from the equator.
double FartherBoundary() {
    return std::fabs(Design.LatSouth) > std::fabs(Design.LatNorth) ? Design.LatSouth : Design.LatNorth;
}

std::vector<double> TenSteps() {
    return Steps(Design.LatSouth, Design.LatNorth, (Design.LatNorth - Design.LatSouth) / Tenths);
}

/// Of the cylindrical projections, whose scale is the same on both sides of the equator.
std::vector<double> CylindricalLatitudes() {
    if (Design.LatGridCount <= MostSpacings) {
        return Steps(Design.LatSouth, Design.LatNorth, Design.LatGrid);
    }
    if (!Straddles()) {
        return TenSteps();
    }
    const double farther = FartherBoundary();
    const bool byGrid = std::fabs(farther) / Design.LatGrid <= MostSpacings;
    return Steps(0.0, farther, byGrid ? std::copysign(Design.LatGrid, farther) : farther / Tenths);
}

std::vector<double> ConicLatitudes() {
    return Design.LatGridCount <= MostSpacings ? Steps(Design.LatSouth, Design.LatNorth, Design.LatGrid)
                                               : TenSteps();
}

void SampleOvals(Table& table) {
    const double farther = FartherBoundary();
    const std::vector<double> latitudes =
        Straddles()
            ? Steps(0.0, farther, farther / 3.0)
            : Steps(Design.LatSouth, Design.LatNorth, std::fabs((Design.LatNorth - Design.LatSouth) / 3.0));
    const double half = (Design.LonCentral - Design.LonZero) / 2.0 + Design.LonCentral;
    if (table.AddColumn(latitudes, Design.LonSpan) && table.AddColumn(latitudes, half)) {
        table.AddColumn(latitudes, Design.LonCentral);
    }
}

void SampleZone(Table& table) {
    const double northing = (Design.LatNorth + Design.LatSouth) / 2.0;
    const double lat = Design.LatCentral * DegToRad + (northing - Design.UtmFalseNorthing) / Design.SpheroidA;
    const double step =
        Design.LonGridCount <= MostSpacings ? Design.LonGrid : (Design.LonSpan - Design.LonZero) / Tenths;
    for (const double easting : Steps(Design.LonZero, Design.LonSpan, step)) {
        if (!table.Add(lat, easting - Design.UtmFalseEasting)) {
            return;
        }
    }
}

/// Along the central meridian away from the centre, over the pole if need be.
void SampleDisc(Table& table) {
    const double range = DegreesOf(Design.RangeSec);
    const bool byGrid = (range + EndTolerance) / Design.LatGrid < MostSpacings;
    const double step = byGrid ? Design.LatGrid : range / Tenths;
    const double direction = Design.LatCentral == 90.0 ? -1.0 : 1.0;
    const double opposite = Design.LonMiddle > 0.0 ? Design.LonMiddle - 180.0 : Design.LonMiddle + 180.0;
    for (const double distance : Steps(0.0, range, step)) {
        double lat = Design.LatCentral + direction * distance;
        double lon = Design.LonMiddle;
        if (lat > 90.0 + EndTolerance) {
            lat = 180.0 - lat;
            lon = opposite;
        } else if (lat > 90.0) {
            lat = 90.0;
        }
        if (!table.Add(lat, lon)) {
            return;
        }
    }
}

} // namespace

std::size_t SampleScaleErrors() {
    ReportsNow.ScaleErrNotes = {};
    Table table;
    switch (PropertiesOf(Design.ProjNum).family) {
    case ProjectionFamily::Cylindrical:
        table.AddColumn(CylindricalLatitudes(), Design.LonMiddle);
        break;
    case ProjectionFamily::Conic:
        table.AddColumn(ConicLatitudes(), Design.LonMiddle);
        break;
    case ProjectionFamily::Pseudocylindrical:
        if (Design.ProjNum != ProjInterruptedMollweide) {
            SampleOvals(table);
        }
        break;
    case ProjectionFamily::MetricGrid:
        SampleZone(table);
        break;
    case ProjectionFamily::Azimuthal:
        SampleDisc(table);
        break;
    case ProjectionFamily::None:
        break;
    }
    return table.Rows();
}

} // namespace quelmont
