#pragma once

#include "core/map_extras.h"
#include "dialogs/design_fields.h"

#include <string>

namespace quelmont {

/// "Frame and Scale": a frame along the outline of the map, and a scale bar, its unit, and perhaps the
/// latitude at which it is to be true. A note tells where the bar of this map is true, or why it has none.
///
/// Writes  Frame, DialogCancelled.
class MapFrame : public DesignFields {
public:
    MapFrame();

private:
    void AddUnits();
    void AddLatitude();
    void ShowNote();
    FrameChoice Chosen() const;
    void OK_Click();

    std::string latitude; ///< the text with which the field begins
};

} // namespace quelmont
