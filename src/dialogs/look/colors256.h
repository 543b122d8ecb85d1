#pragma once

#include "dialogs/design_dialog.h"

#include <cstdint>

namespace quelmont {

/// Who called the colour picker, in ColorPurpose.
enum ColorPurpose : std::int16_t {
    PurposeGreatCircle = 1,
    PurposeSmallCircle = 2,
    PurposeBackground = 3,
    PurposeGrid = 4,
    PurposeFeature = 5,
    PurposeArea = 6, ///< land or water; the colour of a feature, too, takes it from one dialog to the other
};

/// "Select Color": the cells of the colour table. A cell that is chosen becomes the colour of the
/// caller's purpose and closes the dialog; there is nothing to confirm.
///
/// Reads   ColorPurpose and the colour and cell of that purpose.
/// Writes  the same colour (with SolidColorFlag) and cell; DialogCancelled, which is true unless a
///         colour was chosen.
class Colors256 : public DesignDialog {
public:
    Colors256();

private:
    void Form_Load();
    void ColorSquare_MouseMove();
    void ColorSquare_Click();
};

} // namespace quelmont
