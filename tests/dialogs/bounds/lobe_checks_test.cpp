#include "dialogs/bounds/lobe_checks.h"

#include "core/map_design.h"
#include "dialogs/dialogs_state.h"
#include "support/fresh_program.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <stdexcept>
#include <vector>

namespace quelmont {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

using Degrees = std::vector<int>;

/// A map with its interruptions, whole degrees, west negative.
class Interruptions : public FreshProgramTest {
protected:
    void Map(int west, int east, int spacing, const Degrees& north, const Degrees& south) {
        Design.LonSpanSec = (east > west ? east - west : east - west + 360) * SecPerDegree;
        Design.LonGridSec = spacing * SecPerDegree;
        Design.LobeText[LobeTextCountNorth] = std::to_string(north.size());
        Design.LobeText[LobeTextCountSouth] = std::to_string(south.size());
        std::size_t next = 0;
        for (const Degrees* row : {&north, &south}) {
            DialogsNow.LobeLonSec[next++] = west * SecPerDegree;
            for (const int longitude : *row) {
                DialogsNow.LobeLonSec[next++] = longitude * SecPerDegree;
            }
            DialogsNow.LobeLonSec[next++] = east * SecPerDegree;
        }
    }

    std::int16_t Code(int west, int east, const Degrees& north, const Degrees& south = {}, int spacing = 10) {
        Map(west, east, spacing, north, south);
        return LonInterruptErrors();
    }
};

TEST_F(Interruptions, OfTheDefaultMapAreGood) { EXPECT_EQ(Code(20, 20, {100, -100}, {140, -70}), 0); }

TEST_F(Interruptions, MayBeMissing) {
    EXPECT_EQ(Code(20, 20, {}, {}), 0) << "one lobe all round the world";
    EXPECT_EQ(Code(-60, 40, {}, {}), 0);
}

TEST_F(Interruptions, MayBeThreeInEachHemisphere) {
    EXPECT_EQ(Code(-180, 180, {-90, 0, 90}, {-100, -20, 80}), 0);
}

TEST_F(Interruptions, MayCrossTheSeam) {
    EXPECT_EQ(Code(150, -150, {170, -170}, {180}), 0);
    EXPECT_EQ(Code(170, 170, {-180, -10, 160}), 0);
}

TEST_F(Interruptions, OutsideTheMapAreRefused) {
    EXPECT_EQ(Code(10, 50, {60}), 1);
    EXPECT_EQ(Code(10, 50, {20, 60}), 2);
    EXPECT_EQ(Code(10, 50, {20, 30, 60}), 3);
    EXPECT_EQ(Code(20, 20, {-100, 100}), 2) << "the second lies before the first, across the seam";
}

TEST_F(Interruptions, OutsideIsReportedBeforeWestOf) {
    EXPECT_EQ(Code(10, 50, {0}), 1) << "350 degrees east of the left boundary";
    EXPECT_EQ(Code(10, 50, {30, 20}), 2);
    EXPECT_EQ(Code(-180, 180, {-90, 90, 0}), 3);
}

TEST_F(Interruptions, WestOfTheirPredecessorAreRefused) {
    // On a map all round the world the boundary itself, met again, lies 360 degrees east and at once
    // west of all others.
    EXPECT_EQ(Code(20, 20, {100, 20}), 5);
    EXPECT_EQ(Code(20, 20, {100, 200 - 360, 20}), 6);
}

TEST_F(Interruptions, RowWithoutThemIsNotTested) {
    EXPECT_EQ(Code(10, 50, {}, {}, 0), 0);
    EXPECT_THAT(machine.boxes.asked, IsEmpty()) << "nothing is divided by the spacing";
}

TEST_F(Interruptions, EqualToTheirPredecessorAreRefused) {
    EXPECT_EQ(Code(10, 50, {10}), 8);
    EXPECT_EQ(Code(10, 50, {20, 20}), 9);
    EXPECT_EQ(Code(10, 50, {20, 30, 30}), 10);
    EXPECT_EQ(Code(10, 50, {20, 50}), 11) << "the right boundary";
    EXPECT_EQ(Code(20, 20, {20}), 8) << "both boundaries: the left one is met first";
}

TEST_F(Interruptions, ThatTheGridDoesNotMeetAreRefused) {
    EXPECT_EQ(Code(10, 50, {15}), 12);
    EXPECT_EQ(Code(10, 50, {20, 33}), 13);
    EXPECT_EQ(Code(10, 50, {20, 30, 41}), 14);
    EXPECT_EQ(Code(150, -150, {-175}), 12) << "35 degrees, across the seam";
}

TEST_F(Interruptions, RightBoundaryMustLieEastOfTheLast) {
    Map(10, 50, 10, {30}, {});
    DialogsNow.LobeLonSec[2] = 20 * SecPerDegree;
    EXPECT_EQ(LonInterruptErrors(), 7);
}

TEST_F(Interruptions, OfTheSouthHaveTheNextFourteenCodes) {
    EXPECT_EQ(Code(10, 50, {}, {60}), 15);
    EXPECT_EQ(Code(20, 20, {100}, {100, 20}), 19);
    EXPECT_EQ(Code(10, 50, {20, 30, 40}, {10}), 22);
    EXPECT_EQ(Code(10, 50, {20}, {20, 30, 41}), 28);
}

TEST_F(Interruptions, OfTheNorthAreReportedFirst) { EXPECT_EQ(Code(10, 50, {15}, {60}), 12); }

TEST_F(Interruptions, OfTwoFaultsTheMoreWesternIntervalIsReported) { EXPECT_EQ(Code(10, 50, {15, 60}), 12); }

TEST_F(Interruptions, OutsideIsReportedBeforeTheGrid) { EXPECT_EQ(Code(10, 50, {65}), 1); }

TEST_F(Interruptions, WithoutASpacingAreAFailureOfTheRoutine) {
    EXPECT_EQ(Code(10, 50, {20}, {}, 0), 0);
    ASSERT_EQ(machine.boxes.asked.size(), 1U);
    EXPECT_EQ(machine.boxes.asked[0].title, "Error in LonInterruptErrors");
    EXPECT_EQ(machine.boxes.asked[0].text, "Error: Division by zero");
}

constexpr const char* OrderHint =
    "\n\nAs you view the interrupted projection, the longitude of each interruption\n"
    "should lie east (to the right) of the previous interruption; or, in the case\n"
    "of the first interruption, east (to the right) of the left (western)\n"
    "map boundary.";

struct MessageCase {
    int code;
    const char* text;
    const char* hint;
};

void PrintTo(const MessageCase& example, std::ostream* stream) { *stream << "code " << example.code; }

class InterruptionMessages : public testing::TestWithParam<MessageCase> {};

TEST_P(InterruptionMessages, AreWordedForBothHemispheres) {
    const MessageCase& example = GetParam();
    std::string text = std::string(example.text) + example.hint;
    EXPECT_EQ(LonInterruptMessage(static_cast<std::int16_t>(example.code)), text);
    text.replace(text.find("Northern"), 8, "Southern");
    EXPECT_EQ(LonInterruptMessage(static_cast<std::int16_t>(example.code + 14)), text);
}

// clang-format off
INSTANTIATE_TEST_SUITE_P(All, InterruptionMessages, testing::Values(
    MessageCase{1,  "Interrupted longitude #1 in the Northern hemisphere lies outside the\nmap boundaries.", ""},
    MessageCase{2,  "Interrupted longitude #2 in the Northern hemisphere lies outside the\nmap boundaries.", OrderHint},
    MessageCase{3,  "Interrupted longitude #3 in the Northern hemisphere lies outside the\nmap boundaries.", OrderHint},
    MessageCase{4,  "Interrupted longitude #1 in the Northern hemisphere is west (to the left)\nof the left (western) map boundary.", OrderHint},
    MessageCase{5,  "Interrupted longitude #2 in the Northern hemisphere is west (to the left)\nof interrupted longitude #1.", OrderHint},
    MessageCase{6,  "Interrupted longitude #3 in the Northern hemisphere is west (to the left)\nof interrupted longitude #2.", OrderHint},
    MessageCase{7,  "The longitude of the right (eastern) map boundary in the Northern hemisphere\nis west (to the left) of the last interrupted longitude.",
                    "\n\nAs you view the interrupted projection, the longitude of the right (eastern) map\n"
                    "boundary should lie east (to the right) of the last interruption."},
    MessageCase{8,  "Interrupted longitude #1 in the Northern hemisphere equals the left\n(western) map boundary.", OrderHint},
    MessageCase{9,  "Interrupted longitude #2 in the Northern hemisphere equals\ninterrupted longitude #1.", OrderHint},
    MessageCase{10, "Interrupted longitude #3 in the Northern hemisphere equals\ninterrupted longitude #2.", OrderHint},
    MessageCase{11, "The last interrupted longitude in the Northern hemisphere equals the\nright (eastern) map boundary.", OrderHint},
    MessageCase{12, "In the Northern hemisphere, the longitude difference between interrupted\nlongitude #1 and the left (western) map boundary does not yield an integral\nnumber of divisions when divided by the GRID SPACING.", ""},
    MessageCase{13, "In the Northern hemisphere, the longitude difference between interrupted\nlongitude #2 and interrupted longitude #1 does not yield an integral number\nof divisions when divided by the GRID SPACING.", ""},
    MessageCase{14, "In the Northern hemisphere, the longitude difference between interrupted\nlongitude #3 and interrupted longitude #2 does not yield an integral number\nof divisions when divided by the GRID SPACING.", ""}));
// clang-format on

TEST(InterruptionMessages, NoFaultHasNoText) {
    EXPECT_EQ(LonInterruptMessage(0), "");
    EXPECT_EQ(LonInterruptMessage(29), "");
    EXPECT_EQ(LonInterruptMessage(-1), "");
}

class AcceptInterruptions : public Interruptions {
protected:
    std::string FieldAtFault() {
        const Refusal refusal = AcceptLatLonInterrupt();
        EXPECT_TRUE(refusal.Retry);
        EXPECT_THAT(refusal.Restored, IsEmpty());
        return refusal.Field;
    }
};

TEST_F(AcceptInterruptions, ShowsTheMessageOfTheFault) {
    Map(10, 50, 10, {60}, {});
    EXPECT_EQ(FieldAtFault(), "LonInt(0)");
    EXPECT_THAT(machine.boxes.asked,
                ElementsAre(AskedBox{"Interrupted Longitude Error", LonInterruptMessage(1), BoxButtons::Ok,
                                     BoxIcon::Exclamation, BoxAnswer::Ok}));
}

TEST_F(AcceptInterruptions, NamesTheFieldAtFault) {
    Map(10, 50, 10, {20, 30, 60}, {});
    EXPECT_EQ(FieldAtFault(), "LonInt(2)");
    Map(20, 20, 10, {100, 20}, {});
    EXPECT_EQ(FieldAtFault(), "LonInt(1)");
    Map(10, 50, 10, {20, 20}, {});
    EXPECT_EQ(FieldAtFault(), "LonInt(1)");
    Map(10, 50, 10, {20, 33}, {});
    EXPECT_EQ(FieldAtFault(), "LonInt(1)");
    Map(10, 50, 10, {20, 50}, {});
    EXPECT_EQ(FieldAtFault(), "LonInt(1)") << "the last one in use meets the right boundary";
    Map(10, 50, 10, {20}, {20, 30, 41});
    EXPECT_EQ(FieldAtFault(), "LonInt(5)");
    Map(10, 50, 10, {20, 30}, {0});
    EXPECT_EQ(FieldAtFault(), "LonInt(3)");
}

TEST_F(AcceptInterruptions, AreAcceptedWithoutAWord) {
    Map(20, 20, 10, {100, -100}, {140, -70});
    EXPECT_FALSE(IsRefused(AcceptLatLonInterrupt()));
    EXPECT_THAT(machine.boxes.asked, IsEmpty());
}

class InterruptionField : public FreshProgramTest {};

TEST_F(InterruptionField, IsNamedByItsNumberAndHemisphere) {
    const Refusal first = CheckInterruption(0, "100    00    60    E");
    EXPECT_EQ(first.Field, "LonInt(0)");
    EXPECT_THAT(first.Restored, ElementsAre("LonInt(0)"));
    EXPECT_EQ(CheckInterruption(2, "181    00    00    E").Field, "LonInt(2)");
    EXPECT_EQ(CheckInterruption(3, "100    60    00    E").Field, "LonInt(3)");
    EXPECT_EQ(CheckInterruption(5, "180    00    01    E").Field, "LonInt(5)");
    EXPECT_EQ(CheckInterruption(4, "180    00    01    N").Field, "LonInt(4)");
    const auto box = [](const char* title, const char* text) {
        return AskedBox{title, text, BoxButtons::RetryCancel, BoxIcon::Exclamation, BoxAnswer::Cancel};
    };
    EXPECT_THAT(
        machine.boxes.asked,
        ElementsAre(
            box("Error: Interrupted longitude #1 in Northern hemisphere", "Seconds must be <= 59"),
            box("Error: Interrupted longitude #3 in Northern hemisphere", "Degrees must be <= 180"),
            box("Error: Interrupted longitude #1 in Southern hemisphere", "Minutes must be <= 59"),
            box("Error: Interrupted longitude #3 in Southern hemisphere",
                "Longitude cannot be > 180  00  00"),
            box("Error: Interrupted longitude #2 in Southern hemisphere", "Hemisphere must be W or E")));
}

TEST_F(InterruptionField, GoodTextPasses) {
    EXPECT_FALSE(IsRefused(CheckInterruption(1, "100    00    00    W")));
    EXPECT_THROW(CheckInterruption(6, "100    00    00    W"), std::out_of_range);
}

} // namespace
} // namespace quelmont
