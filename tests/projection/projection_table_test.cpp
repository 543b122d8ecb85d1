#include "projection/projection_table.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <vector>

namespace quelmont {
namespace {

using testing::ElementsAre;

/// The numbers, in rising order, of which something holds; those without an entry are asked too.
template <typename Holds>
std::vector<int> Which(Holds&& holds) {
    std::vector<int> numbers;
    for (int projNum = -2; projNum < 100; ++projNum) {
        if (holds(static_cast<std::int16_t>(projNum))) {
            numbers.push_back(projNum);
        }
    }
    return numbers;
}

std::vector<int> Family(ProjectionFamily family) {
    return Which([family](std::int16_t projNum) { return PropertiesOf(projNum).family == family; });
}

TEST(ProjectionTable, FindsEveryNumberAndNoOther) {
    EXPECT_THAT(Which([](std::int16_t projNum) { return FindProjection(projNum) != nullptr; }),
                ElementsAre(1, 2, 6, 7, 8, 12, 16, 17, 26, 27, 28, 29, 30, 31, 40, 41, 42));
    for (const ProjectionEntry& entry : Projections) {
        const ProjectionEntry* const found = FindProjection(entry.ProjNum);
        ASSERT_NE(found, nullptr);
        EXPECT_EQ(found->ProjNum, entry.ProjNum);
        EXPECT_EQ(found->ProjName, entry.ProjName);
    }
}

TEST(ProjectionTable, FamiliesShareNoProjection) {
    EXPECT_THAT(Family(ProjectionFamily::Cylindrical), ElementsAre(1, 2, 40));
    EXPECT_THAT(Family(ProjectionFamily::Pseudocylindrical), ElementsAre(12, 16, 41, 42));
    EXPECT_THAT(Family(ProjectionFamily::Conic), ElementsAre(6, 7, 8));
    EXPECT_THAT(Family(ProjectionFamily::Azimuthal), ElementsAre(26, 27, 28, 29, 30, 31));
    EXPECT_THAT(Family(ProjectionFamily::MetricGrid), ElementsAre(17));
    EXPECT_THAT(Which(IsAzimuthal), ElementsAre(26, 27, 28, 29, 30, 31));
    EXPECT_THAT(Which(IsConic), ElementsAre(6, 7, 8));
}

TEST(ProjectionTable, ConesHaveTwoStandardParallelsAndTwoCylindersOne) {
    const auto have = [](int count) {
        return Which([count](std::int16_t n) {
            return PropertiesOf(n).standardParallels == count && FindProjection(n) != nullptr;
        });
    };
    EXPECT_THAT(have(2), ElementsAre(6, 7, 8));
    EXPECT_THAT(have(1), ElementsAre(2, 40));
    EXPECT_THAT(have(0), ElementsAre(1, 12, 16, 17, 26, 27, 28, 29, 30, 31, 41, 42));
}

TEST(ProjectionTable, DiscsOfTheWholeGlobeAndTheStereographicOneReachTheAntipode) {
    EXPECT_THAT(Which([](std::int16_t projNum) { return PropertiesOf(projNum).wholeGlobe; }),
                ElementsAre(30, 31));
    EXPECT_THAT(Which([](std::int16_t projNum) { return PropertiesOf(projNum).antipode; }),
                ElementsAre(27, 30, 31));
}

} // namespace
} // namespace quelmont
