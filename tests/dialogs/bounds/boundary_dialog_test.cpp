// Which dialog a projection opens.

#include "dialogs/bounds/boundary_dialog.h"
#include "dialogs/bounds/boundary_dialogs.h"
#include "dialogs/bounds/lat_lon_bounds.h"
#include "dialogs/bounds/lat_lon_bounds_az.h"
#include "dialogs/bounds/utm_dialogs.h"
#include "projection/projection_table.h"
#include "support/fresh_program.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace quelmont {
namespace {

using testing::ElementsAre;

TEST_F(BoundaryDialogs, EachProjectionOpensTheDialogOfItsFamily) {
    for (const ProjectionEntry& entry : Projections) {
        Choose(entry.ProjNum);
        const char* const expected = entry.ProjNum == 17                          ? "UtmSpheroid"
                                     : entry.ProjNum == 29                        ? "LatLonBoundsVp"
                                     : entry.ProjNum >= 26 && entry.ProjNum <= 31 ? "LatLonBoundsAz"
                                                                                  : "LatLonBounds";
        machine.forms.shown.clear();
        machine.forms.Script(expected, [](Form& form) { form.PressCancel(); });
        ShowBoundaryDialog();
        EXPECT_THAT(machine.forms.shown, ElementsAre(expected)) << entry.ProjNum;
    }
}

TEST_F(BoundaryDialogs, F1OpensTheHelpOfTheDialog) {
    Choose(ProjRobinson);
    const LatLonBounds form;
    form.PressF1();
    ASSERT_EQ(machine.help.shown.size(), 1U);
    EXPECT_EQ(machine.help.shown[0].first, 15);
}

} // namespace
} // namespace quelmont
