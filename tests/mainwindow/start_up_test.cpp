#include "mainwindow/start_up.h"

#include "core/coordinates.h"
#include "core/standard_colors.h"
#include "graticule/calc_graticule.h"
#include "mainwindow/main_menu.h"
#include "mainwindow/main_window_state.h"
#include "mainwindow/started_program.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace quelmont {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

using StartingUp = StartedProgram;

TEST_F(StartingUp, DrawsAndAsksNothing) {
    EXPECT_THAT(surface.Calls(), IsEmpty());
    EXPECT_EQ(machine.pump.calls, 0);
    EXPECT_EQ(machine.clock.beeps, 0);
    EXPECT_THAT(machine.boxes.asked, IsEmpty());
    EXPECT_THAT(machine.forms.shown, IsEmpty());
}

TEST_F(StartingUp, CaptionNamesTheProjection) {
    EXPECT_EQ(window.caption, "Quelmont: Equirectangular projection");
    EXPECT_EQ(MainWindowNow.SavedCaption, window.caption);
}

TEST_F(StartingUp, DesignIsTheWholeWorld) {
    EXPECT_EQ(Design.ProjNum, ProjEquirectangular);
    EXPECT_EQ(Design.ProjName, "Equirectangular");
    EXPECT_EQ(Design.LatNorth, 90.0);
    EXPECT_EQ(Design.LatSouth, -90.0);
    EXPECT_EQ(Design.LonWest, -180.0);
    EXPECT_EQ(Design.LonEast, 180.0);
    EXPECT_EQ(Design.LonSpan, 360.0);
    EXPECT_EQ(Design.LonSpanSec, SecPerCircle);
    EXPECT_EQ(Design.LonZeroSec, 0);
    EXPECT_EQ(Design.LatGrid, 30.0);
    EXPECT_EQ(Design.LonGrid, 45.0);
    EXPECT_EQ(Design.LatGridCount, 6);
    EXPECT_EQ(Design.LonGridCount, 8);
}

TEST_F(StartingUp, TrueScaleStandsHalfwayToThePole) {
    EXPECT_EQ(Design.StdParNorth, 45.0);
    EXPECT_EQ(Design.StdParSouth, -45.0);
    // The extent: 2 pi * cos 45 degrees wide, pi high.
    EXPECT_NEAR(Design.MapXMax - Design.MapXMin, 4.442883, 1e-6);
    EXPECT_NEAR(Design.MapYMax - Design.MapYMin, 3.141593, 1e-6);
}

TEST_F(StartingUp, GridIsLinesInBlack) {
    EXPECT_EQ(Design.GridTypeCode, 3);
    EXPECT_EQ(Design.GridTypeText, " All grid points connected by lines");
    EXPECT_EQ(ColorBits(Design.GridColor), 0U);
    EXPECT_EQ(ColorBits(Design.BackColor), 0xFFFFFFU);
    EXPECT_EQ(Design.GridLineWidth, 15.0F);
}

TEST_F(StartingUp, WindowIsFittedOnce) {
    // 1280 x 924 pixels of 15 twips, less one pixel.
    EXPECT_EQ(Design.ClientWidth, 19185);
    EXPECT_EQ(Design.ClientHeight, 13845);
}

TEST_F(StartingUp, WorldMapLiesInTheProgramsFolder) {
    EXPECT_EQ(Design.AppPath, "/program/");
    EXPECT_EQ(Design.MapFileDefault, "/program/Qmnt4.map");
    EXPECT_EQ(Design.HelpFile, "/program/Qmnt.qch");
    EXPECT_EQ(Design.MapFileCount, 1);
    ASSERT_THAT(Design.InputFiles, SizeIs(1));
    EXPECT_EQ(Design.InputFiles[0].MapFileName, "/program/Qmnt4.map");
    EXPECT_EQ(Design.InputFiles[0].MapFileType, SymbolLine);
}

TEST_F(StartingUp, TenFeaturesOfTheWorldMapAreShown) {
    const auto& rows = Design.InputFiles[0].Features;
    for (std::size_t row = 0; row < rows.size(); ++row) {
        EXPECT_EQ(rows[row].Shown, row >= 1 && row <= 10) << row;
    }
    EXPECT_EQ(rows[1].Color, SolidColor(Rgb(0, 128, 0)));
    EXPECT_EQ(rows[1].LineWidth, 15);
    EXPECT_EQ(rows[1].SymbolSize, 45);
    EXPECT_EQ(rows[1].BorderWidth, 15);
}

TEST_F(StartingUp, EquirectangularAloneIsChecked) {
    for (const Menu menu :
         {Menu::mnuProj, Menu::mnuProjMollweide, Menu::mnuDesign, Menu::mnuInput, Menu::mnuAbout}) {
        for (const MenuEntry& entry : MenuEntries(menu)) {
            EXPECT_EQ(window.MenuChecked(menu, entry.index), entry.text == "&Equirectangular") << entry.text;
        }
    }
    EXPECT_EQ(Design.ProjMenuLast, 19);
}

TEST_F(StartingUp, NothingCanBeStopped) {
    for (const MenuEntry& entry : MenuEntries(Menu::mnuBar)) {
        EXPECT_EQ(window.MenuEnabled(Menu::mnuBar, entry.index), entry.text != "&Stop") << entry.text;
    }
}

TEST_F(StartingUp, VersionEndsInFourCharacters) { EXPECT_EQ(Design.VersionText, "3.00"); }

TEST_F(StartingUp, PrintingUnitIsTheInch) { EXPECT_EQ(Design.PrintUnitTwips, 1440); }

TEST_F(StartingUp, FineScreenMakesFinerTwips) {
    machine.screen.twipsPerPixelX = machine.screen.twipsPerPixelY = 7.5F;
    StartUp();
    EXPECT_EQ(Design.GridLineWidth, 7.5F);
    // 7.5 rounds to even.
    EXPECT_EQ(Design.InputFiles[0].Features[1].LineWidth, 8);
}

TEST_F(StartingUp, MapAcrossThe180thMeridianIsOrdinary) {
    Design.GridText[GridTextWest] = "170    00    00    E";
    Design.GridText[GridTextEast] = "170    00    00    W";
    Design.GridText[GridTextLonSpacing] = "010    00    00";
    CalcGraticule();
    EXPECT_EQ(Design.LonSpanSec, 72000);
    EXPECT_EQ(Design.LonSpan, 20.0);
    EXPECT_EQ(Design.LonZeroSec, 0);
}

TEST_F(StartingUp, AcceptedHeightOutlivesTheReturnToDefaults) {
    Design.GridText[GridTextHeight] = "00000800";
    Design.GridText[GridTextNorth] = "10    00    00    N";
    Design.ProjGridSet[ProjVerticalPerspective] = true;
    ConstantGrid();
    EXPECT_EQ(Design.GridText[GridTextHeight], "00000800");
    EXPECT_EQ(Design.GridText[GridTextNorth], "90    00    00    N");
    Design.ProjGridSet[ProjVerticalPerspective] = false;
    ConstantGrid();
    EXPECT_EQ(Design.GridText[GridTextHeight], "00035840");
}

} // namespace
} // namespace quelmont
