#pragma once

#include "core/map_design.h"
#include "dialogs/design_fields.h"

#include <cstdint>
#include <functional>
#include <span>
#include <string_view>

namespace quelmont {

/// What the two dialogs of circles have in common: the button that takes a place from the map, the line's
/// width and colour, whether the circle is shown, and the buttons.
///
/// The place goes into the latitude and the longitude that had the focus last, of the first place at first,
/// and the focus to the latitude. The button is disabled where there is no picture of a map.
///
/// A colour that is chosen is the design's at once; Cancel gives the old one back.
class CircleForm : public DesignFields {
protected:
    /// Where a dialog's line has its controls and its fields of the design.
    struct Line {
        const char* width; ///< control
        const char* widthCaption;
        const char* colorSpin; ///< control
        const char* colorCaption;
        const char* colorPicture; ///< control
        const char* cancelText;
        std::int16_t purpose; ///< ColorPurpose of the picker
        float MapDesign::*lineWidth;
        ColorValue MapDesign::*color;
        std::int16_t MapDesign::*colorIndex;
        bool MapDesign::*defined;
    };

    CircleForm(const char* className, const char* caption, const Line& line);

    /// The fields of a place, and what it is, in words.
    struct PlaceFields {
        std::string_view lat, lon; ///< controls
        const char* what;
    };
    /// The button "Pick on Map", for one of several places, which outlive the dialog.
    void AddPick(std::span<const PlaceFields> places);
    void AddWidth();
    void AddColor();
    /// The check "Show on map" and the buttons.
    void AddShowAndButtons(std::function<void()> ok);
    /// Stores width and check.
    void StoreLine() const;

    void Cancel_Click() override;

private:
    void PickOnMap_Click();
    void ColorSpin_Change();
    void ColorPicture_Click();
    void ShowColor();

    const Line& line;
    const PlaceFields* place = nullptr; ///< that had the focus last
    ColorValue colorBefore;
    std::int16_t colorIndexBefore;
};

} // namespace quelmont
