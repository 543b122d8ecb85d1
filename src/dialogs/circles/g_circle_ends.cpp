#include "dialogs/circles/g_circle_ends.h"

#include "dialogs/look/colors256.h"

#include <algorithm>

namespace quelmont {

namespace {

constexpr std::array<const char*, 4> Captions = {
    "Starting &latitude of great circle", "&Starting longitude of great circle",
    "Ending latit&ude of great circle", "&Ending longitude of great circle"};

} // namespace

const CircleForm::Line& GCircleEnds::OwnLine() {
    static constexpr Line great = {
        "GCircleWidth",      "Great Circle Line &Width", "GcColorSpin",        "&Great Circle Color",
        "GcColorPicture",    "&Cancel Great Circle",     PurposeGreatCircle,   &MapDesign::GcLineWidth,
        &MapDesign::GcColor, &MapDesign::GcColorIndex,   &MapDesign::GcDefined};
    return great;
}

GCircleEnds::GCircleEnds() : CircleForm("GCircleEnds", "Select Endpoints of Great Circle", OwnLine()) {
    for (std::size_t i = 0; i < GreatCircleFields.size(); ++i) {
        AddField(GreatCircleFields[i], Captions[i], i % 2 == 0 ? LatitudeMask : LongitudeMask,
                 Design.GcText[i]);
        CheckWhenLeft(GreatCircleFields[i], [this, i] { return CheckGreatCircleField(i, Texts()); });
    }
    static constexpr std::array Places = {
        PlaceFields{GreatCircleFields[0], GreatCircleFields[1], "the start of the great circle"},
        PlaceFields{GreatCircleFields[2], GreatCircleFields[3], "the end of the great circle"}};
    AddPick(Places);
    AddWidth();
    AddColor();
    AddShowAndButtons([this] { OK_Click(); });
}

GreatCircleTexts GCircleEnds::Texts() const {
    GreatCircleTexts texts;
    std::transform(GreatCircleFields.begin(), GreatCircleFields.end(), texts.begin(),
                   [this](std::string_view field) { return TextOf(field); });
    return texts;
}

void GCircleEnds::OK_Click() {
    if (const Refusal refusal = CheckGreatCircle(Texts()); !Allowed(refusal)) {
        SetFocus(refusal.Field);
        return;
    }
    StoreGreatCircle(Texts());
    StoreLine();
    CloseAccepted();
}

} // namespace quelmont
