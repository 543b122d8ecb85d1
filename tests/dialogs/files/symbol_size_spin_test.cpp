#include "dialogs/files/symbol_size_spin.h"

#include "core/constant_defs.h"
#include "core/map_design.h"
#include "support/fresh_program.h"

#include <gtest/gtest.h>

namespace quelmont {
namespace {

using SymbolSizeDialog = FreshProgramTest;

TEST_F(SymbolSizeDialog, CaptionAndLabelTellWhatIsMeasured) {
    const SymbolSizeSpin line(SymbolSizeKind::LineWidth, 1.0);
    EXPECT_EQ(line.Caption(), "Line Width");
    EXPECT_EQ(line.At("SymbolSize").caption, "Line &Width:");
    const SymbolSizeSpin symbol(SymbolSizeKind::SymbolRadius, 1.0);
    EXPECT_EQ(symbol.Caption(), "Symbol Radius");
    EXPECT_EQ(symbol.At("SymbolSize").caption, "Symbol &Radius:");
    const SymbolSizeSpin border(SymbolSizeKind::BorderWidth, 1.0);
    EXPECT_EQ(border.Caption(), "Border Width of Symbol");
    EXPECT_EQ(border.At("SymbolSize").caption, "Border &Width:");
    EXPECT_EQ(border.At("SizeUnit").text, "Size in pixels");
}

TEST_F(SymbolSizeDialog, GoesFromOnePixelToSixHundred) {
    SymbolSizeSpin form(SymbolSizeKind::LineWidth, 12.0);
    EXPECT_EQ(form.Pixels(), 12);
    form.Spin("SymbolSize", 0);
    EXPECT_EQ(form.Pixels(), 1);
    form.Spin("SymbolSize", 601);
    EXPECT_EQ(form.Pixels(), 600);
}

TEST_F(SymbolSizeDialog, SizeOutOfItsRangeIsShownAtTheEnd) {
    EXPECT_EQ(SymbolSizeSpin(SymbolSizeKind::LineWidth, 0.0).Pixels(), 1);
    EXPECT_EQ(SymbolSizeSpin(SymbolSizeKind::LineWidth, 2184.0).Pixels(), 600);
    EXPECT_EQ(SymbolSizeSpin(SymbolSizeKind::LineWidth, -3.0).Pixels(), 1);
}

TEST_F(SymbolSizeDialog, EnterAccepts) {
    SymbolSizeSpin form(SymbolSizeKind::LineWidth, 1.0);
    form.PressDefault();
    EXPECT_TRUE(form.Closed());
    EXPECT_FALSE(Design.DialogCancelled);
}

TEST_F(SymbolSizeDialog, EscapeCancels) {
    SymbolSizeSpin form(SymbolSizeKind::LineWidth, 1.0);
    Design.DialogCancelled = false;
    form.PressCancel();
    EXPECT_TRUE(form.Closed());
    EXPECT_TRUE(Design.DialogCancelled);
}

TEST_F(SymbolSizeDialog, CountsAsCancelledUntilItIsAccepted) {
    Design.DialogCancelled = false;
    const SymbolSizeSpin form(SymbolSizeKind::LineWidth, 1.0);
    EXPECT_TRUE(Design.DialogCancelled);
}

} // namespace
} // namespace quelmont
