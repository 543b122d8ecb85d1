#pragma once

#include "platform/form.h"

namespace quelmont {

/// "Select Map Size": how much of the drawing area the map fills. "Draw Map" stores MapReduce and
/// clears DialogCancelled; "Cancel" sets DialogCancelled.
class MapReduceForm : public Form {
public:
    MapReduceForm();

private:
    void DrawMap_Click();
    void Cancel_Click();
};

} // namespace quelmont
