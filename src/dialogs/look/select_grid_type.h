#pragma once

#include "dialogs/design_dialog.h"

namespace quelmont {

/// What the grid shows, its width and colour.
///
/// "Grid Color" opens the colour picker, whose choice counts at once. OK stores the rest.
/// Writes  GridTypeCode, GridTypeText, GridOutputCount, GridLineWidth (twips), DialogCancelled.
class SelectGridType : public DesignDialog {
public:
    SelectGridType();

private:
    void GridColor_Click();
    void OK_Click();
};

} // namespace quelmont
