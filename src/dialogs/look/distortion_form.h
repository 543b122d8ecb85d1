#pragma once

#include "core/map_extras.h"
#include "dialogs/design_fields.h"

#include <string>

namespace quelmont {

/// "Distortion": what shows how far the map distorts the globe, and for circles their radius and spacing. A
/// note tells how many circles the map has then.
///
/// Circles that are too small, too large or too many for the map are refused. Writes  Distortion, on OK
/// alone, and DialogCancelled.
class DistortionForm : public DesignFields {
public:
    DistortionForm();

private:
    void AddKinds();
    void AddCircles();
    DistortionChoice Chosen() const;
    void ShowNote();
    void OK_Click();

    std::string radius, spacing; ///< the texts with which the fields begin
};

} // namespace quelmont
