#pragma once

#include "dialogs/design_dialog.h"

namespace quelmont {

/// "Select Map Size": how much of the drawing area the map fills. "Draw Map" stores MapReduce and
/// clears DialogCancelled; "Cancel" sets DialogCancelled.
class MapReduceForm : public DesignDialog {
public:
    MapReduceForm();

private:
    void DrawMap_Click();
};

} // namespace quelmont
