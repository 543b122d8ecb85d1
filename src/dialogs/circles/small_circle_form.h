#pragma once

#include "dialogs/circles/accept_circles.h"
#include "dialogs/circles/circle_form.h"

namespace quelmont {

/// "Select Center and Radius of Small Circle": centre, radius and number of concentric circles, width and
/// colour of their lines. The radius stands in miles and kilometres too, which are only shown. OK
/// computes the circles.
///
/// Writes  ScText and the angles made of it, ScSymbolCount, ScLineWidth (twips), ScColor, ScColorIndex,
///         ScDefined, ScTable, DialogCancelled.
class SmallCircleForm : public CircleForm {
public:
    SmallCircleForm();

private:
    static const Line& OwnLine();
    SmallCircleTexts Texts() const;
    void RadiusDeg_Change();
    void OK_Click();
};

} // namespace quelmont
