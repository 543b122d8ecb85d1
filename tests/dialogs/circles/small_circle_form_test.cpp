#include "dialogs/circles/small_circle_form.h"

#include "core/color_table.h"
#include "core/constant_defs.h"
#include "core/map_design.h"
#include "support/fresh_program.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace quelmont {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class SmallCircleDialog : public FreshProgramTest {
protected:
    SmallCircleDialog() { ConstantDefs(); }
};

TEST_F(SmallCircleDialog, ShowsTheDesign) {
    const SmallCircleForm form;
    EXPECT_EQ(form.ClassName(), "SmallCircle");
    EXPECT_EQ(form.Caption(), "Select Center and Radius of Small Circle");
    EXPECT_EQ(form.At("LatCenter").text, "37    47    00    N");
    EXPECT_EQ(form.At("LonCenter").text, "122    26    00    W");
    EXPECT_EQ(form.At("RadiusHeading").text, "_____ Radius of Outer Circle _____");
    EXPECT_EQ(form.At("RadiusDeg").text, "015    00    00");
    EXPECT_EQ(form.At("SCircleWidth").value, 3);
    EXPECT_EQ(form.At("SCircleNum").value, 3);
    EXPECT_EQ(form.At("SCircleNum").minimum, 1);
    EXPECT_EQ(form.At("SCircleNum").maximum, 80);
    EXPECT_EQ(form.At("ScColorSpin").value, 9);
    EXPECT_THAT(form.At("ScColorPicture").colors, ElementsAre(ColorOfCell(9)));
    EXPECT_EQ(form.At("Cancel").text, "&Cancel Small Circle");
    EXPECT_EQ(form.At("ShowOnMap").value, 1);
    EXPECT_TRUE(Design.DialogCancelled);
}

TEST_F(SmallCircleDialog, RadiusStandsInMilesAndKilometersToo) {
    SmallCircleForm form;
    // 15 degrees are 900 nautical miles.
    EXPECT_EQ(form.At("RadiusNM").text, "00900.0");
    EXPECT_EQ(form.At("RadiusSM").text, "01036.4");
    EXPECT_EQ(form.At("RadiusKM").text, "01667.9");
    form.Type("RadiusDeg", "180    00    00");
    EXPECT_EQ(form.At("RadiusNM").text, "10800.0");
    EXPECT_EQ(form.At("RadiusSM").text, "12436.8");
    EXPECT_EQ(form.At("RadiusKM").text, "20015.1");
    form.Type("RadiusDeg", "000    30    30");
    EXPECT_EQ(form.At("RadiusNM").text, "00030.5");
}

TEST_F(SmallCircleDialog, OkStoresEverythingAndComputesTheCircles) {
    SmallCircleForm form;
    form.Type("LatCenter", "10    30    00    S");
    form.Type("LonCenter", "020    15    00    W");
    form.Type("RadiusDeg", "007    30    00");
    form.Spin("SCircleWidth", 2);
    form.Spin("SCircleNum", 5);
    form.Spin("ScColorSpin", 44);
    form.Press("OK");
    EXPECT_TRUE(form.Closed());
    EXPECT_FALSE(Design.DialogCancelled);
    EXPECT_THAT(Design.ScText, ElementsAre("10    30    00    S", "020    15    00    W", "007    30    00"));
    EXPECT_EQ(Design.ScCenterLat, -10.5);
    EXPECT_EQ(Design.ScCenterLon, -20.25);
    EXPECT_EQ(Design.ScRadiusDeg, 7.5);
    EXPECT_EQ(Design.ScLineWidth, 30.0F);
    EXPECT_EQ(Design.ScSymbolCount, 5);
    EXPECT_EQ(Design.ScColor, SolidColor(ColorOfCell(44)));
    EXPECT_EQ(Design.ScColorIndex, 44);
    EXPECT_TRUE(Design.ScDefined);
    EXPECT_EQ(Design.ScTable.ScRingEnd.size(), 5U);
    EXPECT_THAT(machine.boxes.asked, IsEmpty());
}

TEST_F(SmallCircleDialog, CirclesThatAreNotShownAreComputedAllTheSame) {
    Design.ScDefined = true;
    SmallCircleForm form;
    form.Choose("ShowOnMap", 0);
    form.Press("OK");
    EXPECT_FALSE(Design.ScDefined);
    EXPECT_EQ(Design.ScTable.ScRingEnd.size(), 3U);
}

TEST_F(SmallCircleDialog, CancelOnlyCloses) {
    SmallCircleForm form;
    form.Type("RadiusDeg", "007    30    00");
    form.Spin("SCircleNum", 5);
    form.Spin("ScColorSpin", 44);
    form.Press("Cancel");
    EXPECT_TRUE(form.Closed());
    EXPECT_TRUE(Design.DialogCancelled);
    EXPECT_EQ(Design.ScText[2], "015    00    00");
    EXPECT_EQ(Design.ScSymbolCount, 3);
    EXPECT_EQ(Design.ScColorIndex, 9);
    EXPECT_EQ(ColorBits(Design.ScColor), ColorOfCell(9));
    EXPECT_FALSE(Design.ScDefined);
    EXPECT_THAT(Design.ScTable.Points, IsEmpty());
}

TEST_F(SmallCircleDialog, FieldsAreCheckedWhenTheyAreLeft) {
    struct Fault {
        const char* field;
        const char* typed;
        const char* title;
        const char* text;
    };
    constexpr const char* center = "Error: Latitude of circle center";
    constexpr const char* radius = "Error: Radius of circle in degrees";
    for (const Fault& fault : {
             Fault{"LatCenter", "37    47    00    E", center, "Hemisphere must be N or S"},
             Fault{"LatCenter", "37    47    60    N", center, "Seconds must be <= 59"},
             Fault{"LatCenter", "37    60    00    N", center, "Minutes must be <= 59"},
             Fault{"LatCenter", "91    00    00    N", center, "Degrees must be <= 90"},
             Fault{"LatCenter", "90    00    01    S", center, "Latitude cannot be > 90  00  00"},
             Fault{"LonCenter", "122    26    00    S", center, "Hemisphere must be W or E"},
             Fault{"LonCenter", "181    00    00    W", center, "Degrees must be <= 180"},
             Fault{"LonCenter", "180    00    01    W", center, "Longitude cannot be > 180  00  00"},
             Fault{"RadiusDeg", "015    00    60", radius, "Seconds must be <= 59"},
             Fault{"RadiusDeg", "015    60    00", radius, "Minutes must be <= 59"},
             Fault{"RadiusDeg", "181    00    00", radius, "Degrees must be <= 180"},
             Fault{"RadiusDeg", "180    01    00", radius, "Circle radius cannot be > 180  00  00"},
         }) {
        SCOPED_TRACE(fault.typed);
        for (const BoxAnswer answer : {BoxAnswer::Retry, BoxAnswer::Cancel}) {
            SmallCircleForm form;
            form.MoveFocus(fault.field);
            const std::string before = form.At(fault.field).text;
            form.Type(fault.field, fault.typed);
            machine.boxes.Answer(answer);
            form.MoveFocus("SCircleWidth");
            EXPECT_THAT(machine.boxes.Taken(),
                        ElementsAre(AskedBox{fault.title, fault.text, BoxButtons::RetryCancel,
                                             BoxIcon::Exclamation, answer}));
            EXPECT_EQ(form.Focus(), answer == BoxAnswer::Retry ? fault.field : "SCircleWidth");
            EXPECT_EQ(form.At(fault.field).text, answer == BoxAnswer::Retry ? fault.typed : before);
            if (answer == BoxAnswer::Cancel) {
                EXPECT_EQ(form.At("RadiusNM").text, "00900.0") << "the units follow";
            }
        }
    }
}

TEST_F(SmallCircleDialog, RadiusOfZeroPasses) {
    SmallCircleForm form;
    form.MoveFocus("RadiusDeg");
    form.Type("RadiusDeg", "000    00    00");
    form.Press("OK");
    EXPECT_TRUE(form.Closed());
    EXPECT_THAT(machine.boxes.asked, IsEmpty());
}

TEST_F(SmallCircleDialog, PictureOpensThePicker) {
    machine.forms.Script("Colors256", [](Form& picker) {
        EXPECT_EQ(picker.At("Purpose").text, "Small Circle Color");
        picker.Choose("ColorSquare", 12);
    });
    SmallCircleForm form;
    form.Press("ScColorPicture");
    EXPECT_EQ(form.At("ScColorSpin").value, 12);
    EXPECT_EQ(Design.ScColor, SolidColor(ColorOfCell(12)));
}

TEST_F(SmallCircleDialog, TextsAreAcceptedAndRefusedWithoutADialog) {
    Design.ScSymbolCount = 2;
    EXPECT_TRUE(AcceptSmallCircle({"10    00    00    N", "000    00    00    E", "010    00    00"}));
    EXPECT_TRUE(Design.ScDefined);
    EXPECT_THAT(Design.ScTable.ScRingEnd, ElementsAre(361, 722));
    EXPECT_FALSE(AcceptSmallCircle({"10    00    00    N", "000    00    00    E", "999    00    00"}));
    EXPECT_EQ(machine.boxes.Taken().at(0).text, "Degrees must be <= 180");
    EXPECT_EQ(Design.ScRadiusDeg, 10.0);
}

} // namespace
} // namespace quelmont
