#include "mapinput/map_input_state.h"

namespace quelmont {

MapInputState MapInputNow;

void ResetMapInput() { MapInputNow = MapInputState{}; }

} // namespace quelmont
