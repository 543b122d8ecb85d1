#include "dialogs/text/select_label_option.h"

#include "core/constant_defs.h"
#include "core/map_design.h"
#include "support/fresh_program.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace quelmont {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class LabelOptions : public FreshProgramTest {
protected:
    LabelOptions() { ConstantDefs(); }

    static void Take(int line) {
        SelectLabelOption form;
        form.Choose("LabelOption", line);
        form.PressDefault();
        EXPECT_TRUE(form.Closed());
        EXPECT_FALSE(Design.DialogCancelled);
    }
    static void AddLabel(const std::string& text) {
        MapLabel& label = Design.MapLabels.emplace_back();
        label.LabelText = text;
        label.LabelX = 100;
        label.LabelY = 200;
    }
    static std::vector<std::string> Texts() {
        std::vector<std::string> texts;
        for (const TextItem& item : Design.TextItems) {
            texts.push_back(item.TextString);
        }
        return texts;
    }
};

TEST_F(LabelOptions, ShowsWhetherLabelsAreDrawn) {
    EXPECT_EQ(SelectLabelOption().Caption(), "Select Label Option");
    EXPECT_THAT(SelectLabelOption().At("LabelOption").items,
                ElementsAre(" Do not display labels", " Display labels", " Convert labels to text",
                            " Erase labels converted to text"));
    EXPECT_EQ(SelectLabelOption().At("LabelOption").value, 1) << "as the program starts";
    Design.LabelsVisible = false;
    EXPECT_EQ(SelectLabelOption().At("LabelOption").value, 0);
}

TEST_F(LabelOptions, LabelsAreHiddenAndShown) {
    AddLabel("Oslo");
    Take(0);
    EXPECT_FALSE(Design.LabelsVisible);
    Take(1);
    EXPECT_TRUE(Design.LabelsVisible);
    EXPECT_THAT(Texts(), IsEmpty());
}

TEST_F(LabelOptions, LabelsLiveOnAsTextItems) {
    AddLabel("Oslo");
    AddLabel("Paris");
    Take(2);
    EXPECT_FALSE(Design.LabelsVisible) << "else they would be drawn twice";
    ASSERT_THAT(Texts(), ElementsAre("Oslo", "Paris"));
    EXPECT_EQ(Design.TextItems[0].TextX, 100);
    EXPECT_EQ(Design.TextItems[0].TextY, 200);
    Take(2);
    EXPECT_THAT(Texts(), ElementsAre("Oslo", "Paris")) << "not once more";
}

TEST_F(LabelOptions, WithoutLabelsNothingIsConverted) {
    Design.TextItems.emplace_back().TextString = "title";
    Take(2);
    EXPECT_FALSE(Design.LabelsVisible);
    EXPECT_THAT(Texts(), ElementsAre("title"));
}

TEST_F(LabelOptions, ConvertedLabelsAreErasedAndNoOthers) {
    Design.TextItems.emplace_back().TextString = "title";
    AddLabel("Oslo");
    Take(2);
    Design.LabelsVisible = true;
    Take(3);
    EXPECT_FALSE(Design.LabelsVisible);
    EXPECT_THAT(Texts(), ElementsAre("title"));
    EXPECT_EQ(Design.MapLabels.size(), 1U) << "they can be shown again";
}

TEST_F(LabelOptions, CancelChangesNothing) {
    AddLabel("Oslo");
    for (int line = 0; line < 4; ++line) {
        SelectLabelOption form;
        form.Choose("LabelOption", line);
        form.PressCancel();
        EXPECT_TRUE(form.Closed());
        EXPECT_TRUE(Design.DialogCancelled);
        EXPECT_TRUE(Design.LabelsVisible);
        EXPECT_THAT(Texts(), IsEmpty());
    }
}

} // namespace
} // namespace quelmont
