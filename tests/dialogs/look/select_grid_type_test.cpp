#include "dialogs/look/select_grid_type.h"

#include "core/constant_defs.h"
#include "core/map_design.h"
#include "dialogs/look/colors256.h"
#include "support/fresh_program.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace quelmont {
namespace {

using testing::ElementsAre;

class GridTypeDialog : public FreshProgramTest {
protected:
    GridTypeDialog() { ConstantDefs(); }
};

TEST_F(GridTypeDialog, ShowsTheGridInUse) {
    Design.GridTypeCode = 2;
    Design.GridLineWidth = 45.0F; // twips, 15 to a pixel
    const SelectGridType form;
    EXPECT_EQ(form.At("GridTypeList").value, 1);
    EXPECT_THAT(form.At("GridTypeList").items,
                ElementsAre(" Outside boundary connected by lines, interior grid points shown",
                            " Outside boundary connected by lines, no interior grid points shown",
                            " All grid points connected by lines",
                            " Grid points only, no lines connecting points",
                            " No grid (the map will have no latitude or longitude markings)"));
    EXPECT_EQ(form.At("GridLineWidth").value, 3);
    EXPECT_EQ(form.At("GridLineWidth").minimum, 1);
    EXPECT_EQ(form.At("GridLineWidth").maximum, 600);
    EXPECT_EQ(form.At("GridLineWidth").caption, "Grid Line &Width");
    EXPECT_EQ(form.At("GridColor").text, "&Grid Color");
}

TEST_F(GridTypeDialog, WidthOutOfItsRangeIsShownAtTheEnd) {
    Design.GridLineWidth = 0.0F;
    EXPECT_EQ(SelectGridType().At("GridLineWidth").value, 1);
    Design.GridLineWidth = 1e9F;
    EXPECT_EQ(SelectGridType().At("GridLineWidth").value, 600);
}

TEST_F(GridTypeDialog, OkStoresTypeWidthAndOutputs) {
    // Outputs of the ASCII export by type: boundary and points, then one each, none without a grid.
    const std::array<int, 5> outputs = {2, 1, 1, 1, 0};
    for (int line = 0; line < 5; ++line) {
        SelectGridType form;
        form.Choose("GridTypeList", line);
        form.Spin("GridLineWidth", 4);
        form.PressDefault();
        EXPECT_TRUE(form.Closed());
        EXPECT_FALSE(Design.DialogCancelled);
        EXPECT_EQ(Design.GridTypeCode, line + 1);
        EXPECT_EQ(Design.GridTypeText, form.At("GridTypeList").items[static_cast<std::size_t>(line)]);
        EXPECT_EQ(Design.GridLineWidth, 60.0F);
        EXPECT_EQ(Design.GridOutputCount, outputs[static_cast<std::size_t>(line)]);
    }
}

TEST_F(GridTypeDialog, CancelStoresNothing) {
    SelectGridType form;
    form.Choose("GridTypeList", 4);
    form.Spin("GridLineWidth", 9);
    form.PressCancel();
    EXPECT_TRUE(Design.DialogCancelled);
    EXPECT_EQ(Design.GridTypeCode, 3);
    EXPECT_EQ(Design.GridLineWidth, 15.0F);
}

TEST_F(GridTypeDialog, ColorOpensThePickerOfTheGrid) {
    SelectGridType form;
    machine.forms.Script("Colors256", [](Form& picker) {
        EXPECT_EQ(picker.At("Purpose").text, "Grid Color");
        picker.Choose("ColorSquare", 12);
    });
    form.Press("GridColor");
    EXPECT_FALSE(form.Closed());
    EXPECT_EQ(ColorBits(Design.GridColor), 0x0000FFU) << "red, low byte first";
    EXPECT_THAT(form.At("GridColor").colors, ElementsAre(0x0000FFU));
    form.PressDefault();
    EXPECT_EQ(ColorBits(Design.GridColor), 0x0000FFU);
    EXPECT_EQ(Design.GridColorIndex, 12);
}

TEST_F(GridTypeDialog, CancelGivesTheOldColorBack) {
    const ColorValue black = Design.GridColor;
    SelectGridType form;
    for (const int cell : {12, 40}) {
        machine.forms.Script("Colors256", [cell](Form& picker) { picker.Choose("ColorSquare", cell); });
        form.Press("GridColor");
        EXPECT_EQ(Design.GridColorIndex, cell);
    }
    form.PressCancel();
    EXPECT_EQ(Design.GridColor, black);
    EXPECT_EQ(Design.GridColorIndex, 0);
    EXPECT_TRUE(Design.DialogCancelled);
}

} // namespace
} // namespace quelmont
