#include "view/choose_projection.h"

#include "designfile/cnf_save.h"
#include "mainwindow/commands.h"
#include "mainwindow/main_menu.h"
#include "mainwindow/main_window_state.h"
#include "mainwindow/map_draw.h"
#include "mainwindow/started_program.h"
#include "mainwindow/told_changes.h"
#include "platform/machine.h"
#include "projection/projection_table.h"
#include "view/choose_projection_form.h"
#include "view/region_samples.h"
#include "view/undo.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <set>

namespace quelmont {
namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::Not;

constexpr std::array Purposes = {MapPurpose::Areas, MapPurpose::Directions, MapPurpose::Shapes,
                                 MapPurpose::Distances, MapPurpose::Look};
constexpr std::array Kinds = {RegionKind::World,   RegionKind::Hemisphere, RegionKind::Pole,
                              RegionKind::Equator, RegionKind::Wide,       RegionKind::Compact,
                              RegionKind::Zone};

const std::set<std::int16_t> EqualArea = {
    ProjHammer, ProjMollweide, ProjInterruptedMollweide, ProjCylindricalEqualArea, ProjAzimuthalEqualArea,
    ProjAlbers};
const std::set<std::int16_t> Conformal = {ProjMercator, ProjConformalConic, ProjStereographic, ProjUtm};

TEST(ProjectionRanking, EveryPurposeHasAnswersWithReasonsForEveryRegion) {
    for (const MapPurpose purpose : Purposes) {
        for (const RegionKind kind : Kinds) {
            const auto ranked = ProjectionsFor(purpose, kind);
            EXPECT_GE(ranked.size(), 2U);
            EXPECT_EQ(std::set<std::int16_t>(ranked.begin(), ranked.end()).size(), ranked.size());
            for (const std::int16_t projNum : ranked) {
                EXPECT_NE(FindProjection(projNum), nullptr);
                const std::string_view reason = ReasonFor(purpose, projNum);
                EXPECT_TRUE(reason.ends_with(".")) << projNum;
                EXPECT_EQ(reason.find(". "), std::string_view::npos) << "one sentence";
            }
        }
    }
}

TEST(ProjectionRanking, AreasAreComparedOnEqualAreaMapsAlone) {
    for (const RegionKind kind : Kinds) {
        for (const std::int16_t projNum : ProjectionsFor(MapPurpose::Areas, kind)) {
            EXPECT_TRUE(EqualArea.contains(projNum) || (kind == RegionKind::Zone && projNum == ProjUtm));
        }
    }
}

TEST(ProjectionRanking, FirstForShapesIsConformal) {
    for (const RegionKind kind : Kinds) {
        EXPECT_TRUE(Conformal.contains(ProjectionsFor(MapPurpose::Shapes, kind).front()));
    }
}

/// Snyder 1987, pp. 34 and 35: by size, place and extent of the region.
TEST(ProjectionRanking, FirstOnesAreThoseOfTheManual) {
    const auto first = [](MapPurpose purpose, RegionKind kind) {
        return ProjectionsFor(purpose, kind).front();
    };
    EXPECT_EQ(first(MapPurpose::Areas, RegionKind::Wide), ProjAlbers);
    EXPECT_EQ(first(MapPurpose::Areas, RegionKind::Equator), ProjCylindricalEqualArea);
    EXPECT_EQ(first(MapPurpose::Areas, RegionKind::Pole), ProjAzimuthalEqualArea);
    EXPECT_EQ(first(MapPurpose::Areas, RegionKind::Compact), ProjAzimuthalEqualArea);
    EXPECT_EQ(first(MapPurpose::Areas, RegionKind::Hemisphere), ProjAzimuthalEqualArea);
    EXPECT_EQ(first(MapPurpose::Shapes, RegionKind::World), ProjMercator);
    EXPECT_EQ(first(MapPurpose::Shapes, RegionKind::Wide), ProjConformalConic);
    EXPECT_EQ(first(MapPurpose::Shapes, RegionKind::Equator), ProjMercator);
    EXPECT_EQ(first(MapPurpose::Shapes, RegionKind::Pole), ProjStereographic);
    EXPECT_EQ(first(MapPurpose::Shapes, RegionKind::Compact), ProjStereographic);
    EXPECT_EQ(first(MapPurpose::Shapes, RegionKind::Hemisphere), ProjStereographic);
    EXPECT_EQ(first(MapPurpose::Shapes, RegionKind::Zone), ProjUtm);
    EXPECT_EQ(first(MapPurpose::Look, RegionKind::World), ProjRobinson);
    EXPECT_EQ(first(MapPurpose::Look, RegionKind::Hemisphere), ProjOrthographic);
    for (const RegionKind kind : Kinds) {
        EXPECT_EQ(first(MapPurpose::Distances, kind), ProjAzimuthalEquidistant);
    }
}

TEST(ProjectionRanking, CoursesNeedMercatorAndRoutesTheGnomonic) {
    for (const RegionKind kind : {RegionKind::Hemisphere, RegionKind::Equator, RegionKind::Wide,
                                  RegionKind::Compact, RegionKind::Zone}) {
        const auto ranked = ProjectionsFor(MapPurpose::Directions, kind);
        const std::vector<std::int16_t> all(ranked.begin(), ranked.end());
        EXPECT_THAT(all, Contains(ProjMercator));
        EXPECT_THAT(all, Contains(ProjGnomonic));
    }
    EXPECT_EQ(ProjectionsFor(MapPurpose::Directions, RegionKind::World).front(), ProjMercator);
    EXPECT_EQ(ProjectionsFor(MapPurpose::Directions, RegionKind::Pole).front(), ProjGnomonic);
}

TEST(ProjectionErrors, AreWrittenWithAsManyFiguresAsMeanSomething) {
    EXPECT_EQ(ErrorsText({.area = 3.0, .angle = 38.94}), "Largest errors: areas +300 %, angles 39\u00B0");
    EXPECT_EQ(ErrorsText({.area = -0.0234, .angle = 2.345}),
              "Largest errors: areas \u22122.3 %, angles 2.3\u00B0");
    EXPECT_EQ(ErrorsText({.area = 0.0008, .angle = 0.05}),
              "Largest errors: areas +0.08 %, angles 0.05\u00B0");
    EXPECT_EQ(ErrorsText({.area = -1e-9, .angle = 1e-7}), "Largest errors: areas 0 %, angles 0\u00B0");
}

class Choosing : public StartedProgram {
protected:
    Choosing() {
        MainWindowNow.HelpInChoosing = HelpMeChoose;
        Machine().changes = &changes;
        NoteDesign();
    }
    ~Choosing() override { Machine().changes = nullptr; }

    class UndoChanges : public Changes {
    public:
        void Accepted(std::string_view name, ChangeKind /*kind*/) override {
            names.emplace_back(name);
            steps.Accepted(name);
        }
        void Noted() override { steps.Noted(); }
        void Undo() override { steps.Undo(); }
        std::vector<std::string> names;
        UndoSteps steps;
    };

    static MapErrors ErrorsOf(MapPurpose purpose, std::int16_t projNum) {
        for (const ProjectionCandidate& candidate : CandidatesFor(purpose, RegionOfDesign())) {
            if (candidate.projNum == projNum) {
                return candidate.errors;
            }
        }
        ADD_FAILURE() << "no candidate " << projNum;
        return {};
    }
    static void ClickHelp() { ClickMenuItem(Menu::mnuProj, HelpMeChooseItem); }
    static void AcceptUnitedStates() {
        AcceptBox(ProjEquirectangular, {"50", "N"}, {"25", "N"}, {"125", "W"}, {"065", "W"});
        NoteDesign();
    }
    void Take(const char* purpose, int line) {
        machine.forms.Script("ChooseProjection", [purpose, line](Form& form) {
            form.Choose(purpose);
            form.Choose("Candidates", line);
            form.PressDefault();
        });
    }

    UndoChanges changes;
};

TEST_F(Choosing, EveryPurposeHasCandidatesOnEveryMap) {
    const auto expectCandidates = [] {
        for (const MapPurpose purpose : Purposes) {
            for (const MapRegion& region : {RegionOfDesign(), WholeWorld()}) {
                const auto candidates = CandidatesFor(purpose, region);
                EXPECT_GE(candidates.size(), 2U) << RegionText(region);
                for (const ProjectionCandidate& candidate : candidates) {
                    EXPECT_EQ(candidate.bounds.BoundsProjNum, candidate.projNum);
                    EXPECT_GE(candidate.errors.angle, 0.0);
                    EXPECT_LT(candidate.errors.angle, 180.0);
                    EXPECT_GT(candidate.errors.area, -1.0);
                    if (EqualArea.contains(candidate.projNum)) {
                        EXPECT_NEAR(candidate.errors.area, 0.0, 1e-5) << candidate.projNum;
                    }
                    if (Conformal.contains(candidate.projNum)) {
                        EXPECT_NEAR(candidate.errors.angle, 0.0, 1e-3) << candidate.projNum;
                    }
                }
            }
        }
    };
    for (const ProjectionEntry& entry : Projections) {
        SCOPED_TRACE(entry.ProjName);
        AcceptProjection(entry.ProjNum);
        expectCandidates();
    }
    AcceptUnitedStates();
    expectCandidates();
    EXPECT_TRUE(machine.boxes.asked.empty());
}

TEST_F(Choosing, ErrorsAreThoseOfTheFormulasAtTheEdgeOfTheRegion) {
    // Mercator: areas grow with the square of the secant of the latitude, of the world as far as 80 degrees.
    EXPECT_NEAR(ErrorsOf(MapPurpose::Directions, ProjMercator).area, 32.163437, 1e-4);
    AcceptBox(ProjEquirectangular, {"60", "N"}, {"20", "N"}, {"120", "W"}, {"040", "W"});
    EXPECT_NEAR(ErrorsOf(MapPurpose::Directions, ProjMercator).area, 3.0, 1e-6);
    AcceptCircle(ProjStereographic, {"90", "N"}, {"000", "E"}, "030");
    // Scale 2 / (1 + cos 30).
    EXPECT_NEAR(ErrorsOf(MapPurpose::Shapes, ProjStereographic).area, 0.148748, 1e-5);
    // Scales 1 / cos^2 and 1 / cos of 30 degrees; half the angle has the sine (h - k) / (h + k).
    EXPECT_NEAR(ErrorsOf(MapPurpose::Directions, ProjGnomonic).area, 0.539601, 1e-5);
    EXPECT_NEAR(ErrorsOf(MapPurpose::Directions, ProjGnomonic).angle, 8.2344, 1e-3);
    // Scales cos 15 and 1 / cos 15.
    EXPECT_NEAR(ErrorsOf(MapPurpose::Areas, ProjAzimuthalEqualArea).angle, 3.9719, 1e-3);
    // Scales 1 and 30 degrees in radians over their sine.
    EXPECT_NEAR(ErrorsOf(MapPurpose::Distances, ProjAzimuthalEquidistant).area, 0.047198, 1e-5);
}

TEST_F(Choosing, ErrorsAreThoseOfTheRegionAndNotOfTheDiscAboutIt) {
    AcceptBox(ProjEquirectangular, {"50", "N"}, {"30", "N"}, {"100", "W"}, {"080", "W"});
    // The corner at 30 N is 12.908 degrees from the centre at 40 N, and the disc has a range of 15 degrees.
    const double k = 12.908259 * DegToRad / std::sin(12.908259 * DegToRad);
    EXPECT_NEAR(ErrorsOf(MapPurpose::Distances, ProjAzimuthalEquidistant).area, k - 1.0, 1e-6);
}

TEST_F(Choosing, ErrorsOfAZoneAtThe180thMeridianAreSmall) {
    AcceptBox(ProjEquirectangular, {"18", "S"}, {"19", "S"}, {"179", "E"}, {"178", "W"});
    const MapErrors errors = ErrorsOf(MapPurpose::Shapes, ProjUtm);
    // The scale is 0.9996 at 177 W, and 4 degrees from there 0.9996 (1 + (4 degrees cos 18)^2 / 2).
    EXPECT_NEAR(errors.area, 0.0036, 0.0002);
    EXPECT_NEAR(errors.angle, 0.0, 1e-3);
}

TEST_F(Choosing, CancelLeavesEverythingAsItWas) {
    const std::string before = DesignFileText();
    machine.forms.Script("ChooseProjection", [](Form& form) {
        form.Choose("PurposeShapes");
        form.Choose("RegionWorld");
        form.Choose("Candidates", 1);
        form.PressCancel();
    });
    ClickHelp();
    EXPECT_EQ(DesignFileText(), before);
    EXPECT_THAT(machine.forms.shown, ElementsAre("ChooseProjection"));
    EXPECT_TRUE(window.MenuChecked(Menu::mnuProj, 1)) << "equirectangular";
    EXPECT_FALSE(window.MenuChecked(Menu::mnuProj, HelpMeChooseItem));
    EXPECT_TRUE(changes.names.empty());
    EXPECT_FALSE(Design.DialogCancelled);
}

TEST_F(Choosing, ChosenProjectionHasItsParametersInItsDialogs) {
    AcceptUnitedStates();
    Take("PurposeShapes", 0);
    machine.forms.Script("LatLonBounds", [](Form& form) {
        EXPECT_EQ(form.At("LatN").text, "50    00    00    N");
        EXPECT_EQ(form.At("LonW").text, "125    00    00    W");
        form.PressDefault();
    });
    machine.forms.Script("LatLonStdPar", [](Form& form) {
        EXPECT_EQ(form.At("LatNorthStdPar").text, "45    50    00    N");
        EXPECT_EQ(form.At("LatSouthStdPar").text, "29    10    00    N");
        form.PressDefault();
    });
    ClickHelp();
    EXPECT_EQ(Design.ProjNum, ProjConformalConic);
    EXPECT_EQ(Design.BoundsProjNum, ProjConformalConic);
    EXPECT_NEAR(Design.StdParNorth, 45.0 + 50.0 / 60.0, 1e-12);
    EXPECT_TRUE(window.MenuChecked(Menu::mnuProj, 9));
    EXPECT_FALSE(window.MenuChecked(Menu::mnuProj, 1));
    EXPECT_EQ(window.caption, PropertiesOf(ProjConformalConic).caption);
    EXPECT_THAT(changes.names, ElementsAre("Help Me Choose..."));
}

TEST_F(Choosing, ZoneStandsInItsThreeDialogs) {
    AcceptBox(ProjEquirectangular, {"48", "N"}, {"47", "N"}, {"007", "E"}, {"008", "E"});
    Take("PurposeShapes", 0);
    machine.forms.Script("UtmSpheroid", [](Form& form) {
        EXPECT_EQ(form.At("Ellipsoid").items.at(static_cast<std::size_t>(form.At("Ellipsoid").value)),
                  " WGS84 1984");
        form.PressDefault();
    });
    machine.forms.Script("UtmParameters", [](Form& form) {
        EXPECT_EQ(form.At("UtmLonCentral").text, "009    00    00    E");
        form.PressDefault();
    });
    machine.forms.Script("UtmCoords", [](Form& form) { form.PressDefault(); });
    ClickHelp();
    EXPECT_EQ(Design.BoundsProjNum, ProjUtm);
    EXPECT_DOUBLE_EQ(Design.LatSouth, 5200000.0);
}

TEST_F(Choosing, MollweideIsChosenInItsSubMenu) {
    Take("PurposeAreas", 0);
    machine.forms.Script("LatLonBounds", [](Form& form) { form.PressDefault(); });
    ClickHelp();
    EXPECT_EQ(Design.ProjNum, ProjMollweide);
    EXPECT_TRUE(window.MenuChecked(Menu::mnuProjMollweide, 0));
}

TEST_F(Choosing, CancelInItsDialogsLeavesTheBoundsThatTheDesignHad) {
    AcceptUnitedStates();
    const auto gridText = Design.GridText;
    const auto parallels = Design.StdParText;
    const auto accepted = Design.ProjGridSet;
    Take("PurposeDistances", 0);
    machine.forms.Script("LatLonBoundsAz", [](Form& form) {
        EXPECT_EQ(form.At("LonCentral").text, "095    00    00    W");
        form.PressCancel();
    });
    ClickHelp();
    EXPECT_EQ(Design.ProjNum, ProjAzimuthalEquidistant) << "as after the menu's own item";
    EXPECT_EQ(Design.BoundsProjNum, ProjEquirectangular);
    EXPECT_EQ(Design.GridText, gridText);
    EXPECT_EQ(Design.StdParText, parallels);
    EXPECT_EQ(Design.ProjGridSet, accepted);
}

TEST_F(Choosing, CancelInTheSecondDialogDoesSoToo) {
    AcceptUnitedStates();
    const auto parallels = Design.StdParText;
    Take("PurposeAreas", 0); // Albers
    machine.forms.Script("LatLonBounds", [](Form& form) {
        form.PressDefault();
        form.PressCancel();
    });
    machine.forms.Script("LatLonStdPar", [](Form& form) { form.PressCancel(); });
    ClickHelp();
    EXPECT_EQ(Design.BoundsProjNum, ProjEquirectangular);
    EXPECT_EQ(Design.StdParText, parallels);
}

TEST_F(Choosing, UndoTakesTheChoiceBack) {
    AcceptUnitedStates();
    const std::string before = DesignFileText();
    Take("PurposeAreas", 1); // azimuthal equal-area
    machine.forms.Script("LatLonBoundsAz", [](Form& form) { form.PressDefault(); });
    ClickHelp();
    EXPECT_EQ(Design.ProjNum, ProjAzimuthalEqualArea);
    EXPECT_EQ(window.menuTexts.at({Menu::mnuEdit, UndoItem}), "&Undo Help Me Choose");
    ClickMenuItem(Menu::mnuEdit, UndoItem);
    EXPECT_EQ(DesignFileText(), before);
    EXPECT_TRUE(window.MenuChecked(Menu::mnuProj, 1));
}

TEST_F(Choosing, AnswersFollowPurposeAndRegion) {
    AcceptUnitedStates();
    ChooseProjectionForm form;
    EXPECT_EQ(form.Candidates().front().projNum, ProjAlbers);
    EXPECT_EQ(form.At("Candidates").items.front(),
              "Albers Equal-Area\nAreas are true everywhere, and shapes are good all along the standard "
              "parallels.\n" +
                  ErrorsText(form.Candidates().front().errors));
    form.Choose("RegionWorld");
    EXPECT_EQ(form.Candidates().front().projNum, ProjMollweide);
    EXPECT_EQ(form.At("RegionText").text, "The whole world");
    form.Choose("PurposeLook");
    EXPECT_EQ(form.Candidates().front().projNum, ProjRobinson);
    form.Choose("Candidates", 3);
    EXPECT_EQ(form.Chosen()->projNum, ProjOrthographic);
    form.Choose("RegionBounds");
    EXPECT_EQ(form.Chosen()->projNum, ProjEquidistantConic) << "the first again";
}

TEST_F(Choosing, PictureOfTheWindowIsNeitherAskedNorTouched) {
    MapDraw();
    const auto calls = surface.Calls().size();
    const std::string picture = MainWindowNow.Picture->design;
    machine.forms.Script("ChooseProjection", [](Form& form) { form.PressCancel(); });
    ClickHelp();
    EXPECT_EQ(surface.Calls().size(), calls);
    EXPECT_EQ(MainWindowNow.Picture->design, picture);
}

} // namespace
} // namespace quelmont
