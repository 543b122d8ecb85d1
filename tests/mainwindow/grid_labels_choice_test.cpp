#include "annotation/text_picture.h"
#include "core/file_numbers.h"
#include "core/map_design.h"
#include "designfile/cnf_read.h"
#include "designfile/cnf_save.h"
#include "mainwindow/commands.h"
#include "mainwindow/kept_grid_labels.h"
#include "mainwindow/main_menu.h"
#include "mainwindow/map_draw.h"
#include "mainwindow/settings.h"
#include "mainwindow/started_program.h"
#include "support/temporary_folder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>

namespace quelmont {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::Pair;
using testing::SizeIs;

/// Grid labels by the menu of a program whose settings have a folder.
class GridLabelsChoice : public StartedProgram {
protected:
    GridLabelsChoice() {
        SetFileDeviceMaker(nullptr); // files of the system
        machine.places.programFolder = folder.Path() + "/";
        machine.places.settingsFolder.clear();
    }
    void Choose(int place, int style) {
        machine.forms.Script("GridLabelsForm", [=](Form& form) {
            form.Choose("GridLabelPlace", place);
            form.Choose("GridLabelStyle", style);
            form.PressDefault();
        });
        ClickMenuItem(Menu::mnuDesign, GridLabelsItem);
    }
    bool WindowHas(const std::string& text) {
        const auto& texts = window.surface.Texts();
        return std::any_of(texts.begin(), texts.end(),
                           [&](const RecordedText& drawn) { return drawn.text == text; });
    }

    TemporaryFolder folder;
};

TEST_F(GridLabelsChoice, IsAnnouncedAndKept) {
    machine.changes.accepted.clear();
    Choose(1, 1);
    EXPECT_THAT(machine.changes.accepted, ElementsAre(Pair("Grid Labels...", testing::_)));
    EXPECT_EQ(Design.GridLabels.place, GridLabelPlace::Frame);
    Design.GridLabels = {};
    ReadSettings();
    EXPECT_EQ(Design.GridLabels.place, GridLabelPlace::Frame);
    EXPECT_EQ(Design.GridLabels.style, GridLabelStyle::Letter);
}

TEST_F(GridLabelsChoice, ThatStaysTheSameIsNotAnnounced) {
    machine.changes.accepted.clear();
    Choose(0, 0);
    EXPECT_THAT(machine.changes.accepted, IsEmpty());
}

TEST_F(GridLabelsChoice, ShowsWithTheNextDraw) {
    Design.InputFiles.clear();
    Design.MapFileCount = 0;
    MapDraw();
    EXPECT_FALSE(WindowHas("30\u00B0N"));
    Choose(1, 0);
    MapDraw();
    EXPECT_TRUE(WindowHas("30\u00B0N"));
    window.surface.Forget();
    Choose(2, 2);
    MapDraw();
    EXPECT_TRUE(WindowHas("-30"));
    EXPECT_THAT(Design.TextItems, IsEmpty());
}

TEST_F(GridLabelsChoice, PictureOfAStoppedDrawGetsNoLabelsOfTheDrawBefore) {
    Design.InputFiles.clear();
    Design.MapFileCount = 0;
    Design.Frame.unit = ScaleBarUnit::Kilometres;
    Choose(1, 0);
    MapDraw();
    window.surface.Forget();
    ShowTexts();
    EXPECT_TRUE(WindowHas("30\u00B0N"));
    EXPECT_TRUE(WindowHas("0"));
    machine.pump.At(machine.pump.calls + 3, EscapeKey);
    MapDraw();
    window.surface.Forget();
    ShowTexts();
    EXPECT_THAT(window.surface.Texts(), IsEmpty());
}

TEST_F(GridLabelsChoice, IsNoPartOfADesign) {
    Design.CnfFileName = folder / "a.cnf";
    ASSERT_TRUE(CnfSave());
    Choose(2, 1);
    Design.Fonts[GridLabelFontSlot].FontName = "Times";
    ASSERT_TRUE(CnfRead());
    EXPECT_EQ(Design.GridLabels.place, GridLabelPlace::Lines);
    EXPECT_EQ(Design.GridLabels.style, GridLabelStyle::Letter);
    EXPECT_EQ(Design.Fonts[GridLabelFontSlot].FontName, "Times");
}

TEST_F(GridLabelsChoice, FontIsALineOfTheSettings) {
    EXPECT_EQ(GridLabelFontText(), "10,0,0,0,0,0,Arial");
    TakeGridLabelFont("14,255,1,0,1,0,Font, with a comma");
    const TextLook& look = Design.Fonts[GridLabelFontSlot];
    EXPECT_EQ(look.FontName, "Font, with a comma");
    EXPECT_EQ(look.FontSize, 14);
    EXPECT_EQ(look.FontColour, SolidColor(255));
    EXPECT_TRUE(look.FontBold && look.FontUnderline);
    EXPECT_FALSE(look.FontItalic || look.FontStrikeout);
    EXPECT_EQ(GridLabelFontText(), "14,255,1,0,1,0,Font, with a comma");
}

TEST_F(GridLabelsChoice, LineThatMeansNothingLeavesIt) {
    for (const char* text : {"", "Arial", "10,0,0,0,0,0", "10,0,0,0,0,0,", "3,0,0,0,0,0,Arial",
                             "201,0,0,0,0,0,Arial", "10,16777216,0,0,0,0,Arial", "10,0,2,0,0,0,Arial",
                             "10,-1,0,0,0,0,Arial", "ten,0,0,0,0,0,Arial", "99999999999,0,0,0,0,0,Arial"}) {
        TakeGridLabelFont(text);
        EXPECT_EQ(GridLabelFontText(), "10,0,0,0,0,0,Arial") << text;
    }
    TakeGridLabelPlace("everywhere");
    TakeGridLabelStyle("");
    EXPECT_EQ(Design.GridLabels, GridLabelChoice());
}

} // namespace
} // namespace quelmont
