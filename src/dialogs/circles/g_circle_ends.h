#pragma once

#include "dialogs/circles/accept_circles.h"
#include "dialogs/circles/circle_form.h"

namespace quelmont {

/// "Select Endpoints of Great Circle": the two places, width and colour of the line. The caller computes the
/// circle unless the dialog was cancelled.
///
/// Writes  GcText and the angles made of it, GcLineWidth (twips), GcColor, GcColorIndex, GcDefined,
///         DialogCancelled.
class GCircleEnds : public CircleForm {
public:
    GCircleEnds();

private:
    static const Line& OwnLine();
    GreatCircleTexts Texts() const;
    void OK_Click();
};

} // namespace quelmont
