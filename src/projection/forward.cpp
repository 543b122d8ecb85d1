#include "projection/forward.h"

namespace quelmont {

void StoreX(double x) {
    if (std::isfinite(x)) {
        Design.ProjX = x;
    } else {
        ReportProjectSelect(ErrorOverflow);
    }
}

void StoreY(double y) {
    if (std::isfinite(y)) {
        Design.ProjY = y;
    } else {
        ReportProjectSelect(ErrorOverflow);
    }
}

} // namespace quelmont
