#include "output/symbol_size.h"

#include "output/output_state.h"
#include "output_fixture.h"
#include "support/run_time_errors.h"

#include <gtest/gtest.h>

namespace quelmont {
namespace {

/// A drawing area of 20000 twips that measures 30000 logical units: 1.5 of them to the twip.
class SymbolSize : public OutputTest {
protected:
    SymbolSize() {
        Design.LogicalWidth = 30'000;
        Design.ClientWidth = 20'000;
        Design.LineWidthsScaled = true;
        Design.InputFiles.resize(2);
        Design.InputFiles[1].Features[3] = {
            .Shown = true, .LineWidth = 77, .SymbolSize = 45, .BorderWidth = 15};
    }
    static void Take(SymbolType type) {
        Design.CurrentSymbolType = type;
        SetSymbolSize(3, 2);
    }
};

TEST_F(SymbolSize, OutlineStaysInsideTheNominalSize) {
    for (const SymbolType type :
         {SymbolOpenSquare, SymbolOpenDiamond, SymbolOpenTriangle, SymbolOpenCircle}) {
        Take(type);
        EXPECT_EQ(OutputNow.SymbolRadius, 38) << type; // 45 - 15 / 2, cut toward zero
        EXPECT_EQ(Design.SymbolRadiusFile, 57) << type;
    }
}

TEST_F(SymbolSize, OtherSymbolsTakeTheSizeAsItIs) {
    for (const SymbolType type : {SymbolLine, SymbolPlus, SymbolCross, SymbolFilledSquare,
                                  SymbolFilledDiamond, SymbolFilledTriangle, SymbolFilledCircle}) {
        Take(type);
        EXPECT_EQ(OutputNow.SymbolRadius, 45) << type;
        EXPECT_EQ(Design.SymbolRadiusFile, 68) << type; // 67.5, to the even neighbour
    }
}

TEST_F(SymbolSize, DotIsTwoUnitsInFiles) {
    Take(SymbolDot);
    EXPECT_EQ(OutputNow.SymbolRadius, 45);
    EXPECT_EQ(Design.SymbolRadiusFile, 2);
}

TEST_F(SymbolSize, BorderIsAShareOfTheDrawing) {
    Take(SymbolOpenSquare);
    EXPECT_EQ(Design.BorderWidthFile, 22); // 15 * 1.5 = 22.5, to the even neighbour; not of LineWidth
}

TEST_F(SymbolSize, UnscaledBorderCountsPixels) {
    Design.LineWidthsScaled = false;
    Design.InputFiles[1].Features[3].BorderWidth = 45;
    Take(SymbolOpenSquare);
    EXPECT_EQ(Design.BorderWidthFile, 3);
}

TEST_F(SymbolSize, BorderAboveTwiceTheRadiusLeavesNoRadius) {
    Design.InputFiles[1].Features[3].SymbolSize = 15;
    Design.InputFiles[1].Features[3].BorderWidth = 60;
    Take(SymbolOpenCircle);
    EXPECT_EQ(OutputNow.SymbolRadius, 0);
    EXPECT_EQ(Design.SymbolRadiusFile, 0);
}

TEST_F(SymbolSize, UnknownFeatureOrFileIsASubscriptError) {
    EXPECT_EQ(ErrorOf([] { SetSymbolSize(73, 1); }), ErrorSubscript);
    EXPECT_EQ(ErrorOf([] { SetSymbolSize(-1, 1); }), ErrorSubscript);
    EXPECT_EQ(ErrorOf([] { SetSymbolSize(1, 0); }), ErrorSubscript);
    EXPECT_EQ(ErrorOf([] { SetSymbolSize(1, 3); }), ErrorSubscript);
}

TEST_F(SymbolSize, RadiusTooLargeForAFileOverflows) {
    Design.LogicalWidth = 2'000'000;
    Design.InputFiles[1].Features[3].SymbolSize = 9'000;
    EXPECT_EQ(ErrorOf([] { Take(SymbolPlus); }), ErrorOverflow);
}

TEST_F(SymbolSize, WindowWithoutWidthIsADivisionByZero) {
    Design.ClientWidth = 0;
    EXPECT_EQ(ErrorOf([] { Take(SymbolPlus); }), ErrorDivisionByZero);
}

} // namespace
} // namespace quelmont
