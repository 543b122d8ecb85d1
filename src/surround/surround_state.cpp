#include "surround/surround_state.h"

namespace quelmont {

SurroundState SurroundNow;

void ResetSurround() { SurroundNow = SurroundState{}; }

} // namespace quelmont
