#include "desktop/dialog_catalogue.h"

#include "core/map_design.h"
#include "graticule/boundary_defaults.h"
#include "graticule/calc_graticule.h"
#include "graticule/lat_lon_bounds.h"
#include "graticule/lat_lon_bounds_az.h"
#include "graticule/lat_lon_interrupt.h"
#include "graticule/lat_lon_std_par.h"
#include "graticule/select_grid_type.h"
#include "graticule/utm_dialogs.h"
#include "mainwindow/about_qmnt.h"
#include "mainwindow/map_reduce.h"
#include "output/line_width_scale.h"
#include "output/vector_scale.h"
#include "pickers/colors256.h"
#include "projection/projection_table.h"

namespace quelmont {

namespace {

template <typename Dialog>
std::function<std::unique_ptr<Form>()> Of() {
    return [] { return std::make_unique<Dialog>(); };
}

/// With another projection in force, and the bounds that its dialog proposes.
template <typename Dialog>
std::function<std::unique_ptr<Form>()> Of(std::int16_t projNum) {
    return [projNum] {
        Design.ProjNum = projNum;
        Design.ProjName = FindProjection(projNum)->ProjName;
        ProposeBounds();
        CalcGraticule();
        return std::make_unique<Dialog>();
    };
}

template <typename Dialog>
std::function<std::unique_ptr<Form>()> OfPurpose(std::int16_t purpose) {
    return [purpose] {
        Design.ColorPurpose = purpose;
        return std::make_unique<Dialog>();
    };
}

} // namespace

const std::vector<CataloguedDialog>& DialogCatalogue() {
    static const std::vector<CataloguedDialog> catalogue = {
        {"map-reduce", Of<MapReduceForm>()},
        {"lat-lon-bounds", Of<LatLonBounds>(ProjRobinson)},
        {"lat-lon-std-par", Of<LatLonStdPar>(ProjAlbers)},
        {"lat-lon-std-par-cylinder", Of<LatLonStdPar>(ProjCylindricalEqualArea)},
        {"lat-lon-bounds-az", Of<LatLonBoundsAz>(ProjStereographic)},
        {"lat-lon-bounds-vp", Of<LatLonBoundsVp>(ProjVerticalPerspective)},
        {"lat-lon-interrupt", Of<LatLonInterrupt>(ProjInterruptedMollweide)},
        {"utm-spheroid", Of<UtmSpheroid>()},
        {"utm-parameters", Of<UtmParameters>()},
        {"utm-coords", Of<UtmCoords>()},
        {"select-grid-type", Of<SelectGridType>()},
        {"colors256", OfPurpose<Colors256>(PurposeBackground)},
        {"colors256-feature", OfPurpose<Colors256>(PurposeFeature)},
        {"line-width-scale", Of<LineWidthScale>()},
        {"vector-scale", Of<VectorScale>()},
        {"about", Of<AboutQMNT>()},
    };
    return catalogue;
}

} // namespace quelmont
