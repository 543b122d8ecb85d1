#pragma once

#include "core/map_design.h"
#include "dialogs/design_dialog.h"

#include <cstdint>

namespace quelmont {

/// What the grid shows, its width and colour.
///
/// "Grid Color" opens the colour picker, whose choice is shown at once; Cancel gives the old colour
/// back. OK stores the rest.
/// Writes  GridTypeCode, GridTypeText, GridOutputCount, GridLineWidth (twips), GridColor,
///         GridColorIndex, DialogCancelled.
class SelectGridType : public DesignDialog {
public:
    SelectGridType();

private:
    void GridColor_Click();
    void OK_Click();
    void Cancel_Click() override;

    ColorValue colorBefore = Design.GridColor;
    std::int16_t colorIndexBefore = Design.GridColorIndex;
};

} // namespace quelmont
