#include "reports/dist_err_select.h"

#include "core/error_box.h"
#include "core/map_design.h"
#include "core/number_text.h"
#include "reports/report_numbers.h"
#include "reports/reports_state.h"
#include "reports/scale_error.h"

#include <algorithm>
#include <array>
#include <string_view>

namespace quelmont {

namespace {

/// What a projection has of its own: its formulas, and the notes beneath the table.
struct ScaleCase {
    std::int16_t ProjNum;
    ScaleError (*scale)();
    std::array<std::string_view, 2> notes;
};

constexpr std::string_view CentreNote = "The scale is only true at the central point of the projection.";

constexpr std::array Cases = std::to_array<ScaleCase>({
    {ProjMercator,
     MercatorScale,
     {"Latitude and longitude scales are equal at any point on the projection.",
      "The scale is symmetrical about the equator."}},
    {ProjEquirectangular,
     EquirectangularScale,
     {"The scale is true along all meridians and along the two standard parallels;",
      "and is symmetrical about the equator."}},
    {ProjCylindricalEqualArea,
     CylindricalEqualAreaScale,
     {"The scale is only true along the two standard parallels; and is symmetrical", "about the equator."}},
    {ProjHammer,
     HammerScale,
     {"The scale is only true at the intersection of the equator and the", "central meridian."}},
    {ProjMollweide,
     MollweideScale,
     {"The scale is true along latitudes 40\u00B044' North and South.  The scale is constant",
      "along parallels, and symmetrical about the equator and the central meridian."}},
    {ProjRobinson, RobinsonScale, {"The scale is true along latitudes 37\u00B050' North and South.", ""}},
    {ProjUtm,
     UtmScale,
     {"Northing and easting scales are equal at any point on the projection.",
      "The scale is symmetrical about the equator and the central meridian."}},
    {ProjEquidistantConic,
     EquidistantConicScale,
     {"The scale is true along all meridians and along the two standard parallels.", ""}},
    {ProjConformalConic,
     ConformalConicScale,
     {"The scale is only true along the two standard parallels.  The scale is equal",
      "in all directions at any point on the projection."}},
    {ProjAlbers,
     AlbersScale,
     {"The scale is true along standard parallels.  At any point, the scale along a",
      "meridian is the reciprocal of the scale on the parallel through that point."}},
    {ProjGnomonic, AzimuthalScale, {CentreNote, ""}},
    {ProjStereographic,
     AzimuthalScale,
     {"The scale is constant along any circle centered on the central point.", ""}},
    {ProjOrthographic, AzimuthalScale, {CentreNote, ""}},
    {ProjVerticalPerspective, AzimuthalScale, {CentreNote, ""}},
    {ProjAzimuthalEquidistant, AzimuthalScale, {CentreNote, ""}},
    {ProjAzimuthalEqualArea, AzimuthalScale, {CentreNote, ""}},
});

/// The samples of these run in three columns of four rows.
bool HasThreeColumns() {
    return Design.ProjNum == ProjHammer || Design.ProjNum == ProjRobinson || Design.ProjNum == ProjMollweide;
}

/// Longitude of one of the three columns: eastern boundary, half way, central meridian.
std::string ColumnLongitude(int index) {
    if (index <= 4) {
        return Design.LonEastText;
    }
    if (index > 8) {
        return Design.LonCentralText;
    }
    const double half = (Design.LonSpan - Design.LonCentral) / 2.0;
    const double lon = half + Design.LonMiddle;
    return AngleText(lon > 180.0 ? Design.LonEast - half : lon, "LON");
}

void WritePlace(std::string& lat, std::string& lon) {
    if (Design.ProjNum == ProjUtm) {
        lat = FormatNumber((Design.LatNorth + Design.LatSouth) / 2.0, "00,000,000");
        lon = FormatNumber(ReportsNow.ScaleErrLon + Design.UtmFalseEasting, "0,000,000");
        return;
    }
    lat = AngleText(ReportsNow.ScaleErrLat, "LAT");
    lon = HasThreeColumns() ? ColumnLongitude(ReportsNow.ScaleErrIndex)
                            : AngleText(ReportsNow.ScaleErrLon, "LON");
}

} // namespace

bool DistErrSelect() {
    return Guarded("DistErrSelect", [] {
        const auto* const found = std::find_if(Cases.begin(), Cases.end(), [](const ScaleCase& entry) {
            return entry.ProjNum == Design.ProjNum;
        });
        if (found == Cases.end()) {
            return;
        }
        ReportsState& now = ReportsNow;
        if (now.ScaleErrIndex < 1 || now.ScaleErrIndex > static_cast<int>(ScaleErrRowsMost)) {
            throw RunTimeError(ErrorSubscript);
        }
        now.ScaleErrNotes = {"", std::string(found->notes[0]), std::string(found->notes[1])};
        ScaleError error = found->scale();
        const auto row = static_cast<std::size_t>(now.ScaleErrIndex);
        now.ScaleErrMeridian[row] = std::move(error.meridian);
        now.ScaleErrParallel[row] = std::move(error.parallel);
        now.ScaleErrArea[row] = std::move(error.area);
        WritePlace(now.ScaleErrLatText[row], now.ScaleErrLonText[row]);
    });
}

} // namespace quelmont
