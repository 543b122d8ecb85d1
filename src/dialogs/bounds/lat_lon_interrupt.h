#pragma once

#include "dialogs/bounds/bounds_form.h"

#include <array>

namespace quelmont {

/// "Longitudes of Projection Interruptions": up to three in each hemisphere. Boundaries and spacing
/// of the map stand beside them for information.
///
/// Reads   ProjGridSet, GridText(3) to (5), LobeText.
/// Writes  LobeText, LobeLonText, LobeLonSec, LobeLonDeg, LobeCentral, what ParamSelect makes of
///         them, ProjGridSet, BoundsChanged, DialogCancelled. When it refuses, all of the lobes stay
///         as they were.
class LatLonInterrupt : public BoundsForm {
public:
    LatLonInterrupt();

private:
    void Form_Load();
    void AddHemisphere(std::size_t hemisphere);
    void NumInterrupt_Change(std::size_t hemisphere);
    void LonInt_LostFocus(std::size_t index);
    void OK_Click();
    /// The controls as LobeText has them.
    std::array<std::string, 10> Texts() const;
};

} // namespace quelmont
