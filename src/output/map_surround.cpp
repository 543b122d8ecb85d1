#include "output/map_surround.h"

#include "output/output_state.h"

namespace quelmont {

MapSurround*& Surround() { return OutputNow.surround; }

} // namespace quelmont
