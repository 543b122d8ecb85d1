#pragma once

#include "dialogs/design_dialog.h"

#include <array>
#include <cstdint>
#include <string>
#include <string_view>

namespace quelmont {

/// What the dialogs of a page have in common: how its paper lies, and its lengths in inches or centimetres.
///
/// Writes  PrinterOrientation; PrintUnitTwips, and all lengths of pages in it. Cancel gives these back,
///         and the place of the printed map and the margins of reports.
class PageDialog : public DesignDialog {
protected:
    PageDialog(std::string className, std::string caption);

    /// The options Portrait, Landscape, Inches, Centimeters in two frames of those names.
    void AddPageOptions(std::string_view orientationFrame, std::string_view unitsFrame);
    /// A field for a length of up to five digits.
    void AddLength(std::string_view name, std::string_view caption);
    /// Writes a length into such a field, and gives the text.
    const std::string& ShowLength(std::string_view name, float length);

    static bool InCentimetres();

    virtual void TakeOrientation(std::int16_t orientation);
    virtual void TakeUnit(std::int32_t twips);
    void Cancel_Click() override;

private:
    struct Before {
        std::int32_t unit;
        std::array<float, 8> lengths;
        std::int16_t orientation;
        bool centerHorizontal, centerVertical;
    };
    static Before BeforeNow();

    Before before = BeforeNow();
};

} // namespace quelmont
