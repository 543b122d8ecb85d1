#include "reports/scale_samples.h"

#include "core/map_design.h"
#include "projection/projection_table.h"
#include "reports/report_fixture.h"
#include "reports/reports_state.h"

#include <gmock/gmock.h>

#include <set>

namespace quelmont {
namespace {

using testing::Each;
using testing::ElementsAre;
using testing::ElementsAreArray;
using testing::IsEmpty;

using Column = std::vector<std::string>;

class Samples : public ReportTest {
protected:
    static Column Rows(const ScaleErrColumn& column) {
        const auto rows = static_cast<std::ptrdiff_t>(SampleScaleErrors());
        return {column.begin() + 1, column.begin() + 1 + rows};
    }
    static Column Latitudes() { return Rows(ReportsNow.ScaleErrLatText); }
    static Column Longitudes() { return Rows(ReportsNow.ScaleErrLonText); }
};

TEST_F(Samples, CylinderOfFewGridLinesHasOneForEach) {
    Start(ProjEquirectangular);
    EXPECT_THAT(Latitudes(), ElementsAre("90 00 00 S", "60 00 00 S", "30 00 00 S", "00 00 00 N", "30 00 00 N",
                                         "60 00 00 N", "90 00 00 N"));
    EXPECT_THAT(Longitudes(), Each("000 00 00 E"));
}

TEST_F(Samples, ThirteenSpacingsAreFewAndFourteenMany) {
    Start(ProjEquirectangular);
    SetBounds("65    00    00    N", "00    00    00    N", "005    00    00");
    EXPECT_EQ(Latitudes().size(), 14U);
    SetBounds("70    00    00    N", "00    00    00    N", "005    00    00");
    EXPECT_EQ(Latitudes().size(), 11U);
}

TEST_F(Samples, CylinderOfManyGridLinesOnOneSideOfTheEquatorHasEleven) {
    Start(ProjEquirectangular);
    SetBounds("80    00    00    N", "10    00    00    N", "001    00    00");
    EXPECT_THAT(Latitudes(), ElementsAre("10 00 00 N", "17 00 00 N", "24 00 00 N", "31 00 00 N", "38 00 00 N",
                                         "45 00 00 N", "52 00 00 N", "59 00 00 N", "66 00 00 N", "73 00 00 N",
                                         "80 00 00 N"));
}

TEST_F(Samples, CylinderOfManyGridLinesAcrossTheEquatorGoesFromThereToTheFartherBoundary) {
    Start(ProjEquirectangular);
    SetBounds("30    00    00    N", "65    00    00    S", "005    00    00");
    EXPECT_THAT(Latitudes(), ElementsAre("00 00 00 N", "05 00 00 S", "10 00 00 S", "15 00 00 S", "20 00 00 S",
                                         "25 00 00 S", "30 00 00 S", "35 00 00 S", "40 00 00 S", "45 00 00 S",
                                         "50 00 00 S", "55 00 00 S", "60 00 00 S", "65 00 00 S"));
    SetBounds("80    00    00    N", "80    00    00    S", "002    00    00");
    EXPECT_THAT(Latitudes(), ElementsAre("00 00 00 N", "08 00 00 N", "16 00 00 N", "24 00 00 N", "32 00 00 N",
                                         "40 00 00 N", "48 00 00 N", "56 00 00 N", "64 00 00 N", "72 00 00 N",
                                         "80 00 00 N"));
}

TEST_F(Samples, BeyondTheEndThereIsNone) {
    Start(ProjEquirectangular);
    // Fifteen spacings of seven degrees from 41 S; from the equator they miss the boundary at 64 N.
    SetBounds("64    00    00    N", "41    00    00    S", "007    00    00");
    const Column latitudes = Latitudes();
    ASSERT_EQ(latitudes.size(), 10U);
    EXPECT_EQ(latitudes.back(), "63 00 00 N");
}

TEST_F(Samples, OvalAcrossTheEquatorHasThreeColumnsOfThirds) {
    Start(ProjHammer);
    const Column four = {"00 00 00 N", "30 00 00 N", "60 00 00 N", "90 00 00 N"};
    Column all;
    for (int i = 0; i < 3; ++i) {
        all.insert(all.end(), four.begin(), four.end());
    }
    EXPECT_THAT(Latitudes(), ElementsAreArray(all));
    EXPECT_THAT(Longitudes(), ElementsAre("180 00 00 E", "180 00 00 E", "180 00 00 E", "180 00 00 E",
                                          "090 00 00 E", "090 00 00 E", "090 00 00 E", "090 00 00 E",
                                          "000 00 00 E", "000 00 00 E", "000 00 00 E", "000 00 00 E"));
}

TEST_F(Samples, OvalOnOneSideOfTheEquatorGoesNorth) {
    Start(ProjRobinson);
    SetBounds("10    00    00    S", "70    00    00    S", "010    00    00");
    Column latitudes = Latitudes();
    ASSERT_EQ(latitudes.size(), 12U);
    latitudes.resize(4);
    EXPECT_THAT(latitudes, ElementsAre("70 00 00 S", "50 00 00 S", "30 00 00 S", "10 00 00 S"));
}

TEST_F(Samples, MiddleColumnOfAnOvalAcrossThe180thMeridianIsBackInTheWest) {
    Start(ProjMollweide);
    Design.GridText[GridTextWest] = "100    00    00    E";
    Design.GridText[GridTextEast] = "080    00    00    W";
    Design.GridText[GridTextLonSpacing] = "010    00    00";
    Prepare();
    // The middle is 170 W; half way from there to 80 W is 125 W.
    const Column longitudes = Longitudes();
    ASSERT_EQ(longitudes.size(), 12U);
    EXPECT_EQ(longitudes[0], "080 00 00 W");
    EXPECT_EQ(longitudes[4], "125 00 00 W");
    EXPECT_EQ(longitudes[8], "170 00 00 W");
}

TEST_F(Samples, ConeGoesNorthByItsGridOrInTenSteps) {
    Start(ProjAlbers);
    EXPECT_EQ(Latitudes().size(), 7U);
    SetBounds("70    00    00    N", "00    00    00    N", "005    00    00");
    EXPECT_THAT(Latitudes(), ElementsAre("00 00 00 N", "07 00 00 N", "14 00 00 N", "21 00 00 N", "28 00 00 N",
                                         "35 00 00 N", "42 00 00 N", "49 00 00 N", "56 00 00 N", "63 00 00 N",
                                         "70 00 00 N"));
}

TEST_F(Samples, ZoneIsCrossedFromWestToEastAtItsMiddle) {
    Start(ProjUtm);
    EXPECT_THAT(Longitudes(),
                ElementsAre("0,300,000", "0,400,000", "0,500,000", "0,600,000", "0,700,000", "0,800,000"));
    EXPECT_THAT(Latitudes(), Each("05,900,000"));
    Design.UtmText[UtmTextEastingSpacing] = "0010000";
    Prepare();
    EXPECT_EQ(Longitudes().size(), 11U);
}

TEST_F(Samples, DiscGoesOutwardOverThePole) {
    Start(ProjAzimuthalEquidistant, 180);
    EXPECT_THAT(Latitudes(), ElementsAre("40 00 00 N", "70 00 00 N", "80 00 00 N", "50 00 00 N", "20 00 00 N",
                                         "10 00 00 S", "40 00 00 S"));
    EXPECT_THAT(Longitudes(), ElementsAre("000 00 00 E", "000 00 00 E", "180 00 00 E", "180 00 00 E",
                                          "180 00 00 E", "180 00 00 E", "180 00 00 E"));
    EXPECT_EQ(ReportsNow.ScaleErrParallel[7], "Infinite");
}

TEST_F(Samples, LongitudeBeyondThePoleIsTheOppositeOne) {
    for (const auto& [centre, opposite] : {std::pair{"030    00    00    E", "150 00 00 W"},
                                           {"030    00    00    W", "150 00 00 E"},
                                           {"180    00    00    E", "000 00 00 E"},
                                           {"180    00    00    W", "000 00 00 E"}}) {
        Design.GridText[GridTextCentralLon] = centre;
        Start(ProjAzimuthalEqualArea, 90);
        EXPECT_EQ(Longitudes().back(), opposite) << centre;
    }
}

TEST_F(Samples, DiscAboutTheNorthPoleGoesSouthAndAboutTheSouthPoleNorth) {
    Design.GridText[GridTextCentralLat] = "90    00    00    N";
    Start(ProjAzimuthalEquidistant, 90);
    EXPECT_THAT(Latitudes(), ElementsAre("90 00 00 N", "60 00 00 N", "30 00 00 N", "00 00 00 N"));
    EXPECT_EQ(ReportsNow.ScaleErrMeridian[4], "1.0000E+00");
    Design.GridText[GridTextCentralLat] = "90    00    00    S";
    Start(ProjAzimuthalEquidistant, 90);
    EXPECT_THAT(Latitudes(), ElementsAre("90 00 00 S", "60 00 00 S", "30 00 00 S", "00 00 00 N"));
}

TEST_F(Samples, DiscOfManyGridLinesHasTenths) {
    Design.GridText[GridTextLatSpacing] = "005    00    00";
    Start(ProjStereographic, 60);
    EXPECT_EQ(Latitudes().size(), 13U);
    Start(ProjStereographic, 65);
    EXPECT_EQ(Latitudes().size(), 11U);
}

TEST_F(Samples, DiscThatTheGridDoesNotDivideEndsBeforeItsRim) {
    Start(ProjGnomonic, 80);
    EXPECT_THAT(Latitudes(), ElementsAre("40 00 00 N", "70 00 00 N", "80 00 00 N"));
}

TEST_F(Samples, FailedOneEndsTheTable) {
    Start(ProjStereographic);
    Design.RangeSec = SecPerHalfCircle;
    EXPECT_EQ(SampleScaleErrors(), 6U);
    EXPECT_EQ(machine.boxes.Taken().size(), 1U);
}

TEST_F(Samples, InterruptedProjectionHasNoneAndNoNotesOfAnother) {
    Start(ProjMercator);
    SampleScaleErrors();
    Design.ProjNum = ProjInterruptedMollweide;
    EXPECT_EQ(SampleScaleErrors(), 0U);
    EXPECT_THAT(ReportsNow.ScaleErrNotes, Each(""));
}

TEST_F(Samples, NoPlaceIsRepeatedOnAnyProjection) {
    for (const ProjectionEntry& entry : Projections) {
        for (const char* const grid : {"020    00    00", "010    00    00", "001    00    00"}) {
            Start(entry.ProjNum, entry.ProjNum == ProjGnomonic ? 80 : 90);
            Design.GridText[GridTextLatSpacing] = grid;
            Prepare();
            const std::size_t rows = SampleScaleErrors();
            EXPECT_EQ(rows == 0, entry.ProjNum == ProjInterruptedMollweide);
            std::set<std::pair<std::string, std::string>> places;
            for (std::size_t i = 1; i <= rows; ++i) {
                EXPECT_TRUE(
                    places.emplace(ReportsNow.ScaleErrLatText[i], ReportsNow.ScaleErrLonText[i]).second)
                    << entry.ProjName << ' ' << grid << ' ' << i;
                EXPECT_NE(ReportsNow.ScaleErrArea[i], "");
            }
            EXPECT_THAT(machine.boxes.Taken(), IsEmpty()) << entry.ProjName;
        }
    }
}

} // namespace
} // namespace quelmont
