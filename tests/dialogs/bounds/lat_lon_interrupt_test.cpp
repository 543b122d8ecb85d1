// Where the interrupted projection is cut, as its dialog proposes, refuses and stores it.

#include "dialogs/bounds/boundary_defaults.h"
#include "dialogs/bounds/boundary_dialogs.h"
#include "dialogs/bounds/lat_lon_bounds.h"
#include "dialogs/bounds/lat_lon_interrupt.h"
#include "dialogs/bounds/lobe_checks.h"
#include "graticule/calc_graticule.h"
#include "projection/projection_table.h"
#include "support/fresh_program.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace quelmont {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class InterruptionsDialog : public BoundaryDialogs {
protected:
    InterruptionsDialog() {
        Choose(ProjInterruptedMollweide);
        ProposeBounds();
        CalcGraticule();
    }
};

TEST_F(InterruptionsDialog, ProposesTwoOceansInEachHemisphere) {
    Design.LobeText[LobeTextCountNorth] = "3";
    const LatLonInterrupt form;
    EXPECT_EQ(form.Caption(), "Longitudes of Projection Interruptions");
    EXPECT_THAT(Texts(form),
                ElementsAre("100    00    00    E", "100    00    00    W", "000    00    00    W",
                            "140    00    00    E", "070    00    00    W", "000    00    00    W"));
    EXPECT_EQ(form.At("NumInterrupt(0)").value, 2);
    EXPECT_EQ(form.At("NumInterrupt(1)").value, 2);
    EXPECT_EQ(form.At("Hemisphere1").text, "Northern Hemisphere Interruptions");
    EXPECT_EQ(form.At("Hemisphere2").text, "Southern Hemisphere Interruptions");
    for (const char* const row : {"1", "2"}) {
        EXPECT_EQ(form.At(std::string("LonW") + row).text, "020    00    00    E");
        EXPECT_EQ(form.At(std::string("LonE") + row).text, "020    00    00    E");
        EXPECT_EQ(form.At(std::string("LonGrid") + row).text, "010    00    00");
    }
}

TEST_F(InterruptionsDialog, KeepsWhatWasAccepted) {
    IsSet() = true;
    Design.LobeText[LobeTextCountNorth] = "1";
    Design.LobeText[LobeTextNorth] = "050    00    00    W";
    const LatLonInterrupt form;
    EXPECT_EQ(form.At("NumInterrupt(0)").value, 1);
    EXPECT_EQ(form.At("LonInt(0)").text, "050    00    00    W");
}

TEST_F(InterruptionsDialog, EnablesAsManyFieldsAsThereAreInterruptions) {
    LatLonInterrupt form;
    for (const int count : {0, 1, 3, 2}) {
        form.Spin("NumInterrupt(1)", count);
        for (int k = 0; k < 3; ++k) {
            EXPECT_EQ(form.At("LonInt(" + std::to_string(3 + k) + ")").enabled, k < count) << count << k;
        }
    }
    EXPECT_FALSE(form.At("LonInt(2)").enabled) << "the north has its own number";
    EXPECT_EQ(form.At("NumInterrupt(1)").maximum, 3);
}

TEST_F(InterruptionsDialog, IsStoredWithTheOrderOfItsLobes) {
    LatLonInterrupt form;
    form.Spin("NumInterrupt(1)", 1);
    form.Type("LonInt(3)", "150    00    00    W");
    form.PressDefault();
    EXPECT_TRUE(form.Closed());
    EXPECT_TRUE(IsSet());
    EXPECT_TRUE(Design.BoundsChanged);
    EXPECT_FALSE(Design.DialogCancelled);
    EXPECT_EQ(Design.LobeText[LobeTextCountNorth], "2");
    EXPECT_EQ(Design.LobeText[LobeTextCountSouth], "1");
    EXPECT_EQ(Design.LobeText[LobeTextSouth], "150    00    00    W");
    EXPECT_THAT(std::vector<std::string>(Design.LobeLonText.begin(), Design.LobeLonText.begin() + 7),
                ElementsAre("020    00    00    E", "100    00    00    E", "100    00    00    W",
                            "020    00    00    E", "020    00    00    E", "150    00    00    W",
                            "020    00    00    E"));
    EXPECT_THAT(machine.boxes.asked, IsEmpty());
}

TEST_F(InterruptionsDialog, RefusedOneGetsTheFocusAndLeavesTheLobesAlone) {
    const auto lobes = Design.LobeLonText;
    LatLonInterrupt form;
    const auto texts = Design.LobeText;
    form.Type("LonInt(4)", "140    00    00    E");
    form.PressDefault();
    EXPECT_FALSE(form.Closed());
    EXPECT_EQ(form.Focus(), "LonInt(4)");
    EXPECT_THAT(
        machine.boxes.asked,
        ElementsAre(OkBox("Interrupted Longitude Error",
                          "Interrupted longitude #2 in the Southern hemisphere equals\n"
                          "interrupted longitude #1.\n\n"
                          "As you view the interrupted projection, the longitude of each interruption\n"
                          "should lie east (to the right) of the previous interruption; or, in the case\n"
                          "of the first interruption, east (to the right) of the left (western)\n"
                          "map boundary.")));
    EXPECT_EQ(Design.LobeText, texts);
    EXPECT_EQ(Design.LobeLonText, lobes);
    EXPECT_FALSE(IsSet());
}

/// Interruptions that the dialog refuses, on a map from 10 to 50 degrees east with a grid of 10.
struct RefusedRow {
    const char* name;
    std::vector<const char*> longitudes;
    std::int16_t code; ///< within its hemisphere
    int field;         ///< within its hemisphere
};
void PrintTo(const RefusedRow& row, std::ostream* stream) { *stream << row.name; }

class RefusedInterruptions : public BoundaryDialogs, public testing::WithParamInterface<RefusedRow> {
protected:
    void Refuse(int hemisphere, const char* west, const char* east) {
        Choose(ProjInterruptedMollweide);
        ProposeBounds();
        IsSet() = true;
        Design.GridText[GridTextWest] = west;
        Design.GridText[GridTextEast] = east;
        CalcGraticule();
        ProposeLobes();
        Design.LobeText[LobeTextCountNorth] = "0";
        Design.LobeText[LobeTextCountSouth] = "0";
        LatLonInterrupt form;
        form.Spin("NumInterrupt(" + std::to_string(hemisphere) + ")",
                  static_cast<int>(GetParam().longitudes.size()));
        const int first = 3 * hemisphere;
        for (std::size_t k = 0; k < GetParam().longitudes.size(); ++k) {
            form.Type("LonInt(" + std::to_string(first + static_cast<int>(k)) + ")",
                      GetParam().longitudes[k]);
        }
        form.PressDefault();
        ASSERT_EQ(machine.boxes.asked.size(), 1U);
        EXPECT_EQ(machine.boxes.asked[0].title, "Interrupted Longitude Error");
        EXPECT_EQ(machine.boxes.asked[0].text,
                  LonInterruptMessage(static_cast<std::int16_t>(GetParam().code + 14 * hemisphere)));
        EXPECT_EQ(form.Focus(), "LonInt(" + std::to_string(first + GetParam().field) + ")");
        EXPECT_FALSE(form.Closed());
        machine.boxes.Taken();
    }
};

TEST_P(RefusedInterruptions, ShowTheirMessageInEitherHemisphere) {
    const bool allRound = GetParam().name == std::string("WestOfTheFirst");
    const char* const west = allRound ? "020    00    00    E" : "010    00    00    E";
    const char* const east = allRound ? "020    00    00    E" : "050    00    00    E";
    Refuse(0, west, east);
    Refuse(1, west, east);
}

// clang-format off
INSTANTIATE_TEST_SUITE_P(All, RefusedInterruptions, testing::Values(
    RefusedRow{"FirstOutside",        {"060    00    00    E"}, 1, 0},
    RefusedRow{"SecondOutside",       {"020    00    00    E", "060    00    00    E"}, 2, 1},
    RefusedRow{"ThirdOutside",        {"020    00    00    E", "030    00    00    E", "060    00    00    E"}, 3, 2},
    RefusedRow{"WestOfTheFirst",      {"100    00    00    E", "020    00    00    E"}, 5, 1},
    RefusedRow{"EqualsLeft",          {"010    00    00    E"}, 8, 0},
    RefusedRow{"SecondEqualsFirst",   {"020    00    00    E", "020    00    00    E"}, 9, 1},
    RefusedRow{"ThirdEqualsSecond",   {"020    00    00    E", "030    00    00    E", "030    00    00    E"}, 10, 2},
    RefusedRow{"LastEqualsRight",     {"020    00    00    E", "050    00    00    E"}, 11, 1},
    RefusedRow{"FirstBesideTheGrid",  {"015    00    00    E"}, 12, 0},
    RefusedRow{"SecondBesideTheGrid", {"020    00    00    E", "035    00    00    E"}, 13, 1},
    RefusedRow{"ThirdBesideTheGrid",  {"020    00    00    E", "030    00    00    E", "045    00    00    E"}, 14, 2},
    RefusedRow{"WesternmostFaultFirst", {"015    00    00    E", "060    00    00    E"}, 12, 0}),
    [](const auto& test) { return test.param.name; });
// clang-format on

TEST_F(BoundaryDialogs, BoundsGoOnToTheInterruptionsAndCloseWithThem) {
    Choose(ProjInterruptedMollweide);
    machine.forms.Script("LatLonInterrupt", [](Form& form) { form.PressDefault(); });
    LatLonBounds form;
    form.PressDefault();
    EXPECT_THAT(machine.forms.shown, ElementsAre("LatLonInterrupt"));
    EXPECT_TRUE(form.Closed());
    EXPECT_TRUE(IsSet());
}

} // namespace
} // namespace quelmont
