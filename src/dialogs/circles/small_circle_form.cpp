#include "dialogs/circles/small_circle_form.h"

#include "circles/small_circle.h"
#include "core/angle_field.h"
#include "core/distance_units.h"
#include "core/number_text.h"
#include "dialogs/look/colors256.h"

#include <algorithm>

namespace quelmont {

namespace {

constexpr double NauticalMilesPerDegree = 60.0;
constexpr const char* RadiusPicture = "00000.0";

} // namespace

const CircleForm::Line& SmallCircleForm::OwnLine() {
    static constexpr Line small = {
        "SCircleWidth",      "Small Circle Line &Width", "ScColorSpin",        "&Small Circle Color",
        "ScColorPicture",    "&Cancel Small Circle",     PurposeSmallCircle,   &MapDesign::ScLineWidth,
        &MapDesign::ScColor, &MapDesign::ScColorIndex,   &MapDesign::ScDefined};
    return small;
}

SmallCircleForm::SmallCircleForm()
    : CircleForm("SmallCircle", "Select Center and Radius of Small Circle", OwnLine()) {
    AddField("LatCenter", "&Latitude of circle center", LatitudeMask, Design.ScText[0]);
    AddField("LonCenter", "Lo&ngitude of circle center", LongitudeMask, Design.ScText[1]);
    static constexpr std::array Places = {
        PlaceFields{SmallCircleFields[0], SmallCircleFields[1], "the center of the small circle"}};
    AddPick(Places);
    Add({.name = "RadiusHeading", .kind = ControlKind::Label, .text = "_____ Radius of Outer Circle _____"});
    AddField("RadiusDeg", "&Degrees", ArcMask, Design.ScText[2]);
    for (std::size_t i = 0; i < SmallCircleFields.size(); ++i) {
        CheckWhenLeft(SmallCircleFields[i], [this, i] { return CheckSmallCircleField(i, Texts()); });
    }
    On("RadiusDeg", ControlEvent::Change, [this] { RadiusDeg_Change(); });
    Add({.name = "RadiusNM", .kind = ControlKind::Label, .text = "", .caption = "Nautical Miles"});
    Add({.name = "RadiusSM", .kind = ControlKind::Label, .text = "", .caption = "Statute Miles"});
    Add({.name = "RadiusKM", .kind = ControlKind::Label, .text = "", .caption = "Kilometers"});
    RadiusDeg_Change();
    AddWidth();
    Add({.name = "SCircleNum",
         .kind = ControlKind::Spin,
         .caption = "N&umber of Concentric Circles",
         .value = std::clamp<int>(Design.ScSymbolCount, 1, MostSmallCircles),
         .minimum = 1,
         .maximum = MostSmallCircles});
    AddColor();
    AddShowAndButtons([this] { OK_Click(); });
}

SmallCircleTexts SmallCircleForm::Texts() const {
    SmallCircleTexts texts;
    std::transform(SmallCircleFields.begin(), SmallCircleFields.end(), texts.begin(),
                   [this](std::string_view field) { return TextOf(field); });
    return texts;
}

void SmallCircleForm::RadiusDeg_Change() {
    const AngleGroups groups = SplitAngle(AngleFieldKind::Arc, TextOf("RadiusDeg"));
    const double nauticalMiles =
        (groups.degrees + groups.minutes / 60.0 + groups.seconds / 3600.0) * NauticalMilesPerDegree;
    Edit("RadiusNM").text = FormatNumber(nauticalMiles, RadiusPicture);
    Edit("RadiusSM").text = FormatNumber(nauticalMiles * StatuteMilesPerNauticalMile, RadiusPicture);
    Edit("RadiusKM").text = FormatNumber(nauticalMiles * KilometresPerNauticalMile, RadiusPicture);
}

void SmallCircleForm::OK_Click() {
    StoreSmallCircle(Texts());
    Design.ScSymbolCount = static_cast<std::int16_t>(At("SCircleNum").value);
    StoreLine();
    ScCalc();
    CloseAccepted();
}

} // namespace quelmont
