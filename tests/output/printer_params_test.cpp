#include "output/print/printer_params.h"

#include "core/print_units.h"
#include "output/output_state.h"
#include "output_fixture.h"
#include "support/run_time_errors.h"
#include "support/scripted_printer.h"

#include <gtest/gtest.h>

#include <string>

namespace quelmont {
namespace {

using PrinterParams = OutputTest;

/// A paper at a resolution, and its measures in inches worked out from whole dots.
struct MeasuredPaper {
    const char* name;
    PaperSheet sheet;
    std::int32_t dots;
    double strip; ///< millimetres
    std::int16_t orientation;
    float paperWidth, paperHeight; ///< dots
    float stripDots;
};

std::ostream& operator<<(std::ostream& stream, const MeasuredPaper& paper) { return stream << paper.name; }

class MeasuredPapers : public OutputTest, public testing::WithParamInterface<MeasuredPaper> {};

TEST_P(MeasuredPapers, AreTakenInTheUnitOfThePage) {
    const MeasuredPaper& paper = GetParam();
    ScriptedPrinter printer;
    printer.sheet = paper.sheet;
    printer.dotsPerInch = paper.dots;
    printer.stripMillimetres = paper.strip;
    Design.PrinterOrientation = paper.orientation;
    for (const std::int32_t unit : {InchTwips, CentimetreTwips}) {
        Design.PrintUnitTwips = unit;
        ASSERT_TRUE(GetPrinterParams(printer));
        const auto inUnits = [&](float dots) {
            return dots * 1440.0F / static_cast<float>(paper.dots) / static_cast<float>(unit);
        };
        const PrinterPage& page = OutputNow.page;
        EXPECT_FLOAT_EQ(OutputNow.PrinterTwipsPerPixelX, 1440.0F / static_cast<float>(paper.dots));
        EXPECT_FLOAT_EQ(OutputNow.PrinterTwipsPerPixelY, 1440.0F / static_cast<float>(paper.dots));
        EXPECT_FLOAT_EQ(page.PaperWidth, inUnits(paper.paperWidth));
        EXPECT_FLOAT_EQ(page.PaperHeight, inUnits(paper.paperHeight));
        EXPECT_FLOAT_EQ(page.PrinterOffsetX, inUnits(paper.stripDots));
        EXPECT_FLOAT_EQ(page.PrinterOffsetY, inUnits(paper.stripDots));
        EXPECT_FLOAT_EQ(page.PrintableWidth, inUnits(paper.paperWidth - 2.0F * paper.stripDots));
        EXPECT_FLOAT_EQ(page.PrintableHeight, inUnits(paper.paperHeight - 2.0F * paper.stripDots));
        EXPECT_FLOAT_EQ(page.PrinterRightEdge, inUnits(paper.paperWidth - paper.stripDots));
        EXPECT_FLOAT_EQ(page.PrinterBottomEdge, inUnits(paper.paperHeight - paper.stripDots));
        EXPECT_FLOAT_EQ(page.PrinterRightStrip, inUnits(paper.stripDots));
        EXPECT_FLOAT_EQ(page.PrinterBottomStrip, inUnits(paper.stripDots));
    }
}

// A4: 210 mm are 2480.3, 4960.6, 9921.3 dots, 297 mm 3507.9, 7015.7, 14031.5; 6 mm 70.9, 141.7, 283.5.
// clang-format off
INSTANTIATE_TEST_SUITE_P(Papers, MeasuredPapers, testing::Values(
    MeasuredPaper{"A4_300",              SheetA4,      300, 0.0, Portrait,  2480.0F,  3508.0F,   0.0F},
    MeasuredPaper{"A4_300_strips",       SheetA4,      300, 6.0, Portrait,  2480.0F,  3508.0F,  71.0F},
    MeasuredPaper{"A4_600_landscape",    SheetA4,      600, 6.0, Landscape, 7016.0F,  4961.0F, 142.0F},
    MeasuredPaper{"A4_1200",             SheetA4,     1200, 6.0, Portrait,  9921.0F, 14031.0F, 283.0F},
    MeasuredPaper{"A4_1200_landscape",   SheetA4,     1200, 0.0, Landscape, 14031.0F, 9921.0F,   0.0F},
    MeasuredPaper{"Letter_300",          SheetLetter,  300, 0.0, Portrait,  2550.0F,  3300.0F,   0.0F},
    MeasuredPaper{"Letter_300_landscape",SheetLetter,  300, 6.0, Landscape, 3300.0F,  2550.0F,  71.0F},
    MeasuredPaper{"Letter_600",          SheetLetter,  600, 6.0, Portrait,  5100.0F,  6600.0F, 142.0F},
    MeasuredPaper{"Letter_1200",         SheetLetter, 1200, 6.0, Portrait, 10200.0F, 13200.0F, 283.0F},
    MeasuredPaper{"Letter_1200_landscape",SheetLetter,1200, 0.0, Landscape,13200.0F, 10200.0F,   0.0F}),
    [](const auto& paper) { return paper.param.name; });
// clang-format on

TEST_F(PrinterParams, OfAPrinterThatTellsNothingAreNothing) {
    ScriptedPrinter printer;
    Design.PrintUnitTwips = InchTwips;
    ASSERT_TRUE(GetPrinterParams(printer));
    printer.dotsPerInch = 0;
    EXPECT_FALSE(GetPrinterParams(printer));
    EXPECT_EQ(OutputNow.page.PaperWidth, 0.0F);
    EXPECT_EQ(OutputNow.page.PrintableWidth, 0.0F);
    printer.dotsPerInch = 300;
    printer.sheet = {};
    EXPECT_FALSE(GetPrinterParams(printer));
}

TEST_F(PrinterParams, NeedAUnit) {
    Design.PrintUnitTwips = 0;
    const ScriptedPrinter printer;
    EXPECT_EQ(ErrorOf([&] { GetPrinterParams(printer); }), ErrorDivisionByZero);
}

} // namespace
} // namespace quelmont
