// Every projection after every other one, through the menus.

#include "core/map_design.h"
#include "dialogs/bounds/boundary_dialog_names.h"
#include "mainwindow/commands.h"
#include "mainwindow/map_draw.h"
#include "mainwindow/projection_menu.h"
#include "mainwindow/start_up.h"
#include "mainwindow/started_program.h"
#include "projection/projection_table.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace quelmont {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class ProjectionChanges : public StartedProgram, public testing::WithParamInterface<ProjectionEntry> {
protected:
    static constexpr int DrawItem = 3;

    static void Click(const ProjectionEntry& entry) {
        if (entry.mollweideIndex < 0) {
            mnuProj_Click(entry.menuIndex);
        } else {
            mnuProjMollweide_Click(entry.mollweideIndex);
        }
    }
    void AcceptDefaults(const ProjectionEntry& entry) {
        for (const std::string& dialog : BoundaryDialogsOf(entry.ProjNum)) {
            machine.forms.Script(dialog, [](Form& form) {
                form.PressDefault();
                EXPECT_TRUE(form.Closed()) << form.ClassName();
                form.PressCancel();
            });
        }
        Click(entry);
    }
    void CancelFirst(std::int16_t projNum) {
        machine.forms.Script(BoundaryDialogsOf(projNum).front(), [](Form& form) { form.PressCancel(); });
    }
    /// What "Draw Map" leaves on the surface.
    std::string Drawn() {
        machine.forms.Script("MapReduce", [](Form& form) { form.PressDefault(); });
        surface.Forget();
        mnuBar_Click(DrawItem);
        std::string drawn;
        for (const RecordedSegment& segment : surface.Segments()) {
            for (const std::int32_t number : {segment.from.x, segment.from.y, segment.to.x, segment.to.y}) {
                drawn += std::to_string(number) + " ";
            }
        }
        return drawn;
    }
    void Restart() {
        Design = MapDesign{};
        StartUp();
    }
};

TEST_P(ProjectionChanges, AcceptedWithItsDefaultsEachOtherOneDrawsAsAfterAFreshStart) {
    for (const ProjectionEntry& next : Projections) {
        Restart();
        AcceptDefaults(next);
        const std::string fresh = Drawn();
        EXPECT_GT(fresh.size(), 100U);
        Restart();
        AcceptDefaults(GetParam());
        const std::string first = Drawn();
        AcceptDefaults(next);
        if (next.ProjNum != GetParam().ProjNum) {
            EXPECT_EQ(Drawn(), fresh) << next.ProjName;
        }
        // And back: the bounds of the other one, or its own where those cannot be.
        AcceptDefaults(GetParam());
        EXPECT_GT(Drawn().size(), 100U);
        EXPECT_THAT(Told(machine.boxes.Taken()), IsEmpty()) << next.ProjName;
    }
}

/// Whether the default bounds of a projection will do for another one.
bool Shows(std::int16_t to, std::int16_t from) {
    const bool polesAway = from == ProjMercator;
    switch (to) {
    case ProjMercator:
        return false; // all others show a pole
    case ProjConformalConic:
        return polesAway; // all others show both
    case ProjInterruptedMollweide:
        return false;  // interruptions 280 degrees from the west on a grid of 45
    case ProjGnomonic: // below 90 degrees: the horizon of 35 840 km
        return from == ProjVerticalPerspective;
    case ProjStereographic:
    case ProjOrthographic: // at most 90 degrees
        return IsAzimuthal(from) && from != ProjAzimuthalEquidistant && from != ProjAzimuthalEqualArea;
    default:
        return true;
    }
}

TEST_P(ProjectionChanges, CancelledOneIsDrawnWithTheBoundsOfTheOtherOrItsDialogOpens) {
    for (const ProjectionEntry& next : Projections) {
        if (next.ProjNum == GetParam().ProjNum) {
            continue;
        }
        SCOPED_TRACE(next.ProjName);
        Restart();
        AcceptDefaults(GetParam());
        CancelFirst(next.ProjNum);
        Click(next);
        machine.boxes.Taken();
        machine.forms.shown.clear();
        const auto texts = Design.GridText;
        if (Shows(next.ProjNum, GetParam().ProjNum)) {
            EXPECT_GT(Drawn().size(), 100U);
            EXPECT_THAT(Told(machine.boxes.Taken()), IsEmpty());
            EXPECT_THAT(machine.forms.shown, ElementsAre("MapReduce"));
            EXPECT_TRUE(Design.ProjGridSet[static_cast<std::size_t>(next.ProjNum)]);
            EXPECT_EQ(Design.BoundsProjNum, next.ProjNum);
            continue;
        }
        surface.Forget();
        CancelFirst(next.ProjNum);
        mnuBar_Click(DrawItem);
        EXPECT_EQ(machine.boxes.Taken().size(), 1U);
        EXPECT_THAT(machine.forms.shown, ElementsAre(BoundaryDialogsOf(next.ProjNum).front()));
        EXPECT_THAT(surface.Calls(), IsEmpty()) << "nothing is drawn, and nothing wiped off";
        EXPECT_EQ(Design.GridText, texts);
        EXPECT_EQ(Design.ProjNum, next.ProjNum);
        // Its own bounds are accepted and drawn.
        for (const std::string& dialog : BoundaryDialogsOf(next.ProjNum)) {
            machine.forms.Script(dialog, [](Form& form) { form.PressDefault(); });
        }
        mnuDesign_Click(0);
        EXPECT_GT(Drawn().size(), 100U);
        EXPECT_THAT(Told(machine.boxes.Taken()), IsEmpty());
    }
}

INSTANTIATE_TEST_SUITE_P(After, ProjectionChanges, testing::ValuesIn(Projections),
                         [](const auto& entry) { return "ProjNum" + std::to_string(entry.param.ProjNum); });

TEST_F(ProjectionChanges, EveryExportAsksForBoundsThatCanBeDrawn) {
    CancelFirst(ProjMercator);
    mnuProj_Click(0);
    machine.boxes.Taken();
    for (const int item : {6, 7, 8, 9}) {
        machine.forms.shown.clear();
        CancelFirst(ProjMercator);
        mnuInput_Click(item);
        EXPECT_THAT(machine.forms.shown, ElementsAre("LatLonBounds")) << item;
        EXPECT_THAT(Told(machine.boxes.Taken()),
                    ElementsAre("Error: Mercator Projection: You have included the North Pole (90°N) in your "
                                "grid.  The poles cannot be plotted on a Mercator projection because they "
                                "project to infinity."));
    }
    EXPECT_THAT(surface.Segments(), IsEmpty());
}

TEST_F(ProjectionChanges, FirstOkAfterADrawThatEndedOffTheMapIsTaken) {
    // The coast lies about 140 W: behind the horizon of this hemisphere.
    machine.forms.Script("LatLonBoundsAz", [](Form& form) {
        form.Type("LonCentral", "080    00    00    E");
        form.PressDefault();
    });
    mnuProj_Click(14);
    Drawn();
    ASSERT_TRUE(Design.ProjOffMap);
    AcceptDefaults(*FindProjection(ProjRobinson));
    EXPECT_TRUE(Design.BoundsChanged);
}

} // namespace
} // namespace quelmont
