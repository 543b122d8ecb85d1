#include "dialogs/bounds/utm_dialogs.h"

#include "dialogs/bounds/accept_bounds.h"

#include "projection/utm.h"

#include <algorithm>

namespace quelmont {

namespace {

constexpr std::string_view SevenDigits = "%,%%%,%%%";
constexpr std::string_view EightDigits = "%%,%%%,%%%";
constexpr std::string_view ScaleMask = "%.%%%%";

/// Line of the spheroid in use; none when the design names one that is not there.
int LineOfSpheroid() {
    const auto* const found = std::find_if(Spheroids.begin(), Spheroids.end(), [](const Spheroid& spheroid) {
        return spheroid.name == Design.SpheroidName;
    });
    return found == Spheroids.end() ? -1 : static_cast<int>(found - Spheroids.begin());
}

} // namespace

UtmSpheroid::UtmSpheroid() : BoundsForm("UtmSpheroid", "Select UTM Spheroid") {
    std::vector<std::string> lines;
    lines.reserve(Spheroids.size());
    for (const Spheroid& spheroid : Spheroids) {
        lines.push_back(" " + std::string(spheroid.name));
    }
    Add({.name = "Ellipsoid",
         .kind = ControlKind::List,
         .caption = "&Spheroid",
         .value = LineOfSpheroid(),
         .items = lines});
    AddOkAndCancel([this] { OK_Click(); });
}

void UtmSpheroid::OK_Click() {
    const DesignBounds beforeOk = Design;
    const Control& list = At("Ellipsoid");
    if (list.value >= 0) {
        Design.SpheroidName = list.items[static_cast<std::size_t>(list.value)].substr(1);
    }
    Close();
    UtmParameters parameters;
    ShowFollowUp(parameters, beforeOk);
}

UtmParameters::UtmParameters() : BoundsForm("UtmParameters", "Select UTM Parameters") {
    Design.DialogCancelled = true;
    AddField("UtmLonCentral", "Central &longitude of UTM zone", LongitudeMask,
             Design.UtmText[UtmTextCentralLon]);
    AddField("UtmLatOrigin", "L&atitude of map origin", LatitudeMask, Design.UtmText[UtmTextOriginLat]);
    AddField("UtmEasting", "False &easting (meters)", SevenDigits, Design.UtmText[UtmTextFalseEasting],
             Stores::BareDigits);
    AddField("UtmNorthing", "False &northing (meters)", EightDigits, Design.UtmText[UtmTextFalseNorthing],
             Stores::BareDigits);
    AddField("UtmScale", "&Scale factor of central longitude", ScaleMask, Design.UtmText[UtmTextScale]);
    CheckWhenLeft("UtmLonCentral");
    CheckWhenLeft("UtmLatOrigin");
    AddOkAndCancel([this] { OK_Click(); });
}

void UtmParameters::OK_Click() {
    const DesignBounds beforeOk = Design;
    StoreFields();
    CalcUtmZone();
    CloseAccepted();
    UtmCoords bounds;
    ShowFollowUp(bounds, beforeOk);
}

UtmCoords::UtmCoords() : BoundsForm("UtmCoords", "UTM Projection Boundaries") {
    Design.BoundsChanged = false;
    Add({.name = "Heading", .kind = ControlKind::Label, .text = "Meters"});
    const auto add = [this](const char* name, const char* caption, std::string_view mask, std::size_t index) {
        AddField(name, caption, mask, Design.UtmText[index], Stores::BareDigits);
    };
    add("UtmLatN", "&Northern boundary of map", EightDigits, 5);
    add("UtmLatS", "&Southern boundary of map", EightDigits, 6);
    add("UtmLatGrid", "&Meters between north/south grid marks", EightDigits, 7);
    add("UtmLonW", "&Western boundary of map", SevenDigits, 8);
    add("UtmLonE", "&Eastern boundary of map", SevenDigits, 9);
    add("UtmLonGrid", "Meters between east/west &grid marks", SevenDigits, 10);
    AddOkAndCancel([this] { OK_Click(); });
}

void UtmCoords::OK_Click() {
    StoreFields();
    if (!BoundsCalculated()) {
        return;
    }
    FinishAcceptance();
    Design.BoundsChanged = true;
    CloseAccepted();
}

} // namespace quelmont
