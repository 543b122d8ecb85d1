#include "dialogs/circles/g_circle_ends.h"

#include "core/color_table.h"
#include "core/constant_defs.h"
#include "core/map_design.h"
#include "dialogs/look/colors256.h"
#include "support/fresh_program.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace quelmont {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

constexpr const char* PoleTitle = "Error: Starting, ending longitudes must be equal";
constexpr const char* PoleText = "When one or both of the endpoints is a pole (90°N/S),\n"
                                 "the shortest distance on the globe is along a meridian.\n"
                                 "\n"
                                 "In other words, the starting and ending longitudes\n"
                                 "must be identical, when one of the endpoints is a pole.\n"
                                 "\n"
                                 "The LONGITUDES you have entered are NOT EQUAL.\n"
                                 "\n";
constexpr const char* PoleAtOk = "Press Retry, to correct the longitudes and/or latitudes.\n"
                                 "\n"
                                 "Press Cancel, to restore the latitudes and longitudes to\n"
                                 "their initial values.";

class GreatCircleDialog : public FreshProgramTest {
protected:
    GreatCircleDialog() { ConstantDefs(); }

    static void Type(Form& form, const char* latN, const char* lonW, const char* latS, const char* lonE) {
        form.Type("LatN", latN);
        form.Type("LonW", lonW);
        form.Type("LatS", latS);
        form.Type("LonE", lonE);
    }
    static AskedBox Ok(const char* title, const std::string& text) {
        return {title, text, BoxButtons::Ok, BoxIcon::Exclamation, BoxAnswer::Ok};
    }
    static AskedBox RetryCancel(const char* title, const std::string& text, BoxAnswer answer) {
        return {title, text, BoxButtons::RetryCancel, BoxIcon::Exclamation, answer};
    }
};

TEST_F(GreatCircleDialog, ShowsTheDesign) {
    Design.GcText[1] = "010    20    30    E";
    Design.GcLineWidth = 75.0F; // twips, 15 to a pixel
    Design.GcColor = SolidColor(ColorOfCell(77));
    Design.GcColorIndex = 77;
    const GCircleEnds form;
    EXPECT_EQ(form.ClassName(), "GCircleEnds");
    EXPECT_EQ(form.Caption(), "Select Endpoints of Great Circle");
    EXPECT_EQ(form.At("LatN").text, "37    47    00    N");
    EXPECT_EQ(form.At("LonW").text, "010    20    30    E");
    EXPECT_EQ(form.At("LatS").text, "29    20    00    N");
    EXPECT_EQ(form.At("LonE").text, "047    59    00    E");
    EXPECT_EQ(form.At("GCircleWidth").value, 5);
    EXPECT_EQ(form.At("GCircleWidth").minimum, 1);
    EXPECT_EQ(form.At("GCircleWidth").maximum, 600);
    EXPECT_EQ(form.At("GcColorSpin").value, 77);
    EXPECT_EQ(form.At("GcColorSpin").minimum, 0);
    EXPECT_EQ(form.At("GcColorSpin").maximum, 255);
    EXPECT_THAT(form.At("GcColorPicture").colors, ElementsAre(ColorOfCell(77)));
    EXPECT_EQ(form.At("Cancel").text, "&Cancel Great Circle");
    EXPECT_EQ(form.At("ShowOnMap").value, 1) << "though none was defined";
    EXPECT_TRUE(Design.DialogCancelled);
    EXPECT_EQ(form.Focus(), "LatN");
}

TEST_F(GreatCircleDialog, OkStoresEverything) {
    GCircleEnds form;
    Type(form, "51    30    00    N", "000    07    30    W", "05    33    00    S", "000    12    00    E");
    form.Spin("GCircleWidth", 4);
    form.Press("OK");
    EXPECT_TRUE(form.Closed());
    EXPECT_FALSE(Design.DialogCancelled);
    EXPECT_THAT(Design.GcText, ElementsAre("51    30    00    N", "000    07    30    W",
                                           "05    33    00    S", "000    12    00    E"));
    EXPECT_EQ(Design.GcStartLat, 51.5);
    EXPECT_EQ(Design.GcStartLon, -0.125);
    EXPECT_DOUBLE_EQ(Design.GcEndLat, -5.55);
    EXPECT_DOUBLE_EQ(Design.GcEndLon, 0.2);
    EXPECT_EQ(Design.GcLineWidth, 60.0F);
    EXPECT_TRUE(Design.GcDefined);
    EXPECT_THAT(machine.boxes.asked, IsEmpty());
}

TEST_F(GreatCircleDialog, CircleThatIsNotShownKeepsItsAngles) {
    Design.GcDefined = true;
    GCircleEnds form;
    form.Type("LatN", "10    00    00    N");
    form.Choose("ShowOnMap", 0);
    form.Press("OK");
    EXPECT_FALSE(Design.GcDefined);
    EXPECT_EQ(Design.GcStartLat, 10.0);
    EXPECT_EQ(GCircleEnds().At("ShowOnMap").value, 1) << "on whenever the dialog opens";
}

TEST_F(GreatCircleDialog, CancelOnlyCloses) {
    Design.GcDefined = true;
    const ColorValue color = Design.GcColor;
    GCircleEnds form;
    form.Type("LatN", "10    00    00    N");
    form.Spin("GCircleWidth", 4);
    form.Spin("GcColorSpin", 200);
    form.Choose("ShowOnMap", 0);
    form.Press("Cancel");
    EXPECT_TRUE(form.Closed());
    EXPECT_TRUE(Design.DialogCancelled);
    EXPECT_TRUE(Design.GcDefined);
    EXPECT_EQ(Design.GcText[0], "37    47    00    N");
    EXPECT_EQ(Design.GcLineWidth, 45.0F);
    EXPECT_EQ(Design.GcColor, color);
    EXPECT_EQ(Design.GcColorIndex, 9);
}

TEST_F(GreatCircleDialog, SpinStepsThroughTheColoursOfThePicker) {
    GCircleEnds form;
    form.Spin("GcColorSpin", 10);
    EXPECT_THAT(form.At("GcColorPicture").colors, ElementsAre(ColorOfCell(10)));
    EXPECT_EQ(Design.GcColor, SolidColor(ColorOfCell(10)));
    form.Press("OK");
    EXPECT_EQ(Design.GcColorIndex, 10);
}

TEST_F(GreatCircleDialog, PictureOpensThePicker) {
    machine.forms.Script("Colors256", [](Form& picker) {
        EXPECT_EQ(picker.At("Purpose").text, "Great Circle Color");
        picker.Choose("ColorSquare", 130);
    });
    machine.forms.Script("Colors256", [](Form& picker) { picker.PressCancel(); });
    GCircleEnds form;
    form.Press("GcColorPicture");
    EXPECT_EQ(form.At("GcColorSpin").value, 130);
    EXPECT_THAT(form.At("GcColorPicture").colors, ElementsAre(ColorOfCell(130)));
    form.Press("GcColorPicture");
    EXPECT_EQ(form.At("GcColorSpin").value, 130) << "a cancelled picker changes nothing";
    form.Press("OK");
    EXPECT_EQ(Design.GcColor, SolidColor(ColorOfCell(130)));
    EXPECT_FALSE(Design.DialogCancelled);
}

// ---- The checks of the fields.

struct Fault {
    const char* field;
    const char* typed;
    const char* title;
    const char* text;
};

TEST_F(GreatCircleDialog, FieldsAreCheckedWhenTheyAreLeft) {
    for (const Fault& fault : {
             Fault{"LatN", "37    47    00    Q", "Error: Starting latitude", "Hemisphere must be N or S"},
             Fault{"LatN", "91    99    99    N", "Error: Starting latitude", "Seconds must be <= 59"},
             Fault{"LatN", "91    60    00    N", "Error: Starting latitude", "Minutes must be <= 59"},
             Fault{"LatN", "91    00    00    S", "Error: Starting latitude", "Degrees must be <= 90"},
             Fault{"LatN", "90    00    01    N", "Error: Starting latitude",
                   "Latitude cannot be > 90  00  00"},
             Fault{"LatS", "90    01    00    N", "Error: Ending latitude",
                   "Latitude cannot be > 90  00  00"},
             Fault{"LonW", "010    00    00    N", "Error: Starting longitude", "Hemisphere must be W or E"},
             Fault{"LonW", "010    00    60    W", "Error: Starting longitude", "Seconds must be <= 59"},
             Fault{"LonE", "010    60    00    W", "Error: Ending longitude", "Minutes must be <= 59"},
             Fault{"LonE", "181    00    00    W", "Error: Ending longitude", "Degrees must be <= 180"},
             Fault{"LonE", "180    00    01    E", "Error: Ending longitude",
                   "Longitude cannot be > 180  00  00"},
         }) {
        SCOPED_TRACE(fault.typed);
        for (const BoxAnswer answer : {BoxAnswer::Retry, BoxAnswer::Cancel}) {
            GCircleEnds form;
            form.MoveFocus(fault.field);
            const std::string before = form.At(fault.field).text;
            form.Type(fault.field, fault.typed);
            machine.boxes.Answer(answer);
            form.MoveFocus("GCircleWidth");
            EXPECT_THAT(machine.boxes.Taken(), ElementsAre(RetryCancel(fault.title, fault.text, answer)));
            EXPECT_EQ(form.Focus(), answer == BoxAnswer::Retry ? fault.field : "GCircleWidth");
            EXPECT_EQ(form.At(fault.field).text, answer == BoxAnswer::Retry ? fault.typed : before);
        }
    }
}

TEST_F(GreatCircleDialog, PoleNeedsEqualLongitudesWhenItsFieldIsLeft) {
    struct Case {
        const char* field;
        const char* end;
    };
    for (const Case& c :
         {Case{"LatN", "the correct starting latitude."}, Case{"LatS", "the correct ending latitude."}}) {
        GCircleEnds form;
        form.MoveFocus(c.field);
        const std::string before = form.At(c.field).text;
        form.Type(c.field, "90    00    00    S");
        form.MoveFocus("GCircleWidth");
        EXPECT_THAT(
            machine.boxes.Taken(),
            ElementsAre(Ok(PoleTitle, std::string(PoleText) +
                                          "Press OK, change the longitudes, and then enter\n" + c.end)));
        EXPECT_EQ(form.At(c.field).text, before);
        EXPECT_EQ(form.Focus(), "GCircleWidth");
    }
}

TEST_F(GreatCircleDialog, HemispheresTellLongitudesApartForAPole) {
    GCircleEnds form;
    Type(form, "37    47    00    N", "010    00    00    W", "29    20    00    N", "010    00    00    E");
    form.Type("LatN", "90    00    00    N");
    form.MoveFocus("LonW");
    EXPECT_EQ(machine.boxes.Taken().size(), 1U);
}

TEST_F(GreatCircleDialog, PoleOnOneMeridianPasses) {
    GCircleEnds form;
    Type(form, "90    00    00    N", "010    00    00    W", "29    20    00    N", "010    00    00    W");
    form.Press("OK");
    EXPECT_TRUE(form.Closed());
    EXPECT_THAT(machine.boxes.asked, IsEmpty());
}

// ---- The check of the dialog.

TEST_F(GreatCircleDialog, OkRefusesAPoleWithAnotherLongitude) {
    for (const char* lonE : {"011    00    00    W", "010    00    00    E"}) {
        for (const BoxAnswer answer : {BoxAnswer::Retry, BoxAnswer::Cancel}) {
            GCircleEnds form;
            Type(form, "90    00    00    N", "010    00    00    W", "29    20    00    N",
                 "010    00    00    W");
            form.MoveFocus("LonE");
            form.Type("LonE", lonE);
            machine.boxes.Answer(answer);
            form.Press("OK");
            EXPECT_THAT(machine.boxes.Taken(),
                        ElementsAre(RetryCancel(PoleTitle, std::string(PoleText) + PoleAtOk, answer)));
            EXPECT_FALSE(form.Closed());
            EXPECT_EQ(form.Focus(), "LonW");
            EXPECT_FALSE(Design.GcDefined);
            if (answer == BoxAnswer::Retry) {
                EXPECT_EQ(form.At("LatN").text, "90    00    00    N");
            } else {
                for (std::size_t i = 0; i < GreatCircleFields.size(); ++i) {
                    EXPECT_EQ(form.At(GreatCircleFields[i]).text, Design.GcText[i]);
                }
            }
        }
    }
}

TEST_F(GreatCircleDialog, TwoNamesOfAMeridianAreOne) {
    for (const auto& [lonW, lonE] : {std::pair{"180    00    00    W", "180    00    00    E"},
                                     std::pair{"180    00    00    E", "180    00    00    W"}}) {
        GCircleEnds form;
        Type(form, "10    00    00    N", lonW, "20    00    00    N", lonE);
        form.Type("LatN", "90    00    00    N");
        form.Press("OK");
        EXPECT_TRUE(form.Closed());
        EXPECT_EQ(Design.GcText[3], lonW);
        EXPECT_EQ(Design.GcEndLon, Design.GcStartLon);
        machine.boxes.asked.clear();
    }
}

// ---- Without a dialog.

TEST_F(GreatCircleDialog, TextsAreAcceptedWithoutADialog) {
    EXPECT_TRUE(AcceptGreatCircle(
        {"10    00    00    N", "000    00    00    E", "10    00    00    S", "040    00    00    E"}));
    EXPECT_TRUE(Design.GcDefined);
    EXPECT_EQ(Design.GcTable.Rows.size(), 41U);
}

TEST_F(GreatCircleDialog, TextsAreRefusedWithoutADialog) {
    const GreatCircleTexts before = Design.GcText;
    EXPECT_FALSE(AcceptGreatCircle(
        {"10    00    00    N", "000    00    00    E", "91    00    00    S", "040    00    00    E"}));
    EXPECT_FALSE(AcceptGreatCircle(
        {"10    00    00    N", "000    00    00    E", "90    00    00    S", "040    00    00    E"}));
    const std::vector<AskedBox> boxes = machine.boxes.Taken();
    ASSERT_EQ(boxes.size(), 2U);
    EXPECT_EQ(boxes[0].title, "Error: Ending latitude");
    EXPECT_EQ(boxes[1].title, PoleTitle);
    EXPECT_FALSE(Design.GcDefined);
    EXPECT_EQ(Design.GcText, before);
}

} // namespace
} // namespace quelmont
