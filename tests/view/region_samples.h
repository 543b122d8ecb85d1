#pragma once

#include "core/map_design.h"
#include "dialogs/bounds/accept_bounds.h"
#include "projection/projection_table.h"

#include <gtest/gtest.h>

#include <string>

namespace quelmont {

/// Whole degrees, in as many figures as the field has, and the letter of the hemisphere.
struct WholeDegrees {
    std::string degrees;
    std::string letter;
};

inline std::string AngleOf(const WholeDegrees& angle) {
    return angle.degrees + "    00    00    " + angle.letter;
}

/// Accepts a map between parallels and meridians, as its dialogs do, with a grid of one degree.
inline void AcceptBox(std::int16_t projNum, const WholeDegrees& north, const WholeDegrees& south,
                      const WholeDegrees& west, const WholeDegrees& east) {
    Design.ProjNum = projNum;
    Design.ProjName = PropertiesOf(projNum).ProjName;
    Design.GridText[GridTextNorth] = AngleOf(north);
    Design.GridText[GridTextSouth] = AngleOf(south);
    Design.GridText[GridTextWest] = AngleOf(west);
    Design.GridText[GridTextEast] = AngleOf(east);
    Design.GridText[GridTextLatSpacing] = "001    00    00";
    Design.GridText[GridTextLonSpacing] = "001    00    00";
    ASSERT_TRUE(AcceptProjection());
}

/// Accepts an azimuthal map of a range of whole degrees.
inline void AcceptCircle(std::int16_t projNum, const WholeDegrees& lat, const WholeDegrees& lon,
                         const std::string& range) {
    Design.ProjNum = projNum;
    Design.ProjName = PropertiesOf(projNum).ProjName;
    Design.GridText[GridTextCentralLat] = AngleOf(lat);
    Design.GridText[GridTextCentralLon] = AngleOf(lon);
    Design.GridText[GridTextRange] = range + "    00    00";
    Design.GridText[GridTextLatSpacing] = "010    00    00";
    Design.GridText[GridTextLonSpacing] = "010    00    00";
    ASSERT_TRUE(AcceptProjection());
}

} // namespace quelmont
