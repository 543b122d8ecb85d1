#include "projection/whole_minutes.h"

namespace quelmont {

constinit WholeMinutes<SineCosine> TheSinesOfLatitude;

} // namespace quelmont
