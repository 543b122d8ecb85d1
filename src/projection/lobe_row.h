#pragma once

#include <cstddef>
#include <cstdint>

namespace quelmont {

/// Interruptions of a hemisphere (0 north, 1 south) of the interrupted projection from its text in
/// LobeText, 0 to 3. RunTimeError "Subscript out of range" for any other number.
std::int16_t LobeInterruptions(std::size_t hemisphere);

/// The numbers of a hemisphere's lobes, from west to east. They are counted through both hemispheres
/// from 1; one number is left free between the two, where the right boundary of the northern row and
/// the left one of the southern row stand side by side in LobeLonText.
struct LobeRow {
    std::size_t first = 0;
    std::size_t last = 0;
};

/// RunTimeError as LobeInterruptions.
LobeRow LobesOf(std::size_t hemisphere);

} // namespace quelmont
