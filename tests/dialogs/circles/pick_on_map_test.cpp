// The button of the circles' dialogs that takes a place from the map.

#include "dialogs/circles/g_circle_ends.h"
#include "dialogs/circles/small_circle_form.h"

#include "core/constant_defs.h"
#include "core/map_design.h"
#include "platform/place_picker.h"
#include "support/fresh_program.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <deque>
#include <string>
#include <vector>

namespace quelmont {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

/// A person who points at the places that were scripted, and gives up when there is none.
class ScriptedPicker : public PlacePicker {
public:
    ScriptedPicker() { Picker() = this; }
    ~ScriptedPicker() override { Picker() = nullptr; }
    bool CanPick() const override { return hasMap; }
    std::optional<PickedPlace> Pick(std::string_view what) override {
        wanted.emplace_back(what);
        if (places.empty()) {
            return std::nullopt;
        }
        const PickedPlace place = places.front();
        places.pop_front();
        return place;
    }

    bool hasMap = true;
    std::deque<PickedPlace> places;
    std::vector<std::string> wanted;
};

class PickOnMap : public FreshProgramTest {
protected:
    PickOnMap() { ConstantDefs(); }

    ScriptedPicker picker;
};

TEST_F(PickOnMap, FillsTheStartOfAGreatCircleAtFirst) {
    picker.places = {{51.5, -0.125}};
    GCircleEnds form;
    form.Press("PickOnMap");
    EXPECT_THAT(picker.wanted, ElementsAre("the start of the great circle"));
    EXPECT_EQ(form.At("LatN").text, "51    30    00    N");
    EXPECT_EQ(form.At("LonW").text, "000    07    30    W");
    EXPECT_EQ(form.At("LatS").text, "29    20    00    N");
    EXPECT_EQ(form.Focus(), "LatN");
    form.Press("OK");
    EXPECT_EQ(Design.GcStartLat, 51.5);
    EXPECT_EQ(Design.GcStartLon, -0.125);
    EXPECT_THAT(machine.boxes.asked, IsEmpty());
}

TEST_F(PickOnMap, FillsThePlaceWhoseFieldHadTheFocusLast) {
    picker.places = {{-5.0, 12.0}, {10.0, 20.0}};
    GCircleEnds form;
    form.MoveFocus("LonE");
    form.Press("PickOnMap");
    EXPECT_EQ(form.At("LatS").text, "05    00    00    S");
    EXPECT_EQ(form.At("LonE").text, "012    00    00    E");
    EXPECT_EQ(form.Focus(), "LatS");
    form.MoveFocus("GCircleWidth");
    form.Press("PickOnMap");
    EXPECT_EQ(form.At("LatS").text, "10    00    00    N") << "the width is no place";
    EXPECT_EQ(form.At("LatN").text, "37    47    00    N");
    EXPECT_THAT(picker.wanted, ElementsAre("the end of the great circle", "the end of the great circle"));
    form.PressCancel();
}

TEST_F(PickOnMap, FillsTheCentreOfASmallCircle) {
    picker.places = {{0.0, 180.0}};
    SmallCircleForm form;
    form.MoveFocus("RadiusDeg");
    form.Press("PickOnMap");
    EXPECT_THAT(picker.wanted, ElementsAre("the center of the small circle"));
    EXPECT_EQ(form.At("LatCenter").text, "00    00    00    N");
    EXPECT_EQ(form.At("LonCenter").text, "180    00    00    E");
    EXPECT_EQ(form.Focus(), "LatCenter");
    form.PressCancel();
    EXPECT_NE(Design.ScText[0], "00    00    00    N") << "Cancel only closes";
}

TEST_F(PickOnMap, GivenUpLeavesTheFields) {
    GCircleEnds form;
    form.Press("PickOnMap");
    EXPECT_EQ(picker.wanted.size(), 1U);
    EXPECT_EQ(form.At("LatN").text, "37    47    00    N");
    EXPECT_EQ(form.At("LonW").text, "122    26    00    W");
    EXPECT_EQ(form.Focus(), "LatN");
    EXPECT_FALSE(form.Closed());
    form.PressCancel();
}

TEST_F(PickOnMap, PoleThatWasPickedIsCheckedAsOneThatWasTyped) {
    picker.places = {{90.0, 10.0}};
    GCircleEnds form;
    form.Press("PickOnMap");
    EXPECT_THAT(machine.boxes.asked, IsEmpty());
    form.MoveFocus("LonW");
    ASSERT_EQ(machine.boxes.asked.size(), 1U);
    EXPECT_EQ(machine.boxes.asked[0].title, "Error: Starting, ending longitudes must be equal");
    form.PressCancel();
}

TEST_F(PickOnMap, FieldLeftWithAFaultKeepsTheFocus) {
    GCircleEnds form;
    form.Type("LatN", "95    00    00    N");
    machine.boxes.Answer(BoxAnswer::Retry);
    form.Press("PickOnMap");
    EXPECT_THAT(picker.wanted, IsEmpty());
    EXPECT_EQ(form.Focus(), "LatN");
    form.PressCancel();
}

TEST_F(PickOnMap, NeedsAPictureOfAMap) {
    picker.hasMap = false;
    EXPECT_FALSE(GCircleEnds().At("PickOnMap").enabled);
    EXPECT_FALSE(SmallCircleForm().At("PickOnMap").enabled);
    picker.hasMap = true;
    EXPECT_TRUE(GCircleEnds().At("PickOnMap").enabled);
    Picker() = nullptr;
    EXPECT_FALSE(GCircleEnds().At("PickOnMap").enabled);
}

} // namespace
} // namespace quelmont
