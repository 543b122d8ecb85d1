#include "mainwindow/projection_menu.h"

#include "mainwindow/commands.h"
#include "mainwindow/main_menu.h"
#include "mainwindow/started_program.h"
#include "projection/projection_table.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace quelmont {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class ProjectionMenu : public StartedProgram {
protected:
    static void Click(const ProjectionEntry& entry) {
        if (entry.mollweideIndex < 0) {
            mnuProj_Click(entry.menuIndex);
        } else {
            mnuProjMollweide_Click(entry.mollweideIndex);
        }
    }

    /// The first dialog of each projection, which is answered with Cancel.
    void CancelTheDialog(std::int16_t projNum) {
        const char* const dialog = projNum == ProjUtm                   ? "UtmSpheroid"
                                   : projNum == ProjVerticalPerspective ? "LatLonBoundsVp"
                                   : IsAzimuthal(projNum)               ? "LatLonBoundsAz"
                                                                        : "LatLonBounds";
        machine.forms.Script(dialog, [](Form& form) { form.PressCancel(); });
    }

    std::vector<int> Marked(Menu menu) const {
        std::vector<int> marked;
        for (const MenuEntry& entry : MenuEntries(menu)) {
            if (window.MenuChecked(menu, entry.index)) {
                marked.push_back(entry.index);
            }
        }
        return marked;
    }
};

TEST_F(ProjectionMenu, PutsEachProjectionInForceAtOnce) {
    for (const ProjectionEntry& entry : Projections) {
        const std::int16_t before = Design.ProjNum;
        CancelTheDialog(entry.ProjNum);
        Click(entry);
        EXPECT_EQ(Design.ProjNum, entry.ProjNum) << "although its dialog was cancelled";
        EXPECT_EQ(Design.ProjName, entry.ProjName);
        EXPECT_EQ(Design.ProjNumPrev, before);
        EXPECT_EQ(window.caption, entry.caption);
        EXPECT_TRUE(Design.DialogCancelled);
    }
}

TEST_F(ProjectionMenu, MarksTheItemOrThatOfTheSubMenu) {
    for (const ProjectionEntry& entry : Projections) {
        CancelTheDialog(entry.ProjNum);
        Click(entry);
        if (entry.mollweideIndex < 0) {
            EXPECT_THAT(Marked(Menu::mnuProj), ElementsAre(entry.menuIndex));
            EXPECT_THAT(Marked(Menu::mnuProjMollweide), IsEmpty());
        } else {
            EXPECT_THAT(Marked(Menu::mnuProj), IsEmpty());
            EXPECT_THAT(Marked(Menu::mnuProjMollweide), ElementsAre(entry.mollweideIndex));
        }
    }
}

TEST_F(ProjectionMenu, ParentOfTheSubMenuDoesNothing) {
    CancelTheDialog(ProjRobinson);
    mnuProj_Click(6);
    const std::string caption = window.caption;
    mnuProj_Click(5);
    EXPECT_EQ(Design.ProjNum, ProjRobinson);
    EXPECT_EQ(window.caption, caption);
    EXPECT_THAT(Marked(Menu::mnuProj), ElementsAre(6));
    EXPECT_EQ(machine.forms.shown.size(), 1U);
}

TEST_F(ProjectionMenu, SeparatorsChooseNothing) {
    mnuProj_Click(3);
    EXPECT_EQ(Design.ProjNum, ProjEquirectangular);
    EXPECT_THAT(machine.forms.shown, IsEmpty());
}

TEST_F(ProjectionMenu, CancelledDialogKeepsTheOldBounds) {
    const double north = Design.LatNorth;
    CancelTheDialog(ProjMercator);
    mnuProj_Click(0);
    EXPECT_EQ(Design.LatNorth, north);
    EXPECT_FALSE(Design.ProjGridSet[ProjMercator]);
    EXPECT_EQ(Design.GridText[GridTextNorth], "90    00    00    N");
}

TEST_F(ProjectionMenu, PixelSizeStaysBeforeTheNewCaption) {
    mnuDesign_Click(10);
    CancelTheDialog(ProjRobinson);
    mnuProj_Click(6);
    EXPECT_EQ(window.caption, "1280,924 = x, y Pixels   |Quelmont: Robinson projection");
}

TEST_F(ProjectionMenu, AcceptedProjectionIsDrawn) {
    machine.forms.Script("LatLonBounds", [](Form& form) { form.PressDefault(); });
    mnuProj_Click(6);
    machine.forms.Script("MapReduce", [](Form& form) { form.PressDefault(); });
    mnuBar_Click(3);
    EXPECT_EQ(machine.clock.beeps, 1);
    EXPECT_THAT(machine.boxes.asked, IsEmpty());
    ExpectIdle("Quelmont: Robinson projection");
}

} // namespace
} // namespace quelmont
