#pragma once

#include "dialogs/design_dialog.h"

namespace quelmont {

/// "Line Width Scaling": whether widths on paper and in exports follow the size of the map.
///
/// Writes  LineWidthsScaled, by OK alone; DialogCancelled.
class LineWidthScale : public DesignDialog {
public:
    LineWidthScale();

private:
    void OK_Click();
};

} // namespace quelmont
