#include "core/map_design.h"

namespace quelmont {

MapDesign Design;

} // namespace quelmont
