#include "dialogs/circles/accept_circles.h"

#include "circles/great_circle.h"
#include "circles/small_circle.h"
#include "core/angle_field.h"
#include "core/angle_text.h"
#include "core/degrees.h"
#include "platform/machine.h"

namespace quelmont {

namespace {

/// Indices of GreatCircleTexts.
enum GreatCircleText : std::size_t { StartLat, StartLon, EndLat, EndLon };

constexpr const char* LatitudeLimit = "Latitude cannot be > 90  00  00";
constexpr const char* LongitudeLimit = "Longitude cannot be > 180  00  00";

AngleField GreatCircleRule(std::size_t i) {
    switch (i) {
    case StartLat:
        return {AngleFieldKind::Latitude, "Error: Starting latitude", 90, LatitudeLimit};
    case StartLon:
        return {AngleFieldKind::Longitude, "Error: Starting longitude", 180, LongitudeLimit};
    case EndLat:
        return {AngleFieldKind::Latitude, "Error: Ending latitude", 90, LatitudeLimit};
    default:
        return {AngleFieldKind::Longitude, "Error: Ending longitude", 180, LongitudeLimit};
    }
}

AngleField SmallCircleRule(std::size_t i) {
    switch (i) {
    case 0:
        return {AngleFieldKind::Latitude, "Error: Latitude of circle center", 90, LatitudeLimit};
    case 1:
        return {AngleFieldKind::Longitude, "Error: Latitude of circle center", 180, LongitudeLimit};
    default:
        return {AngleFieldKind::Arc, "Error: Radius of circle in degrees", 180,
                "Circle radius cannot be > 180  00  00"};
    }
}

// ---- Poles.

constexpr const char* PoleTitle = "Error: Starting, ending longitudes must be equal";
constexpr const char* PoleText = "When one or both of the endpoints is a pole (90°N/S),\n"
                                 "the shortest distance on the globe is along a meridian.\n\n"
                                 "In other words, the starting and ending longitudes\n"
                                 "must be identical, when one of the endpoints is a pole.\n\n"
                                 "The LONGITUDES you have entered are NOT EQUAL.\n\n";

bool IsPole(const std::string& lat) { return BareDigits(lat).substr(0, 6) == "900000"; }

bool SameLetter(const GreatCircleTexts& texts) { return texts[StartLon].back() == texts[EndLon].back(); }

bool SameDigits(const GreatCircleTexts& texts) {
    return BareDigits(texts[StartLon]) == BareDigits(texts[EndLon]);
}

/// Longitudes that are the same in the east and in the west.
bool HasTwoNames(const std::string& lon) {
    const std::string digits = BareDigits(lon);
    return digits == "0000000" || digits == "1800000";
}

} // namespace

Refusal CheckGreatCircleField(std::size_t i, const GreatCircleTexts& texts) {
    const std::string_view control = GreatCircleFields[i];
    Refusal refusal = CheckAngleField(control, GreatCircleRule(i), texts[i]);
    const bool latitude = i == StartLat || i == EndLat;
    if (IsRefused(refusal) || !latitude || !IsPole(texts[i]) || (SameDigits(texts) && SameLetter(texts))) {
        return refusal;
    }
    Machine().boxes->AskAbout(control, PoleTitle,
                              std::string(PoleText) +
                                  "Press OK, change the longitudes, and then enter\nthe correct " +
                                  (i == StartLat ? "starting" : "ending") + " latitude.",
                              BoxButtons::Ok, BoxIcon::Exclamation);
    return {std::string(control), {std::string(control)}, false};
}

Refusal CheckGreatCircle(const GreatCircleTexts& texts) {
    const bool sameMeridian = SameDigits(texts) && (SameLetter(texts) || HasTwoNames(texts[StartLon]));
    if (sameMeridian || !(IsPole(texts[StartLat]) || IsPole(texts[EndLat]))) {
        return {};
    }
    Refusal refusal =
        RefuseField(GreatCircleFields[StartLon], PoleTitle,
                    std::string(PoleText) + "Press Retry, to correct the longitudes and/or latitudes.\n\n"
                                            "Press Cancel, to restore the latitudes and longitudes to\n"
                                            "their initial values.");
    refusal.Restored.assign(GreatCircleFields.begin(), GreatCircleFields.end());
    return refusal;
}

Refusal CheckSmallCircleField(std::size_t i, const SmallCircleTexts& texts) {
    return CheckAngleField(SmallCircleFields[i], SmallCircleRule(i), texts[i]);
}

void StoreGreatCircle(const GreatCircleTexts& texts) {
    Design.GcText = texts;
    constexpr const char* east = "180    00    00    E";
    constexpr const char* west = "180    00    00    W";
    const std::string& start = Design.GcText[StartLon];
    std::string& end = Design.GcText[EndLon];
    if ((end == east && start == west) || (end == west && start == east)) {
        end = start;
    }
    Design.GcStartLat = DegreesOf(LatitudeSeconds(Design.GcText[StartLat]));
    Design.GcStartLon = DegreesOf(LongitudeSeconds(Design.GcText[StartLon]));
    Design.GcEndLat = DegreesOf(LatitudeSeconds(Design.GcText[EndLat]));
    Design.GcEndLon = DegreesOf(LongitudeSeconds(Design.GcText[EndLon]));
}

void StoreSmallCircle(const SmallCircleTexts& texts) {
    Design.ScText = texts;
    Design.ScCenterLat = DegreesOf(LatitudeSeconds(texts[0]));
    Design.ScCenterLon = DegreesOf(LongitudeSeconds(texts[1]));
    Design.ScRadiusDeg = DegreesOf(ArcSeconds(texts[2]));
}

bool AcceptGreatCircle(const GreatCircleTexts& texts) {
    for (std::size_t i = 0; i < texts.size(); ++i) {
        if (IsRefused(CheckAngleField(GreatCircleFields[i], GreatCircleRule(i), texts[i]))) {
            return false;
        }
    }
    if (IsRefused(CheckGreatCircle(texts))) {
        return false;
    }
    StoreGreatCircle(texts);
    Design.GcDefined = true;
    GcCalc();
    return true;
}

bool AcceptSmallCircle(const SmallCircleTexts& texts) {
    for (std::size_t i = 0; i < texts.size(); ++i) {
        if (IsRefused(CheckSmallCircleField(i, texts))) {
            return false;
        }
    }
    StoreSmallCircle(texts);
    Design.ScDefined = true;
    ScCalc();
    return true;
}

} // namespace quelmont
