#include "view/bounds_proposal.h"

#include "designfile/cnf_save.h"
#include "mainwindow/started_program.h"
#include "view/region_samples.h"

#include <gtest/gtest.h>

namespace quelmont {
namespace {

class BoundsProposed : public StartedProgram {
protected:
    /// For the region of the design.
    static DesignBounds Proposed(std::int16_t projNum) {
        const std::string before = DesignFileText();
        const auto bounds = ProposeBoundsFor(projNum, RegionOfDesign());
        EXPECT_TRUE(bounds);
        EXPECT_EQ(DesignFileText(), before) << "the design stays as it is";
        return bounds.value_or(DesignBounds());
    }
    static void AcceptUnitedStates() {
        AcceptBox(ProjEquirectangular, {"50", "N"}, {"25", "N"}, {"125", "W"}, {"065", "W"});
    }
};

TEST_F(BoundsProposed, ConeHasTheBoundsAsTheyStandAndParallelsAtOneSixthAndFiveSixths) {
    AcceptUnitedStates();
    for (const std::int16_t cone : {ProjAlbers, ProjConformalConic, ProjEquidistantConic}) {
        const DesignBounds bounds = Proposed(cone);
        EXPECT_EQ(bounds.GridText, Design.GridText);
        // A sixth of the 25 degrees is 4 10'.
        EXPECT_EQ(bounds.StdParText[StdParTextNorth], "45    50    00    N");
        EXPECT_EQ(bounds.StdParText[StdParTextSouth], "29    10    00    N");
        EXPECT_EQ(bounds.BoundsProjNum, cone) << "ready to be drawn";
    }
}

TEST_F(BoundsProposed, CylinderHasItsParallelInTheMiddle) {
    AcceptUnitedStates();
    EXPECT_EQ(Proposed(ProjCylindricalEqualArea).StdParText[StdParTextNorth], "37    30    00    N");
}

TEST_F(BoundsProposed, ParallelsOfAnEarlierMapAreNotProposed) {
    AcceptBox(ProjAlbers, {"80", "N"}, {"20", "N"}, {"125", "W"}, {"065", "W"});
    AcceptUnitedStates();
    EXPECT_EQ(Proposed(ProjAlbers).StdParText[StdParTextNorth], "45    50    00    N");
}

TEST_F(BoundsProposed, MercatorHasTheWorldWithoutItsPoles) {
    const DesignBounds bounds = Proposed(ProjMercator);
    EXPECT_EQ(bounds.GridText[GridTextNorth], "80    00    00    N");
    EXPECT_EQ(bounds.GridText[GridTextSouth], "80    00    00    S");
    EXPECT_DOUBLE_EQ(bounds.LonSpan, 360.0);
}

TEST_F(BoundsProposed, MercatorHasOfARegionWhatItCanShow) {
    AcceptBox(ProjEquirectangular, {"90", "N"}, {"40", "N"}, {"010", "W"}, {"040", "E"});
    const DesignBounds bounds = Proposed(ProjMercator);
    EXPECT_EQ(bounds.GridText[GridTextNorth], "80    00    00    N");
    EXPECT_EQ(bounds.GridText[GridTextSouth], "40    00    00    N");
    AcceptBox(ProjEquirectangular, {"90", "N"}, {"85", "N"}, {"010", "W"}, {"040", "E"});
    EXPECT_FALSE(ProposeBoundsFor(ProjMercator, RegionOfDesign())) << "nothing of it";
}

TEST_F(BoundsProposed, WorldKeepsItsWesternBoundary) {
    AcceptBox(ProjEquirectangular, {"90", "N"}, {"90", "S"}, {"030", "W"}, {"030", "W"});
    for (const std::int16_t projection : {ProjRobinson, ProjMercator, ProjMollweide}) {
        const DesignBounds bounds = Proposed(projection);
        EXPECT_DOUBLE_EQ(bounds.LonWest, -30.0);
        EXPECT_DOUBLE_EQ(bounds.LonSpan, 360.0);
    }
}

TEST_F(BoundsProposed, DiscHasTheMiddleOfTheBoxAndARangeThatHoldsIt) {
    AcceptUnitedStates();
    const DesignBounds bounds = Proposed(ProjAzimuthalEqualArea);
    EXPECT_EQ(bounds.GridText[GridTextCentralLat], "38    00    00    N");
    EXPECT_EQ(bounds.GridText[GridTextCentralLon], "095    00    00    W");
    EXPECT_EQ(bounds.GridText[GridTextRange], "030    00    00") << "28.5 degrees, up to whole five";
    EXPECT_EQ(bounds.GridText[GridTextLatSpacing], "015    00    00");
}

TEST_F(BoundsProposed, DiscOfAPolarRegionIsAboutThePole) {
    AcceptBox(ProjEquirectangular, {"60", "S"}, {"90", "S"}, {"180", "W"}, {"180", "E"});
    const DesignBounds bounds = Proposed(ProjStereographic);
    EXPECT_EQ(bounds.GridText[GridTextCentralLat], "90    00    00    S");
    EXPECT_EQ(bounds.GridText[GridTextRange], "030    00    00");
}

TEST_F(BoundsProposed, DiscOfADiscHasItsCentreAndRange) {
    AcceptCircle(ProjStereographic, {"51", "N"}, {"007", "E"}, "033");
    const DesignBounds bounds = Proposed(ProjAzimuthalEquidistant);
    EXPECT_EQ(bounds.GridText[GridTextCentralLat], "51    00    00    N");
    EXPECT_EQ(bounds.GridText[GridTextCentralLon], "007    00    00    E");
    EXPECT_EQ(bounds.GridText[GridTextRange], "033    00    00");
}

TEST_F(BoundsProposed, HalfTheGlobeIsTheMostOfAStereographicMapAndTooMuchForAGnomonicOne) {
    const DesignBounds bounds = Proposed(ProjStereographic);
    EXPECT_EQ(bounds.GridText[GridTextRange], "090    00    00");
    EXPECT_EQ(Proposed(ProjAzimuthalEquidistant).GridText[GridTextRange], "180    00    00");
    EXPECT_FALSE(ProposeBoundsFor(ProjGnomonic, RegionOfDesign()));
}

TEST_F(BoundsProposed, HeightIsTheOneFromWhichTheRegionIsSeen) {
    AcceptCircle(ProjStereographic, {"50", "N"}, {"010", "E"}, "060");
    // 6371 km / cos 60 - 6371 km.
    EXPECT_EQ(Proposed(ProjVerticalPerspective).GridText[GridTextHeight], "00006380");
    EXPECT_NEAR(Proposed(ProjVerticalPerspective).RangeSec, 60 * 3600, 200);
}

TEST_F(BoundsProposed, BoxOfADiscHasWholeUnitsAboutIt) {
    AcceptCircle(ProjStereographic, {"51", "N"}, {"007", "E"}, "018");
    const DesignBounds bounds = Proposed(ProjAlbers); // 33 to 69 degrees, and the longitudes to 29.4 about 7
    EXPECT_EQ(bounds.GridText[GridTextSouth], "30    00    00    N");
    EXPECT_EQ(bounds.GridText[GridTextNorth], "70    00    00    N");
    EXPECT_EQ(bounds.GridText[GridTextWest], "025    00    00    W");
    EXPECT_EQ(bounds.GridText[GridTextEast], "040    00    00    E");
    EXPECT_EQ(bounds.GridText[GridTextLatSpacing], "010    00    00");
    EXPECT_EQ(bounds.GridText[GridTextLonSpacing], "005    00    00") << "65 degrees have no other divisor";
}

TEST_F(BoundsProposed, ZoneOfSixDegreesHoldsTheRegionInMetres) {
    AcceptBox(ProjEquirectangular, {"48", "N"}, {"47", "N"}, {"007", "E"}, {"008", "E"});
    const DesignBounds bounds = Proposed(ProjUtm);
    EXPECT_EQ(bounds.SpheroidName, "WGS84 1984");
    EXPECT_EQ(bounds.UtmText[UtmTextCentralLon], "009    00    00    E");
    EXPECT_EQ(bounds.UtmText[UtmTextFalseNorthing], "00000000");
    EXPECT_EQ(bounds.UtmText[UtmTextScale], "0.9996");
    // PROJ has it between 347951 and 425405 m east, 5205649 and 5318236 m north.
    EXPECT_EQ(bounds.UtmText[UtmTextSouth], "05200000");
    EXPECT_EQ(bounds.UtmText[UtmTextNorth], "05320000");
    EXPECT_EQ(bounds.UtmText[UtmTextNorthingSpacing], "00020000");
    EXPECT_EQ(bounds.UtmText[UtmTextWest], "0340000");
    EXPECT_EQ(bounds.UtmText[UtmTextEast], "0440000");
    EXPECT_EQ(bounds.UtmText[UtmTextEastingSpacing], "0020000");
}

TEST_F(BoundsProposed, ZoneOfTheSouthHasItsFalseNorthingAndTheLastOneIsAt177East) {
    AcceptBox(ProjEquirectangular, {"36", "S"}, {"37", "S"}, {"174", "E"}, {"175", "E"});
    const DesignBounds bounds = Proposed(ProjUtm);
    EXPECT_EQ(bounds.UtmText[UtmTextCentralLon], "177    00    00    E");
    EXPECT_EQ(bounds.UtmText[UtmTextFalseNorthing], "10000000");
    AcceptUnitedStates();
    EXPECT_FALSE(ProposeBoundsFor(ProjUtm, RegionOfDesign())) << "wider than any zone";
}

TEST_F(BoundsProposed, InterruptedMapHasTheWorldWithItsLobes) {
    AcceptBox(ProjEquirectangular, {"90", "N"}, {"90", "S"}, {"030", "W"}, {"030", "W"});
    const DesignBounds bounds = Proposed(ProjInterruptedMollweide);
    EXPECT_EQ(bounds.GridText[GridTextWest], "020    00    00    E");
    EXPECT_EQ(bounds.LobeText[LobeTextCountNorth], "2");
}

} // namespace
} // namespace quelmont
