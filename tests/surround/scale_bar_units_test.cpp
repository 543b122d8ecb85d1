#include "surround/scale_bar_units.h"

#include <gtest/gtest.h>

namespace quelmont {
namespace {

TEST(ScaleBarUnits, HaveTheWordsOfTheCommandLine) {
    EXPECT_EQ(WordOf(ScaleBarUnit::None), "none");
    EXPECT_EQ(WordOf(ScaleBarUnit::Kilometres), "km");
    EXPECT_EQ(WordOf(ScaleBarUnit::StatuteMiles), "mi");
    EXPECT_EQ(WordOf(ScaleBarUnit::NauticalMiles), "nmi");
}

TEST(ScaleBarUnits, AreFoundByTheirWordsAlone) {
    EXPECT_EQ(ScaleBarUnitOf("nmi"), ScaleBarUnit::NauticalMiles);
    EXPECT_EQ(ScaleBarUnitOf("none"), ScaleBarUnit::None);
    for (const char* const word : {"", "KM", "k", "km ", "miles"}) {
        EXPECT_FALSE(ScaleBarUnitOf(word)) << word;
    }
}

} // namespace
} // namespace quelmont
