#include "dialogs/bounds/lat_lon_bounds_az.h"

#include "core/angle_field.h"
#include "core/distance_units.h"
#include "core/number_text.h"
#include "dialogs/bounds/accept_bounds.h"
#include "dialogs/bounds/boundary_checks.h"
#include "dialogs/bounds/boundary_defaults.h"

namespace quelmont {

namespace {

constexpr double StatuteMilesPerKilometre = 0.621371192;
constexpr std::string_view HeightMask = "%%,%%%,%%%";
constexpr std::string_view HeightPicture = "00,000,000";

} // namespace

AzimuthalBounds::AzimuthalBounds(std::string_view className)
    : BoundsForm(std::string(className), "Azimuthal Projection Boundaries") {
    Design.BoundsChanged = false;
    Design.DialogCancelled = true;
    ProposeBounds();
}

void AzimuthalBounds::AddCentreAndGrid() {
    AddField("LatCentral", "Central l&atitude of map", LatitudeMask, Design.GridText[GridTextCentralLat]);
    AddField("LonCentral", "Central lo&ngitude of map", LongitudeMask, Design.GridText[GridTextCentralLon]);
    AddField("LatGr", "Degrees of &latitude between grid marks", ArcMask,
             Design.GridText[GridTextLatSpacing]);
    AddField("LonGr", "Degrees of lon&gitude between grid marks", ArcMask,
             Design.GridText[GridTextLonSpacing]);
    for (const char* const field : {"LatCentral", "LonCentral", "LatGr", "LonGr"}) {
        CheckWhenLeft(field);
    }
}

void AzimuthalBounds::Accept() {
    StoreFields();
    if (!BoundsCalculated()) {
        return;
    }
    ForgetStandardParallels();
    FinishAcceptance();
    Design.BoundsChanged = true;
    CloseAccepted();
}

LatLonBoundsAz::LatLonBoundsAz() : AzimuthalBounds("LatLonBoundsAz") {
    AddCentreAndGrid();
    AddField("AzRangeDist", "&Range of map in degrees", ArcMask, Design.GridText[GridTextRange]);
    CheckWhenLeft("AzRangeDist");
    AddOkAndCancel([this] { OK_Click(); });
}

void LatLonBoundsAz::OK_Click() {
    if (Allowed(AcceptLatLonBoundsAz(TextOf("AzRangeDist")))) {
        Accept();
    }
}

LatLonBoundsVp::LatLonBoundsVp() : AzimuthalBounds("LatLonBoundsVp") {
    AddCentreAndGrid();
    AddField("VpDistanceKM", "&Distance above surface in kilometers", HeightMask,
             Design.GridText[GridTextHeight], Stores::BareDigits);
    CheckWhenLeft("VpDistanceKM");
    On("VpDistanceKM", ControlEvent::Change, [this] { VpDistanceKM_Change(); });
    Add({.name = "VpDistanceSM", .kind = ControlKind::Label, .text = "", .caption = "In statute miles"});
    Add({.name = "VpDistanceNM", .kind = ControlKind::Label, .text = "", .caption = "In nautical miles"});
    VpDistanceKM_Change();
    AddOkAndCancel([this] { Accept(); });
}

void LatLonBoundsVp::VpDistanceKM_Change() {
    const double km = ValueOf(BareDigits(TextOf("VpDistanceKM")));
    Edit("VpDistanceNM").text = FormatNumber(km / KilometresPerNauticalMile, HeightPicture);
    Edit("VpDistanceSM").text = FormatNumber(km * StatuteMilesPerKilometre, HeightPicture);
}

} // namespace quelmont
