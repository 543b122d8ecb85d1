#pragma once

#include "dialogs/design_dialog.h"

namespace quelmont {

/// "Scale Factor for Text in CGM & DXF Files": 1 to 1000 percent.
///
/// Writes  TextScalePercent, by OK alone; DialogCancelled.
class VectorScale : public DesignDialog {
public:
    VectorScale();

private:
    void OK_Click();
};

} // namespace quelmont
