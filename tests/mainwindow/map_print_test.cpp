#include "mainwindow/map_print.h"

#include "core/file_numbers.h"
#include "core/rounding.h"
#include "graticule/lobes.h"
#include "mainwindow/commands.h"
#include "mainwindow/design_commands.h"
#include "mainwindow/main_menu.h"
#include "mainwindow/main_window_state.h"
#include "mainwindow/map_draw.h"
#include "mainwindow/started_program.h"
#include "mainwindow/text_placing.h"
#include "mapfiles/feature_rows.h"
#include "output/output_state.h"
#include "output/print/page_layout.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>

namespace quelmont {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

constexpr ColorValue Black = Rgb(0, 0, 0);

/// The started program with an A4 printer of 300 dots that cannot reach 71 of them at each side, and the
/// map 6.5 inches wide, an inch from the left and the top.
///
/// The window has 19200 by 13860 twips: the map on paper is 0.4875 times as large, 9360 by 6757 twips, or
/// 1950 by 1408 dots, from (229, 229) on.
class Printing : public StartedProgram {
protected:
    Printing() { printer.stripMillimetres = 6.0; }

    /// What a print has to leave as it was.
    void ExpectNothingLeft() {
        ExpectIdle();
        EXPECT_FALSE(Design.PrintingNow);
        EXPECT_FALSE(Design.PrintAbort);
        EXPECT_FALSE(MainWindowNow.PageEnding);
        EXPECT_EQ(OutputNow.PrinterSurface, nullptr);
        EXPECT_EQ(printer.openJobs, 0);
        EXPECT_EQ(printer.surface.LiveObjects(), objectsBefore);
        EXPECT_EQ(Design.ClientWidth, 19185) << "that of the window again";
        EXPECT_EQ(Design.ClientHeight, 13845);
    }

    ScriptedPrinter& printer = machine.printers.printer;
    RecordingSurface& page = printer.surface;
};

struct Extent {
    std::int32_t left = 1 << 30, top = 1 << 30, right = -(1 << 30), bottom = -(1 << 30);
};

Extent ExtentOf(const std::vector<RecordedSegment>& segments) {
    Extent extent;
    for (const RecordedSegment& segment : segments) {
        for (const SurfacePoint& point : {segment.from, segment.to}) {
            extent.left = std::min(extent.left, point.x);
            extent.top = std::min(extent.top, point.y);
            extent.right = std::max(extent.right, point.x);
            extent.bottom = std::max(extent.bottom, point.y);
        }
    }
    return extent;
}

TEST_F(Printing, IsOneJobOfOnePageClippedToTheMap) {
    EXPECT_TRUE(MapPrint(printer));
    // The clip goes two dots beyond the right and bottom edge.
    EXPECT_THAT(printer.log, ElementsAre("Open portrait", "SelectClip 229 229 2181 1639", "StartDoc Quelmont",
                                         "StartPage", "EndPage", "EndDoc", "Close"));
    EXPECT_THAT(machine.boxes.asked, IsEmpty());
    ExpectNothingLeft();
}

TEST_F(Printing, OrientationIsThatOfTheDesign) {
    Design.PrinterOrientation = Landscape;
    MapPrint(printer);
    EXPECT_EQ(printer.log.front(), "Open landscape");
}

TEST_F(Printing, BackgroundGoesALittleBeyondTheClip) {
    MapPrint(printer);
    EXPECT_THAT(page.CallsOf(SurfaceOp::Rectangle),
                ElementsAre(SurfaceCall{SurfaceOp::Rectangle, {228, 228, 2182, 1640}}));
}

TEST_F(Printing, MapFillsItsPlaceOnThePage) {
    MapPrint(printer);
    const Extent extent = ExtentOf(page.Segments());
    // The map is 0.7071 times as high as wide: 6618.5 of 6757 twips, in the middle: from 69.2 to 6687.8,
    // that is from 14 to 1393 dots.
    EXPECT_EQ(extent.left, 229);
    EXPECT_EQ(extent.right, 229 + 1950);
    EXPECT_EQ(extent.top, 229 + 14);
    EXPECT_EQ(extent.bottom, 229 + 1393);
}

TEST_F(Printing, LinesHaveTheirShareOfTheMap) {
    Design.GridLineWidth = 45.0F; // three pixels in the window
    MapPrint(printer);
    // 45 * 0.4875 / 4.8 = 4.57 dots; the coasts, a pixel wide, 1.52.
    for (const RecordedSegment& segment : page.Segments()) {
        EXPECT_EQ(segment.pen.width, ColorBits(segment.pen.color) == Black ? 5 : 2);
    }
}

TEST_F(Printing, UnscaledLinesCountDots) {
    Design.LineWidthsScaled = false;
    Design.GridLineWidth = 45.0F;
    MapPrint(printer);
    for (const RecordedSegment& segment : page.Segments()) {
        EXPECT_EQ(segment.pen.width, ColorBits(segment.pen.color) == Black ? 3 : 1);
    }
}

TEST_F(Printing, SymbolsHaveTheirShareOfTheMap) {
    Design.InputFiles[0].MapFileType = SymbolFilledCircle;
    MapPrint(printer);
    const std::vector<SurfaceCall> circles = page.CallsOf(SurfaceOp::Ellipse);
    ASSERT_THAT(circles, SizeIs(8));
    // A radius of 45 twips is 4.57 dots: 9 or 10 across, as the ends are rounded.
    for (const SurfaceCall& circle : circles) {
        EXPECT_NEAR(static_cast<double>(circle.numbers[2] - circle.numbers[0]), 9.14, 0.9);
    }
}

TEST_F(Printing, DrawsWhatTheWindowShows) {
    MapDraw();
    const std::size_t segments = surface.Segments().size();
    MapPrint(printer);
    EXPECT_EQ(page.Segments().size(), segments);
}

TEST_F(Printing, LeavesThePictureInTheWindow) {
    MapDraw();
    surface.Forget();
    MapPrint(printer);
    EXPECT_THAT(surface.Calls(), IsEmpty());
    EXPECT_EQ(machine.clock.beeps, 1) << "that of the draw";
}

TEST_F(Printing, NextDrawIsTheSame) {
    MapDraw();
    const std::vector<RecordedSegment> before = surface.Segments();
    MapPrint(printer);
    surface.Forget();
    MapDraw();
    EXPECT_EQ(surface.Segments(), before);
    ExpectNothingLeft();
}

TEST_F(Printing, OnlyStopIsThereMeanwhileAndTheCaptionTellsIt) {
    std::vector<std::string_view> enabled;
    machine.pump.At(1, [&] {
        for (const MenuEntry& entry : MenuEntries(Menu::mnuBar)) {
            if (window.MenuEnabled(Menu::mnuBar, entry.index)) {
                enabled.push_back(entry.text);
            }
        }
        EXPECT_TRUE(Design.PrintingNow);
        EXPECT_EQ(window.caption, "Quelmont: click on Stop or press Esc to stop printing");
        EXPECT_EQ(window.pointer, MousePointer::Hourglass);
    });
    MapPrint(printer);
    EXPECT_THAT(enabled, ElementsAre("&Stop"));
    ExpectNothingLeft();
}

TEST_F(Printing, PixelSizeIsRightAfterAResizeMeanwhile) {
    mnuDesign_Click(PixelSizeItem);
    machine.pump.At(1, [&] {
        ToggleCaption();
        EXPECT_EQ(window.caption, "Quelmont: click on Stop or press Esc to stop printing");
        window.scaleWidth = 15000.0;
    });
    MapPrint(printer);
    EXPECT_EQ(window.caption, "1000,924 = x, y Pixels   |Quelmont: Equirectangular projection");
}

TEST_F(Printing, TimesItself) {
    machine.clock.seconds = 1000.0;
    machine.pump.At(3, [&] { machine.clock.seconds = 1002.5; });
    MapPrint(printer);
    EXPECT_DOUBLE_EQ(Design.PlotSeconds, 2.5);
}

TEST_F(Printing, NothingElseDrawsOrPrintsMeanwhile) {
    MapPrint(printer);
    const std::size_t segments = page.Segments().size();
    page.Forget();
    printer.log.clear();
    machine.pump.At(machine.pump.calls + 2, [&] {
        MapDraw();
        EXPECT_FALSE(MapPrint(printer));
        Form_MouseDown(150.0, 300.0);
    });
    MapPrint(printer);
    EXPECT_EQ(page.Segments().size(), segments);
    EXPECT_THAT(printer.log, SizeIs(7));
    EXPECT_EQ(machine.clock.beeps, 0);
    EXPECT_EQ(MainWindowNow.TextCursorX, 0);
    ExpectNothingLeft();
}

TEST_F(Printing, TextInHandIsNotPrintedOver) {
    Design.CurrentText = "in hand";
    Design.TextPending = true;
    BeginPlacing();
    EXPECT_FALSE(MapPrint(printer));
    EXPECT_THAT(printer.log, IsEmpty());
    EXPECT_TRUE(Design.TextPending);
    EXPECT_EQ(Design.CurrentText, "in hand");
}

TEST_F(Printing, MapFileThatIsNotThereIsReportedAndTheGridIsPrinted) {
    Design.InputFiles[0].MapFileName = "/program/nowhere.map";
    EXPECT_TRUE(MapPrint(printer));
    EXPECT_THAT(machine.boxes.asked, SizeIs(1));
    EXPECT_THAT(page.Segments(), testing::Not(IsEmpty()));
    ExpectNothingLeft();
}

// ---- Failures.

struct FailingStep {
    JobStep step;
    const char* text;
    std::vector<std::string> log; ///< up to the step
    bool begun = true;            ///< so that there is something to give up
};

TEST_F(Printing, EachStepThatFailsHasItsBoxAndGivesTheJobUp) {
    const std::string clip = "SelectClip 229 229 2181 1639";
    const FailingStep steps[] = {
        {JobStep::SelectClip,
         "SelectClipRgn error(1) in MapPrint",
         {"Open portrait", clip + " failed"},
         false},
        {JobStep::StartDoc,
         "StartDoc error(1) in MapPrint",
         {"Open portrait", clip, "StartDoc Quelmont failed"},
         false},
        {JobStep::StartPage,
         "StartPage error(1) in MapPrint",
         {"Open portrait", clip, "StartDoc Quelmont", "StartPage failed"}},
        {JobStep::EndPage,
         "EndPage(1) error in MapPrint: -3",
         {"Open portrait", clip, "StartDoc Quelmont", "StartPage", "EndPage failed"}},
        {JobStep::EndDoc,
         "EndDoc(1) error in MapPrint",
         {"Open portrait", clip, "StartDoc Quelmont", "StartPage", "EndPage", "EndDoc failed"}},
    };
    printer.failureCode = -3;
    for (FailingStep step : steps) {
        printer.log.clear();
        printer.FailAt(step.step);
        EXPECT_FALSE(MapPrint(printer));
        EXPECT_THAT(machine.boxes.Taken(), ElementsAre(AskedBox{"Windows API Error", step.text}));
        if (step.begun) {
            step.log.emplace_back("Abort");
        }
        step.log.emplace_back("Close");
        EXPECT_EQ(printer.log, step.log);
        ExpectNothingLeft();
    }
}

TEST_F(Printing, PrinterThatDoesNotAnswerIsReported) {
    printer.opens = false;
    EXPECT_FALSE(MapPrint(printer));
    EXPECT_THAT(machine.boxes.Taken(),
                ElementsAre(AskedBox{"Windows API Error", "OpenPrinter(1) error in MapPrint"}));
    EXPECT_THAT(printer.log, ElementsAre("Open portrait failed"));
    ExpectNothingLeft();
}

TEST_F(Printing, PrinterThatTellsNoMeasuresIsReported) {
    printer.dotsPerInch = 0;
    EXPECT_FALSE(MapPrint(printer));
    EXPECT_THAT(machine.boxes.Taken(),
                ElementsAre(AskedBox{"Windows API Error", "DocumentProperties(1) error in MapPrint"}));
    ExpectNothingLeft();
}

TEST_F(Printing, BoxThatIsNoRegionIsReported) {
    Design.PrintWidth = -1.0F;
    EXPECT_FALSE(MapPrint(printer));
    EXPECT_THAT(machine.boxes.Taken(),
                ElementsAre(AskedBox{"Windows API Error", "CreateRectRgn error(1) in MapPrint"}));
    ExpectNothingLeft();
}

TEST_F(Printing, BoxBeyondSixteenBitsIsReported) {
    Design.PrintLeft = 120.0F; // 36000 dots
    EXPECT_FALSE(MapPrint(printer));
    EXPECT_THAT(machine.boxes.Taken(), ElementsAre(AskedBox{"Error in MapPrint", "Error: Overflow"}));
    EXPECT_THAT(printer.log, ElementsAre("Open portrait", "Close"));
    ExpectNothingLeft();
}

TEST_F(Printing, MapWithoutAWidthIsReportedBeforeAnythingIsDisabled) {
    Design.PrintWidth = 0.0F;
    EXPECT_FALSE(MapPrint(printer));
    EXPECT_THAT(machine.boxes.Taken(),
                ElementsAre(AskedBox{"Error in ScalePrinter", "Error: Division by zero"}));
    EXPECT_THAT(printer.log, IsEmpty());
    ExpectNothingLeft();
}

TEST_F(Printing, MapWithoutExtentIsReported) {
    Design.MapXMax = Design.MapXMin;
    EXPECT_FALSE(MapPrint(printer));
    const std::vector<AskedBox> boxes = machine.boxes.Taken();
    ASSERT_FALSE(boxes.empty());
    EXPECT_EQ(boxes[0], (AskedBox{"Error in MapPrint", "Error: Division by zero"}));
    EXPECT_THAT(printer.log, IsEmpty());
    EXPECT_FALSE(Design.PrintingNow);
}

TEST_F(Printing, GridThatFailsGivesTheJobUp) {
    Design.LonGrid = 0.0;
    EXPECT_FALSE(MapPrint(printer));
    EXPECT_THAT(machine.boxes.Taken(), ElementsAre(AskedBox{"Error in PlotGrid", "Error: Division by zero"}));
    EXPECT_THAT(printer.log, ElementsAre("Open portrait", "SelectClip 229 229 2181 1639", "StartDoc Quelmont",
                                         "StartPage", "EndPage", "Abort", "Close"));
    ExpectNothingLeft();
}

TEST_F(Printing, FailingBackgroundHasItsOwnBox) {
    page.FailAt(SurfaceOp::Rectangle, 0);
    EXPECT_TRUE(MapPrint(printer));
    EXPECT_THAT(machine.boxes.Taken(),
                ElementsAre(AskedBox{"Windows API Error", "Rectangle(2) error in PlotGrid"}));
}

TEST_F(Printing, FailureAfterAFailureOfTheLastPrintIsReported) {
    for (int round = 0; round < 2; ++round) {
        printer.FailAt(JobStep::EndDoc);
        MapPrint(printer);
        EXPECT_THAT(machine.boxes.Taken(), SizeIs(1));
    }
    EXPECT_TRUE(MapPrint(printer));
}

// ---- Stop.

class StoppingThePrintAt : public Printing, public testing::WithParamInterface<int> {};

TEST_P(StoppingThePrintAt, TurnEndsThePageAndGivesTheJobUp) {
    PutMap(800 * 100);
    MapDraw();
    const std::vector<RecordedSegment> before = surface.Segments();
    const int turnsOfDraw = machine.pump.calls;
    machine.pump.At(turnsOfDraw + GetParam(), EscapeKey);
    EXPECT_FALSE(MapPrint(printer));
    EXPECT_EQ(machine.pump.calls, turnsOfDraw + GetParam() + 1) << "one more while the page ends";
    EXPECT_THAT(printer.log, ElementsAre("Open portrait", "SelectClip 229 229 2181 1639", "StartDoc Quelmont",
                                         "StartPage", "EndPage", "Abort", "Close"));
    EXPECT_THAT(machine.boxes.asked, IsEmpty());
    ExpectNothingLeft();
    surface.Forget();
    MapDraw();
    EXPECT_EQ(surface.Segments(), before);
}

INSTANTIATE_TEST_SUITE_P(FirstHundred, StoppingThePrintAt, testing::Range(1, 101));

TEST_F(Printing, MenuItemStopsLikeTheKey) {
    machine.pump.At(5, [] { mnuBar_Click(5); });
    EXPECT_FALSE(MapPrint(printer));
    EXPECT_EQ(printer.log[5], "Abort");
    ExpectNothingLeft();
}

TEST_F(Printing, KeyWhileThePageEndsStillGivesTheJobUp) {
    MapPrint(printer);
    const int turns = machine.pump.calls;
    printer.log.clear();
    machine.pump.At(2 * turns, [&] {
        EXPECT_TRUE(MainWindowNow.PageEnding);
        EscapeKey();
        EXPECT_EQ(Design.PlotStopReason, StopReason::None) << "nothing is drawn any more";
    });
    EXPECT_FALSE(MapPrint(printer));
    EXPECT_THAT(printer.log, ElementsAre("Open portrait", "SelectClip 229 229 2181 1639", "StartDoc Quelmont",
                                         "StartPage", "EndPage", "Abort", "Close"));
    EXPECT_THAT(machine.boxes.asked, IsEmpty());
    ExpectNothingLeft();
    EXPECT_TRUE(MapPrint(printer));
}

TEST_F(Printing, EndOfAStoppedPageMayFailInSilence) {
    printer.FailAt(JobStep::EndPage);
    machine.pump.At(5, EscapeKey);
    EXPECT_FALSE(MapPrint(printer));
    EXPECT_THAT(machine.boxes.asked, IsEmpty());
}

// ---- Lobes, texts, labels.

TEST_F(Printing, InterruptedMapIsPrintedLobeByLobeOnOneBackground) {
    AcceptProjection(ProjInterruptedMollweide);
    MapDraw();
    const std::size_t segments = surface.Segments().size();
    EXPECT_TRUE(MapPrint(printer));
    EXPECT_EQ(page.Count(SurfaceOp::Rectangle), 1);
    EXPECT_EQ(page.Segments().size(), segments);
    const Extent extent = ExtentOf(page.Segments());
    EXPECT_GE(extent.left, 229);
    EXPECT_LE(extent.right, 2179);
    EXPECT_EQ(extent.right - extent.left, 1950) << "all lobes side by side fill the width";
    EXPECT_THAT(printer.log, SizeIs(7));
    ExpectNothingLeft();
}

TEST_F(Printing, StoppedInALaterLobeLeavesTheLobesInOrder) {
    AcceptProjection(ProjInterruptedMollweide);
    MapDraw();
    const std::vector<RecordedSegment> before = surface.Segments();
    const int turns = machine.pump.calls;
    machine.pump.At(turns + turns / 2, EscapeKey);
    EXPECT_FALSE(MapPrint(printer));
    ExpectNothingLeft();
    surface.Forget();
    MapDraw();
    EXPECT_EQ(surface.Segments(), before);
}

/// With a title placed by hand and a file of two towns with labels.
class PrintingTexts : public Printing {
protected:
    PrintingTexts() {
        files.Put("/maps/towns.prn", "1 60 10 \"Oslo\"\n1 -34 151 \"Sydney\"\n");
        Design.InputFiles.emplace_back(NewMapFileEntry("/maps/towns.prn")).MapFileType = SymbolFilledCircle;
        Design.MapFileCount = 2;
        TextItem& item = Design.TextItems.emplace_back();
        item.TextString = "title";
        item.TextFont = "Times";
        item.TextSize = 24;
        item.TextX = 1920;
        item.TextY = 1386;
        item.TextPlaced = true;
    }
    static std::vector<std::string> TextsOn(const RecordingSurface& printed) {
        std::vector<std::string> texts;
        for (const RecordedText& text : printed.Texts()) {
            texts.push_back(text.text);
        }
        return texts;
    }
    /// A place in twips of the window, in dots of the page.
    static std::int32_t Dots(std::int32_t twips) {
        // 229 dots of 4.8 twips are the margin; twips are rounded before dots are.
        return RoundToInt32(RoundToInt32(1099.2 + twips * 0.4875) / 4.8);
    }
};

TEST_F(PrintingTexts, EachIsPrintedOnceTextsOverLabels) {
    MapPrint(printer);
    EXPECT_THAT(TextsOn(page), ElementsAre("Oslo", "Sydney", "title"));
    // 1099.2 + 936 twips are 424 dots, 1099.2 + 675.7 are 370; 24 points 48.75 dots.
    EXPECT_EQ(page.Texts()[2].anchor, (SurfacePoint{424, 370}));
    EXPECT_EQ(page.Texts()[2].font.font.height, -49);
    EXPECT_THAT(Design.TextItems, SizeIs(1));
    EXPECT_EQ(Design.CurrentText, "");
}

TEST_F(PrintingTexts, LabelsStandWhereTheyStandInTheWindow) {
    MapDraw();
    ASSERT_THAT(Design.MapLabels, SizeIs(2));
    const std::vector<MapLabel> labels = Design.MapLabels;
    MapPrint(printer);
    ASSERT_THAT(page.Texts(), SizeIs(3));
    for (std::size_t i = 0; i < labels.size(); ++i) {
        EXPECT_EQ(page.Texts()[i].anchor, (SurfacePoint{Dots(labels[i].LabelX), Dots(labels[i].LabelY)}));
    }
}

TEST_F(PrintingTexts, LabelsOfThePictureInTheWindowStayWhereTheyAre) {
    MapDraw();
    const std::int32_t x = Design.MapLabels[0].LabelX;
    window.scaleWidth = 9600.0; // the picture is still that of the larger window
    MapPrint(printer);
    ASSERT_THAT(Design.MapLabels, SizeIs(2));
    EXPECT_EQ(Design.MapLabels[0].LabelX, x);
}

TEST_F(PrintingTexts, HiddenLabelsAreNotPrinted) {
    Design.LabelsVisible = false;
    MapPrint(printer);
    EXPECT_THAT(TextsOn(page), ElementsAre("title"));
}

TEST_F(PrintingTexts, LabelsOfLobesLieOverAllLobes) {
    AcceptProjection(ProjInterruptedMollweide);
    MapPrint(printer);
    EXPECT_THAT(TextsOn(page), ElementsAre("Oslo", "Sydney", "title"));
    std::size_t lastLine = 0;
    std::size_t firstText = 0;
    for (std::size_t i = 0; i < page.Calls().size(); ++i) {
        if (page.Calls()[i].op == SurfaceOp::LineTo) {
            lastLine = i;
        }
        if (page.Calls()[i].op == SurfaceOp::TextOutA && firstText == 0) {
            firstText = i;
        }
    }
    EXPECT_LT(lastLine, firstText);
}

TEST_F(PrintingTexts, StoppedPrintHasNoTextsAndTheNextDrawHasThem) {
    machine.pump.At(3, EscapeKey);
    MapPrint(printer);
    EXPECT_THAT(page.Texts(), IsEmpty());
    MapDraw();
    EXPECT_THAT(TextsOn(surface), ElementsAre("Oslo", "Sydney", "title"));
}

// ---- Every printer.

/// What a map of 6.5 inches an inch from the edges comes to, whatever the paper and however it lies.
struct PrintedMap {
    std::int32_t dots;
    double strip;     ///< millimetres
    const char* clip; ///< right and bottom edge two dots beyond the map
    std::int32_t pen; ///< of a line of one pixel: 7.3125 twips
    double circle;    ///< across, of a radius of 45 twips: 43.875 twips
    SurfacePoint text;
    std::int32_t letters; ///< of 10 points: 97.5 twips
};

std::ostream& operator<<(std::ostream& stream, const PrintedMap& map) {
    return stream << map.dots << " dots, strips of " << map.strip << " mm";
}

class OnEveryPrinter : public PrintingTexts, public testing::WithParamInterface<PrintedMap> {};

TEST_P(OnEveryPrinter, MapHasItsPlaceItsLinesItsSymbolsAndItsTexts) {
    const PrintedMap& expected = GetParam();
    Design.TextItems[0].TextSize = 10;
    printer.dotsPerInch = expected.dots;
    printer.stripMillimetres = expected.strip;
    for (const PaperSheet& sheet : {SheetA4, SheetLetter}) {
        for (const std::int16_t orientation : {Portrait, Landscape}) {
            printer.sheet = sheet;
            printer.log.clear();
            page.Forget();
            Design.PrinterOrientation = orientation;
            ASSERT_TRUE(MapPrint(printer));
            EXPECT_EQ(printer.log[1], std::string("SelectClip ") + expected.clip);
            EXPECT_EQ(page.Segments().front().pen.width, expected.pen);
            const SurfaceCall circle = page.CallsOf(SurfaceOp::Ellipse).front();
            EXPECT_NEAR(static_cast<double>(circle.numbers[2] - circle.numbers[0]), expected.circle, 1.0);
            EXPECT_EQ(page.Texts().back().anchor, expected.text);
            EXPECT_EQ(page.Texts().back().font.font.height, -expected.letters);
        }
    }
}

// The height of 6757 twips is 1407.7, 2815.4, 5630.8 dots; the strips are 71, 142, 283 dots. The text stands
// 936 and 675.7 twips from the map's corner, which is 1440, 1099.2, 1099.2, 1100.4 twips from the printable
// area's.
// clang-format off
INSTANTIATE_TEST_SUITE_P(Resolutions, OnEveryPrinter, testing::Values(
    PrintedMap{ 300, 0.0, "300 300 2252 1710",     2,  9.14, { 495,  441}, 20},
    PrintedMap{ 300, 6.0, "229 229 2181 1639",     2,  9.14, { 424,  370}, 20},
    PrintedMap{ 600, 0.0, "600 600 4502 3417",     3, 18.28, { 990,  882}, 41},
    PrintedMap{ 600, 6.0, "458 458 4360 3275",     3, 18.28, { 848,  740}, 41},
    PrintedMap{1200, 0.0, "1200 1200 9002 6833",   6, 36.56, {1980, 1763}, 81},
    PrintedMap{1200, 6.0, "917 917 8719 6550",     6, 36.56, {1697, 1480}, 81}));
// clang-format on

} // namespace
} // namespace quelmont
