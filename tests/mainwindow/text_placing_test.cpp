#include "mainwindow/text_placing.h"

#include "annotation/text_picture.h"
#include "core/run_time_error.h"
#include "mainwindow/commands.h"
#include "mainwindow/main_menu.h"
#include "mainwindow/main_window_state.h"
#include "mainwindow/map_draw.h"
#include "mainwindow/started_program.h"
#include "mapfiles/feature_rows.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>
#include <vector>

namespace quelmont {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

constexpr const char* Caption = "Quelmont: Equirectangular projection";

/// The window is 1280 x 924 pixels of 15 twips. Letters of 10 points are 13 pixels high with a descent of 3,
/// and 6 pixels wide.
class PlacingText : public StartedProgram {
protected:
    /// By the dialog of the Design Map menu.
    void TakeText(const std::string& text, const std::string& rotation = "000") {
        machine.forms.Script("TextAdd", [=](Form& form) {
            form.Type("TextStrings", text);
            form.Type("TextRotation", rotation);
            form.PressDefault();
        });
        ClickMenuItem(Menu::mnuDesign, AddTextItem);
    }
    /// Takes the item of a line in the same dialog, with another text.
    void EditText(int line, const std::string& text) {
        machine.forms.Script("TextAdd", [=](Form& form) {
            form.Choose("TextStrings", line);
            form.Type("TextStrings", text);
            form.PressDefault();
        });
        ClickMenuItem(Menu::mnuDesign, AddTextItem);
    }
    /// Anchor of the preview in pixels.
    SurfacePoint PreviewAt() const {
        return window.preview.Texts().empty() ? SurfacePoint{-1, -1} : window.preview.Texts().front().anchor;
    }
    /// Texts that were painted into the picture since the picture was put back last.
    std::vector<std::string> Painted() const {
        std::vector<std::string> texts;
        for (const SurfaceCall& call : surface.Calls()) {
            if (call.op == SurfaceOp::PutBackPicture) {
                texts.clear();
            } else if (call.op == SurfaceOp::TextOutA) {
                texts.push_back(call.text);
            }
        }
        return texts;
    }
    int TimesPutBack() const {
        int times = 0;
        for (const SurfaceCall& call : surface.Calls()) {
            times += call.op == SurfaceOp::PutBackPicture ? 1 : 0;
        }
        return times;
    }
    void ExpectNothingInHand() {
        EXPECT_FALSE(Design.TextPending);
        EXPECT_FALSE(Design.TextIsEdit);
        EXPECT_EQ(Design.CurrentText, "");
        EXPECT_FALSE(window.previewShown);
        EXPECT_EQ(window.pointer, MousePointer::Normal);
        EXPECT_EQ(window.caption, Caption);
    }
    static TextItem Item(const std::string& text, std::int32_t x, std::int32_t y) {
        TextItem item;
        item.TextString = text;
        item.TextFont = "Times";
        item.TextSize = 24;
        item.TextX = x;
        item.TextY = y;
        return item;
    }
};

TEST_F(PlacingText, BeginsInTheMiddleAndFollowsTheMouse) {
    TakeText("Nuuk");
    EXPECT_TRUE(window.previewShown);
    EXPECT_EQ(PreviewAt(), (SurfacePoint{640, 462}));
    EXPECT_EQ(window.pointer, MousePointer::Cross) << "a click puts it down";
    EXPECT_EQ(window.caption, "Quelmont:  x = 09600   y = 06930");
    Form_MouseMove(1234, 567);
    EXPECT_EQ(PreviewAt(), (SurfacePoint{82, 38})) << "82.27 and 37.8 pixels";
    EXPECT_EQ(window.caption, "Quelmont:  x = 01234   y = 00567");
    EXPECT_EQ(window.preview.Texts().front().text, "Nuuk");
    EXPECT_THAT(Design.TextItems, IsEmpty());
    EXPECT_THAT(surface.Texts(), IsEmpty()) << "nothing of it comes into the picture";
}

TEST_F(PlacingText, ClickDropsItAndAMenuKeepsItThere) {
    Design.Fonts[TextFontSlot] = {
        .FontName = "Times", .FontSize = 30, .FontColour = SolidColor(Rgb(1, 2, 3)), .FontItalic = true};
    TakeText("Nuuk", "030");
    Form_MouseDown(3000, 4500);
    EXPECT_EQ(window.pointer, MousePointer::Hand) << "a click takes it up";
    Form_MouseMove(9000, 9000);
    EXPECT_EQ(PreviewAt(), (SurfacePoint{200, 300})) << "it stays where it was dropped";
    EXPECT_EQ(window.caption, "Quelmont:  x = 03000   y = 04500");
    EXPECT_THAT(Design.TextItems, IsEmpty()) << "not fixed yet";
    ClickMenuItem(Menu::mnuBar, HelpTitle);
    ExpectNothingInHand();
    ASSERT_EQ(Design.TextItems.size(), 1U);
    const TextItem& item = Design.TextItems.front();
    EXPECT_EQ(item.TextString, "Nuuk");
    EXPECT_EQ(item.TextAngle, 30);
    EXPECT_EQ(item.TextFont, "Times");
    EXPECT_EQ(item.TextSize, 30);
    EXPECT_EQ(item.TextColour, SolidColor(Rgb(1, 2, 3)));
    EXPECT_TRUE(item.TextItalic);
    EXPECT_FALSE(item.TextBold || item.TextUnderline || item.TextStrikeout);
    EXPECT_EQ(item.TextX, 3000);
    EXPECT_EQ(item.TextY, 4500);
    // 40 pixels high: a descent of 10, characters 20 wide.
    EXPECT_EQ(item.TextWidth, 300);
    EXPECT_EQ(item.TextHeight, 600);
    EXPECT_EQ(item.TextDescent, 150);
    EXPECT_EQ(item.TextCellHeight, 750);
    EXPECT_TRUE(item.TextPlaced);
    EXPECT_FALSE(item.TextFromLabel);
    EXPECT_THAT(Painted(), ElementsAre("Nuuk")) << "the picture has it without a draw of the map";
    EXPECT_EQ(machine.clock.beeps, 0);
}

TEST_F(PlacingText, FurtherClickLiftsItToTheMouse) {
    TakeText("Nuuk");
    Form_MouseDown(3000, 4500);
    Form_MouseDown(6000, 1500);
    EXPECT_EQ(window.pointer, MousePointer::Cross);
    EXPECT_EQ(PreviewAt(), (SurfacePoint{400, 100}));
    Form_MouseMove(6150, 1650);
    EXPECT_EQ(PreviewAt(), (SurfacePoint{410, 110}));
    Form_MouseDown(6300, 1800);
    TextDone();
    EXPECT_EQ(Design.TextItems.at(0).TextX, 6300);
    EXPECT_EQ(Design.TextItems.at(0).TextY, 1800);
}

TEST_F(PlacingText, BlankIsAClickWhereTheTextIs) {
    TakeText("Nuuk");
    Form_MouseMove(3000, 4500);
    EXPECT_TRUE(Form_KeyDown(BlankKey));
    EXPECT_EQ(window.pointer, MousePointer::Hand);
    Form_MouseMove(0, 0);
    EXPECT_EQ(PreviewAt(), (SurfacePoint{200, 300}));
    EXPECT_TRUE(Form_KeyDown(BlankKey));
    EXPECT_EQ(PreviewAt(), (SurfacePoint{200, 300})) << "until the mouse is moved";
    Form_MouseMove(150, 150);
    EXPECT_EQ(PreviewAt(), (SurfacePoint{10, 10}));
    Form_KeyDown(BlankKey);
    EscapeKey();
    ASSERT_EQ(Design.TextItems.size(), 1U);
    EXPECT_EQ(Design.TextItems[0].TextX, 150);
}

TEST_F(PlacingText, ArrowsMoveItByTheStepThatADigitSets) {
    TakeText("Nuuk");
    Form_MouseDown(3000, 4500);
    Form_KeyDown(RightKey);
    EXPECT_EQ(PreviewAt(), (SurfacePoint{210, 300})) << "ten pixels as the program starts";
    Form_KeyDown(TwoKey);
    EXPECT_EQ(Design.TextStep, 75.0F);
    Form_KeyDown(DownKey);
    EXPECT_EQ(PreviewAt(), (SurfacePoint{210, 305}));
    Form_KeyDown(OneKey);
    EXPECT_EQ(Design.TextStep, 15.0F);
    Form_KeyDown(LeftKey);
    Form_KeyDown(UpKey);
    EXPECT_EQ(PreviewAt(), (SurfacePoint{209, 304}));
    Form_KeyDown(ThreeKey);
    EXPECT_EQ(Design.TextStep, 150.0F);
    EXPECT_EQ(window.caption, "Quelmont:  x = 03135   y = 04560");
    TextDone();
    EXPECT_EQ(Design.TextItems.at(0).TextX, 3135);
    EXPECT_EQ(Design.TextItems.at(0).TextY, 4560);
}

TEST_F(PlacingText, ArrowsKeepItOnTheDrawingArea) {
    TakeText("Nuuk");
    Form_MouseDown(100, 100);
    Form_KeyDown(LeftKey);
    Form_KeyDown(UpKey);
    EXPECT_EQ(PreviewAt(), (SurfacePoint{0, 0}));
    Form_KeyDown(LeftKey);
    EXPECT_EQ(PreviewAt(), (SurfacePoint{0, 0}));
    Form_MouseDown(19199, 13859);
    Form_KeyDown(BlankKey);
    Form_KeyDown(RightKey);
    Form_KeyDown(DownKey);
    EXPECT_EQ(Design.CurrentX, 19200);
    EXPECT_EQ(Design.CurrentY, 13860);
}

TEST_F(PlacingText, ItemBeyondTheAreaComesNoFartherOut) {
    Design.TextItems = {Item("far", 30'000, -500)};
    EditText(0, "far");
    Form_KeyDown(RightKey);
    Form_KeyDown(UpKey);
    EXPECT_EQ(Design.CurrentX, 30'000);
    EXPECT_EQ(Design.CurrentY, -500);
    Form_KeyDown(LeftKey);
    Form_KeyDown(DownKey);
    EXPECT_EQ(Design.CurrentX, 29'850);
    EXPECT_EQ(Design.CurrentY, -350);
}

TEST_F(PlacingText, KeysMeanNothingWithoutAText) {
    for (const int key : {BlankKey, LeftKey, UpKey, RightKey, DownKey, OneKey, TwoKey, ThreeKey}) {
        EXPECT_FALSE(Form_KeyDown(key));
    }
    EXPECT_EQ(Design.TextStep, 150.0F);
    Form_MouseMove(3000, 3000);
    Form_MouseDown(3000, 3000);
    EXPECT_EQ(window.caption, Caption);
    EXPECT_EQ(window.previews, 0);
    EXPECT_EQ(MainWindowNow.TextCursorX, 3000);
}

TEST_F(PlacingText, TextThatWasNeverDroppedIsGivenUp) {
    for (const bool byEscape : {false, true}) {
        TakeText("Nuuk");
        Form_MouseMove(3000, 4500);
        if (byEscape) {
            EscapeKey();
        } else {
            ClickMenuItem(Menu::mnuBar, FileTitle);
        }
        ExpectNothingInHand();
        EXPECT_THAT(Design.TextItems, IsEmpty());
        EXPECT_EQ(TimesPutBack(), 0);
    }
}

TEST_F(PlacingText, TextThatWasLiftedAgainStaysWhereItWasDroppedLast) {
    TakeText("Nuuk");
    Form_MouseDown(3000, 4500);
    Form_MouseDown(6000, 6000);
    EscapeKey();
    ASSERT_EQ(Design.TextItems.size(), 1U);
    EXPECT_EQ(Design.TextItems[0].TextX, 3000);
    EXPECT_EQ(Design.TextItems[0].TextY, 4500);
}

TEST_F(PlacingText, EscapeEndsThePlacingAndNothingElse) {
    Design.PlotStopReason = StopReason::None;
    TakeText("Nuuk");
    Form_MouseDown(3000, 4500);
    EscapeKey();
    EXPECT_EQ(Design.PlotStopReason, StopReason::None);
    ExpectNothingInHand();
    EXPECT_EQ(Design.TextItems.size(), 1U);
    EscapeKey();
    EXPECT_EQ(Design.TextItems.size(), 1U) << "and a second Escape does nothing";
    EXPECT_EQ(TimesPutBack(), 1);
}

TEST_F(PlacingText, TextThatWasPlacedIsReportedAsAChange) {
    TakeText("Nuuk");
    Form_MouseDown(3000, 4500);
    EXPECT_THAT(machine.changes.accepted, IsEmpty()) << "it is still in hand";
    EscapeKey();
    EXPECT_THAT(machine.changes.accepted,
                ElementsAre(std::pair(std::string("Add Text to Map"), ChangeKind::Look)));
}

TEST_F(PlacingText, EveryMenuEndsIt) {
    for (const int title : {FileTitle, ProjectionTitle, DesignTitle, HelpTitle}) {
        Design.TextItems.clear();
        TakeText("Nuuk");
        Form_MouseDown(3000, 4500);
        ClickMenuItem(Menu::mnuBar, title);
        ExpectNothingInHand();
        EXPECT_EQ(Design.TextItems.size(), 1U);
    }
}

TEST_F(PlacingText, DrawMapFirstFixesTheTextAndThenDrawsIt) {
    PutMap(1);
    TakeText("Nuuk");
    Form_MouseDown(3000, 4500);
    machine.forms.Script("MapReduce", [](Form& form) {
        EXPECT_EQ(Design.TextItems.size(), 1U);
        form.PressDefault();
    });
    ClickMenuItem(Menu::mnuBar, DrawTitle);
    EXPECT_EQ(machine.clock.beeps, 1);
    ExpectNothingInHand();
    EXPECT_EQ(surface.Texts().back().text, "Nuuk");
}

TEST_F(PlacingText, NoDrawStartsWhileItFollows) {
    PutMap(1);
    TakeText("Nuuk");
    Design.OutputCgm = true;
    MapDraw();
    EXPECT_EQ(machine.clock.beeps, 0);
    EXPECT_EQ(Design.CurrentText, "Nuuk");
    EXPECT_TRUE(window.previewShown);
    EXPECT_FALSE(Design.OutputCgm) << "nor at the next one";
    TextDone();
}

TEST_F(PlacingText, CancelledDialogPlacesNothing) {
    machine.forms.Script("TextAdd", [](Form& form) {
        form.Type("TextStrings", "Nuuk");
        form.PressCancel();
    });
    ClickMenuItem(Menu::mnuDesign, AddTextItem);
    EXPECT_FALSE(Design.DialogCancelled);
    EXPECT_EQ(window.previews, 0);
    ExpectNothingInHand();
}

TEST_F(PlacingText, EmptyTextPlacesNothing) {
    TakeText("");
    EXPECT_EQ(window.previews, 0);
    ExpectNothingInHand();
    TextPrint(100, 100);
    EXPECT_EQ(window.previews, 0) << "nothing to draw";
}

// ---- Editing.

TEST_F(PlacingText, EditedItemBeginsDroppedInItsOwnPlace) {
    Design.TextItems = {Item("one", 1500, 1500), Item("two", 3000, 3000), Item("three", 4500, 4500)};
    EditText(1, "deux");
    EXPECT_EQ(window.pointer, MousePointer::Hand);
    EXPECT_EQ(PreviewAt(), (SurfacePoint{200, 200}));
    EXPECT_EQ(window.preview.Texts().front().text, "deux");
    EXPECT_EQ(window.preview.Texts().front().font.face, "Times");
    EXPECT_EQ(window.caption, "Quelmont:  x = 03000   y = 03000");
    EXPECT_THAT(Painted(), ElementsAre("one", "three")) << "it is gone from the picture";
    EscapeKey();
    ExpectNothingInHand();
    ASSERT_EQ(Design.TextItems.size(), 3U);
    EXPECT_EQ(Design.TextItems[1].TextString, "deux");
    EXPECT_EQ(Design.TextItems[1].TextX, 3000);
    EXPECT_EQ(Design.TextItems[1].TextSize, 24);
    EXPECT_THAT(Painted(), ElementsAre("one", "deux", "three")) << "in their order";
}

TEST_F(PlacingText, EditedItemIsMovedInItsSlot) {
    Design.TextItems = {Item("one", 1500, 1500), Item("two", 3000, 3000)};
    EditText(0, "uno");
    Form_MouseDown(6000, 6000);
    Form_MouseDown(7500, 7500);
    TextDone();
    ASSERT_EQ(Design.TextItems.size(), 2U);
    EXPECT_EQ(Design.TextItems[0].TextString, "uno");
    EXPECT_EQ(Design.TextItems[0].TextX, 7500);
    EXPECT_EQ(Design.TextItems[1].TextString, "two");
}

TEST_F(PlacingText, ItemOfALabelStaysOneWhenItIsEdited) {
    Design.TextItems = {Item("Geneva", 1500, 1500), Item("Bern", 3000, 3000)};
    Design.TextItems[0].TextFromLabel = true;
    EditText(0, "Genève");
    TextDone();
    EXPECT_TRUE(Design.TextItems[0].TextFromLabel);
    EXPECT_FALSE(Design.TextItems[0].TextPlaced);
    EditText(1, "Berne");
    TextDone();
    EXPECT_FALSE(Design.TextItems[1].TextFromLabel);
    EXPECT_TRUE(Design.TextItems[1].TextPlaced);
}

TEST_F(PlacingText, TextsAreShownAnewOverTheMapAsItWas) {
    Design.TextItems = {Item("one", 1500, 1500)};
    Design.CurrentText = "in hand";
    Design.CurrentX = 77;
    ShowTexts();
    EXPECT_EQ(TimesPutBack(), 1);
    EXPECT_THAT(Painted(), ElementsAre("one"));
    EXPECT_EQ(surface.Calls().back().op, SurfaceOp::Refresh);
    EXPECT_EQ(Design.CurrentText, "in hand");
    EXPECT_EQ(Design.CurrentX, 77);
}

TEST_F(PlacingText, DrawKeepsTheMapBeforeItsTexts) {
    PutMap(1);
    Design.TextItems = {Item("one", 1500, 1500)};
    MapDraw();
    bool kept = false;
    for (const SurfaceCall& call : surface.Calls()) {
        EXPECT_FALSE(kept && call.op == SurfaceOp::LineTo) << "the whole map";
        EXPECT_FALSE(!kept && call.op == SurfaceOp::TextOutA) << "and no text";
        kept = kept || call.op == SurfaceOp::KeepPicture;
    }
    EXPECT_TRUE(kept);
    EXPECT_EQ(surface.Texts().size(), 1U);
}

TEST_F(PlacingText, DrawThatFailsInAMapFileKeepsWhatItDrew) {
    Design.InputFiles[0].MapFileName = "/maps/gone.map";
    Design.TextItems = {Item("one", 1500, 1500)};
    MapDraw();
    EXPECT_FALSE(machine.boxes.Taken().empty());
    std::vector<SurfaceOp> order;
    for (const SurfaceCall& call : surface.Calls()) {
        if (call.op == SurfaceOp::KeepPicture || call.op == SurfaceOp::TextOutA) {
            order.push_back(call.op);
        }
    }
    EXPECT_THAT(order, ElementsAre(SurfaceOp::KeepPicture, SurfaceOp::TextOutA));
}

TEST_F(PlacingText, LabelsAreNoPartOfTheMapThatIsKept) {
    files.Put("/maps/towns.prn", "1 60 10 \"Oslo\"\n");
    Design.InputFiles = {NewMapFileEntry("/maps/towns.prn")};
    Design.TextItems = {Item("one", 1500, 1500)};
    MapDraw();
    EXPECT_THAT(Painted(), ElementsAre("Oslo", "one"));
    ShowTexts();
    EXPECT_THAT(Painted(), ElementsAre("Oslo", "one")) << "they are drawn again";
    machine.forms.Script("SelectLabelOption", [](Form& form) {
        form.Choose("LabelOption", 0);
        form.PressDefault();
    });
    ClickMenuItem(Menu::mnuDesign, LabelsItem);
    EXPECT_THAT(Painted(), ElementsAre("one")) << "hidden at once";
    EXPECT_EQ(machine.clock.beeps, 1);
    bool kept = false;
    for (const SurfaceCall& call : surface.Calls()) {
        kept = kept || call.op == SurfaceOp::KeepPicture;
        EXPECT_FALSE(!kept && call.op == SurfaceOp::TextOutA);
    }
}

// ---- The box of the preview.

TEST_F(PlacingText, PreviewBoxCoversTheTurnedText) {
    for (const int angle : {0, 30, 90, 135, 180, 270, 359}) {
        TakeText("Nuuk", std::to_string(1000 + angle).substr(1));
        Form_MouseDown(9600, 6930);
        const double turn = angle * std::acos(-1.0) / 180.0;
        // Four characters of six pixels, 13 above the baseline and three below it.
        for (const double along : {0.0, 24.0}) {
            for (const double up : {-3.0, 13.0}) {
                const double x = 640 + along * std::cos(turn) - up * std::sin(turn);
                const double y = 462 - along * std::sin(turn) - up * std::cos(turn);
                EXPECT_GE(x, window.previewBox.left) << angle;
                EXPECT_LE(x, window.previewBox.left + window.previewBox.width) << angle;
                EXPECT_GE(y, window.previewBox.top) << angle;
                EXPECT_LE(y, window.previewBox.top + window.previewBox.height) << angle;
            }
        }
        EXPECT_EQ(window.preview.Texts().front().font.font.escapement, angle * 10);
        TextDone();
    }
}

TEST_F(PlacingText, LongTextsHaveABoxToo) {
    TakeText(std::string(10'000, 'W'), "045");
    EXPECT_GT(window.previewBox.width, 10'000 * 4);
    EXPECT_EQ(window.preview.Texts().front().text.size(), 10'000U);
    EXPECT_THAT(machine.boxes.asked, IsEmpty());
    TextDone();
}

// ---- Captions and failures.

TEST_F(PlacingText, CaptionWithThePixelSizeComesBackWithTheSizeOfNow) {
    ClickMenuItem(Menu::mnuDesign, PixelSizeItem);
    TakeText("Nuuk");
    EXPECT_EQ(window.caption, "Quelmont:  x = 09600   y = 06930");
    window.scaleWidth = 12'000.0;
    ToggleCaption();
    EXPECT_EQ(window.caption, "Quelmont:  x = 09600   y = 06930") << "a resize leaves the place";
    EXPECT_EQ(PreviewAt(), (SurfacePoint{640, 462})) << "and the preview";
    TextDone();
    EXPECT_EQ(window.caption, std::string("800,924 = x, y Pixels   |") + Caption);
}

TEST_F(PlacingText, FailedMeasuresAreReportedOnceForEachText) {
    machine.fonts.metricsFail = true;
    TakeText("Nuuk");
    Form_MouseMove(3000, 3000);
    Form_MouseMove(3000, 4500);
    EXPECT_THAT(Told(machine.boxes.Taken()),
                ElementsAre("Windows API Error: GetTextMetrics error in Quelmont: TextPrint"));
    EXPECT_EQ(window.previews, 0);
    Form_MouseDown(3000, 4500);
    TextDone();
    EXPECT_THAT(Told(machine.boxes.Taken()),
                ElementsAre("Windows API Error: GetTextMetrics error in TextDone"));
    EXPECT_EQ(Design.TextItems.at(0).TextHeight, 0);
    machine.fonts.metricsFail = false;
    machine.fonts.extentFails = true;
    TakeText("Oslo");
    Form_MouseMove(3000, 3000);
    EXPECT_THAT(Told(machine.boxes.Taken()),
                ElementsAre("Windows API Error: GetTextExtentPoint32 error in Quelmont: TextPrint"));
    TextDone();
}

TEST_F(PlacingText, SizeWithoutMeasuresGivesTheTextUp) {
    Design.TextItems = {Item("one", 1500, 1500)};
    Design.TextItems[0].TextSize = 30'000; // 40 000 pixels, too many twips
    EditText(0, "uno");
    TextDone();
    EXPECT_THAT(Told(machine.boxes.Taken()), ElementsAre("Error in TextDone: Error: Overflow"));
    EXPECT_EQ(Design.TextItems.at(0).TextString, "one");
    ExpectNothingInHand();
}

TEST_F(PlacingText, PlaceOutsideOfAllNumbersIsReportedAndIgnored) {
    TakeText("Nuuk");
    Form_MouseMove(1e12, 0.0);
    EXPECT_THAT(Told(machine.boxes.Taken()), ElementsAre("Error in Form_MouseMove: Error: Overflow"));
    EXPECT_EQ(PreviewAt(), (SurfacePoint{640, 462}));
    TextDone();
}

} // namespace
} // namespace quelmont
