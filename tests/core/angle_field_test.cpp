#include "core/angle_field.h"

#include "support/fresh_program.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace quelmont {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

const AngleField Latitude{AngleFieldKind::Latitude, "Error: Northernmost latitude", 90,
                          "Latitude cannot be > 90  00  00"};
const AngleField NorthLatitude{AngleFieldKind::NorthLatitude, "Error: Northernmost standard parallel", 90,
                               "Latitude cannot be > 90  00  00"};
const AngleField Longitude{AngleFieldKind::Longitude, "Error: Westernmost longitude", 180,
                           "Longitude cannot be > 180  00  00"};
const AngleField Spacing{AngleFieldKind::Arc, "Error: Degrees of longitude", 360,
                         "Longitude cannot be > 360  00  00", "must be greater than zero."};

struct FieldCase {
    const AngleField& field;
    const char* text;
    const char* fault;
};

void PrintTo(const FieldCase& example, std::ostream* stream) { *stream << '"' << example.text << '"'; }

class AngleFields : public testing::TestWithParam<FieldCase> {};

TEST_P(AngleFields, GiveTheFirstFault) {
    EXPECT_EQ(AngleFieldFault(GetParam().field, GetParam().text), GetParam().fault);
}

// clang-format off
INSTANTIATE_TEST_SUITE_P(OneFault, AngleFields, testing::Values(
    FieldCase{Latitude,  "37    47    00    N",  ""},
    FieldCase{Latitude,  "37    47    00    S",  ""},
    FieldCase{Latitude,  "90    00    00    S",  ""},
    FieldCase{Latitude,  "89    59    59    N",  ""},
    FieldCase{Latitude,  "37    47    00    n",  "Hemisphere must be N or S"},
    FieldCase{Latitude,  "37    47    00    E",  "Hemisphere must be N or S"},
    FieldCase{Latitude,  "37    47    00     ",  "Hemisphere must be N or S"},
    FieldCase{Latitude,  "37    47    00",       "Hemisphere must be N or S"},
    FieldCase{Latitude,  "37    47    60    N",  "Seconds must be <= 59"},
    FieldCase{Latitude,  "37    60    00    N",  "Minutes must be <= 59"},
    FieldCase{Latitude,  "91    00    00    N",  "Degrees must be <= 90"},
    FieldCase{Latitude,  "90    01    00    N",  "Latitude cannot be > 90  00  00"},
    FieldCase{Latitude,  "90    00    01    N",  "Latitude cannot be > 90  00  00"},
    FieldCase{NorthLatitude, "45    00    00    N", ""},
    FieldCase{NorthLatitude, "45    00    00    S", "Hemisphere must be N"},
    FieldCase{Longitude, "122    26    00    W", ""},
    FieldCase{Longitude, "180    00    00    E", ""},
    FieldCase{Longitude, "122    26    00    N", "Hemisphere must be W or E"},
    FieldCase{Longitude, "181    00    00    E", "Degrees must be <= 180"},
    FieldCase{Longitude, "180    00    30    E", "Longitude cannot be > 180  00  00"},
    FieldCase{Spacing,   "045    00    00",      ""},
    FieldCase{Spacing,   "360    00    00",      ""},
    FieldCase{Spacing,   "000    00    01",      ""},
    FieldCase{Spacing,   "361    00    00",      "Degrees must be <= 360"},
    FieldCase{Spacing,   "360    00    01",      "Longitude cannot be > 360  00  00"},
    FieldCase{Spacing,   "000    00    00",      "must be greater than zero."},
    FieldCase{Spacing,   "                ",     "must be greater than zero."}));

// Of two faults the one is reported that is tested first: hemisphere, seconds, minutes, degrees.
INSTANTIATE_TEST_SUITE_P(TwoFaults, AngleFields, testing::Values(
    FieldCase{Latitude,  "37    00    60    X",  "Hemisphere must be N or S"},
    FieldCase{Latitude,  "99    00    00    X",  "Hemisphere must be N or S"},
    FieldCase{Latitude,  "37    60    60    N",  "Seconds must be <= 59"},
    FieldCase{Latitude,  "91    00    60    N",  "Seconds must be <= 59"},
    FieldCase{Latitude,  "91    60    00    N",  "Minutes must be <= 59"},
    FieldCase{Latitude,  "90    60    00    N",  "Minutes must be <= 59"},
    FieldCase{Longitude, "181    01    00    E", "Degrees must be <= 180"}));
// clang-format on

TEST(AngleFields, ArcWithoutAZeroTextMayBeZero) {
    AngleField range = Spacing;
    range.zero = "";
    EXPECT_EQ(AngleFieldFault(range, "000    00    00"), "");
}

TEST(AngleFields, SplitIntoTheirGroups) {
    const AngleGroups latitude = SplitAngle(AngleFieldKind::Latitude, "37    47    05    S");
    EXPECT_EQ(latitude.degrees, 37.0);
    EXPECT_EQ(latitude.minutes, 47.0);
    EXPECT_EQ(latitude.seconds, 5.0);
    EXPECT_EQ(latitude.letter, 'S');
    const AngleGroups longitude = SplitAngle(AngleFieldKind::Longitude, "122    26    07    W");
    EXPECT_EQ(longitude.degrees, 122.0);
    EXPECT_EQ(longitude.minutes, 26.0);
    EXPECT_EQ(longitude.seconds, 7.0);
    EXPECT_EQ(longitude.letter, 'W');
}

TEST(AngleFields, BareDigitsLeaveEverythingElseOut) {
    EXPECT_EQ(BareDigits("060    00    09"), "0600009");
    EXPECT_EQ(BareDigits("5,600,000"), "5600000");
    EXPECT_EQ(BareDigits("    "), "");
}

class AngleFieldBox : public FreshProgramTest {};

TEST_F(AngleFieldBox, GoodTextShowsNone) {
    EXPECT_FALSE(IsRefused(CheckAngleField("LatN", Latitude, "37    47    00    N")));
    EXPECT_THAT(machine.boxes.asked, IsEmpty());
}

TEST_F(AngleFieldBox, CancelWritesTheAcceptedTextBack) {
    const Refusal refusal = CheckAngleField("LatN", Latitude, "91    00    00    N");
    EXPECT_EQ(refusal.Field, "LatN");
    EXPECT_THAT(refusal.Restored, ElementsAre("LatN"));
    EXPECT_FALSE(refusal.Retry);
    EXPECT_THAT(machine.boxes.asked,
                ElementsAre(AskedBox{"Error: Northernmost latitude", "Degrees must be <= 90",
                                     BoxButtons::RetryCancel, BoxIcon::Exclamation, BoxAnswer::Cancel}));
}

TEST_F(AngleFieldBox, RetryAsksForTheFocus) {
    machine.boxes.Answer(BoxAnswer::Retry);
    const Refusal refusal = CheckAngleField("LonW", Longitude, "122    26    00    X");
    EXPECT_EQ(refusal.Field, "LonW");
    EXPECT_TRUE(refusal.Retry);
}

TEST_F(AngleFieldBox, AcceptanceIsRefusedWithOkAlone) {
    const Refusal refusal = RefuseAcceptance("LatN", "Error: Mercator Projection", "No.");
    EXPECT_TRUE(IsRefused(refusal));
    EXPECT_EQ(refusal.Field, "LatN");
    EXPECT_TRUE(refusal.Retry);
    EXPECT_THAT(refusal.Restored, IsEmpty());
    EXPECT_THAT(machine.boxes.asked, ElementsAre(AskedBox{"Error: Mercator Projection", "No.", BoxButtons::Ok,
                                                          BoxIcon::Exclamation, BoxAnswer::Ok}));
}

} // namespace
} // namespace quelmont
