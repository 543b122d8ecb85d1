#include "core/column_heads.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace quelmont {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

TEST(ColumnHeads, StandAboveTheGroupsOfAnAngle) {
    EXPECT_THAT(ColumnHeads("%%    %%    %%    ?"),
                ElementsAre(ColumnHead{0, 2, "deg"}, ColumnHead{6, 8, "min"}, ColumnHead{12, 14, "sec"}));
    EXPECT_THAT(ColumnHeads("%%%    %%    %%"),
                ElementsAre(ColumnHead{0, 3, "deg"}, ColumnHead{7, 9, "min"}, ColumnHead{13, 15, "sec"}));
}

TEST(ColumnHeads, NumbersHaveNone) {
    EXPECT_THAT(ColumnHeads("%,%%%,%%%"), IsEmpty());
    EXPECT_THAT(ColumnHeads("%.%%%%"), IsEmpty());
    EXPECT_EQ(ColumnWords("%.%%%%"), "");
}

TEST(ColumnHeads, AreReadOutWithTheLetterWhereThereIsOne) {
    EXPECT_EQ(ColumnWords("%%    %%    %%    ?"), "degrees, minutes, seconds, hemisphere");
    EXPECT_EQ(ColumnWords("%%%    %%    %%"), "degrees, minutes, seconds");
}

} // namespace
} // namespace quelmont
