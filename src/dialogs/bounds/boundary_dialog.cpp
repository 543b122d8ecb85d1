#include "dialogs/bounds/boundary_dialog.h"

#include "dialogs/bounds/lat_lon_bounds.h"
#include "dialogs/bounds/lat_lon_bounds_az.h"
#include "dialogs/bounds/utm_dialogs.h"
#include "platform/machine.h"
#include "projection/projection_table.h"

namespace quelmont {

namespace {

template <typename Dialog>
void ShowOne() {
    Dialog dialog;
    Machine().forms->Show(dialog);
}

} // namespace

void ShowBoundaryDialog() {
    if (Design.ProjNum == ProjUtm) {
        ShowOne<UtmSpheroid>();
    } else if (Design.ProjNum == ProjVerticalPerspective) {
        ShowOne<LatLonBoundsVp>();
    } else if (IsAzimuthal(Design.ProjNum)) {
        ShowOne<LatLonBoundsAz>();
    } else {
        ShowOne<LatLonBounds>();
    }
}

} // namespace quelmont
