#include "core/constant_defs.h"
#include "core/map_design.h"
#include "dialogs/exports/line_width_scale.h"
#include "dialogs/exports/vector_scale.h"
#include "support/fresh_program.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace quelmont {
namespace {

class ScaleDialogs : public FreshProgramTest {
protected:
    ScaleDialogs() { ConstantDefs(); }
};

TEST_F(ScaleDialogs, LineWidthsAreRelativeByDefault) {
    const LineWidthScale form;
    EXPECT_EQ(form.Caption(), "Line Width Scaling");
    EXPECT_EQ(form.At("LineWidthFrame").text, "Type of scaling");
    EXPECT_EQ(form.At("LineWidthPixels").value, 0);
    EXPECT_EQ(form.At("LineWidthRelative").value, 1);
    EXPECT_EQ(
        form.At("Label1").text,
        "Line width scaling has no effect on the width of lines displayed on the screen.\n\n"
        "Line width scaling affects the width of lines on printed maps; and on maps exported as WMF, CGM, "
        "or DXF files.\n\n"
        "Relative scaling makes the width of lines proportional to the width of the map.  If you double "
        "the size of the printed map, the width of lines on the map also doubles.\n\n"
        "No scaling gives the narrowest possible lines on the exported map.  A line width increment of 1, "
        "corresponds to an increment of 1 pixel on the exported map.");
}

TEST_F(ScaleDialogs, OkStoresTheKindOfLineWidths) {
    LineWidthScale off;
    off.Choose("LineWidthPixels");
    off.PressDefault();
    EXPECT_TRUE(off.Closed());
    EXPECT_FALSE(Design.LineWidthsScaled);
    LineWidthScale on;
    EXPECT_EQ(on.At("LineWidthPixels").value, 1);
    on.Choose("LineWidthRelative");
    on.PressDefault();
    EXPECT_TRUE(Design.LineWidthsScaled);
}

TEST_F(ScaleDialogs, CancelKeepsTheKindOfLineWidths) {
    LineWidthScale form;
    form.Choose("LineWidthPixels");
    form.PressCancel();
    EXPECT_TRUE(form.Closed());
    EXPECT_TRUE(Design.LineWidthsScaled);
}

TEST_F(ScaleDialogs, TextIsScaledByOneToAThousandPercent) {
    VectorScale form;
    EXPECT_EQ(form.Caption(), "Scale Factor for Text in CGM & DXF Files");
    EXPECT_EQ(form.At("VecScale").caption, "&Scale Factor (%):");
    EXPECT_EQ(form.At("VecScale").value, 100);
    form.Spin("VecScale", 0);
    EXPECT_EQ(form.At("VecScale").value, 1);
    form.Spin("VecScale", 1001);
    form.PressDefault();
    EXPECT_TRUE(form.Closed());
    EXPECT_EQ(Design.TextScalePercent, 1000);
}

TEST_F(ScaleDialogs, CancelKeepsTheScaleOfText) {
    VectorScale form;
    form.Spin("VecScale", 50);
    form.PressCancel();
    EXPECT_EQ(Design.TextScalePercent, 100);
}

TEST_F(ScaleDialogs, TextScaleIsExplained) {
    EXPECT_EQ(
        VectorScale().At("Label1").text,
        "Text in CGM and DXF files exported from Quelmont, and viewed in other applications is often "
        "larger than the original text displayed by Quelmont.\n\n"
        "The Scale Factor spin button allows you to decrease (or increase) the length of text displayed "
        "by your application.\n\n"
        "To decrease the width of text displayed by your application, reduce the value of the spin button "
        "to less than 100%.\n\n"
        "To increase the width of text displayed by your application, increase the value of the spin "
        "button to more than 100%.");
}

} // namespace
} // namespace quelmont
