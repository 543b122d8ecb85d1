#include "mainwindow/ready_to_draw.h"

#include "core/map_design.h"
#include "dialogs/bounds/accept_bounds.h"
#include "dialogs/bounds/boundary_dialog.h"

namespace quelmont {

bool ReadyToDraw() {
    if (Design.BoundsProjNum == Design.ProjNum || AcceptProjection()) {
        return true;
    }
    ShowBoundaryDialog();
    return false;
}

} // namespace quelmont
