#include "core/kept_values.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>

namespace quelmont {
namespace {

class KeptTexts : public ::testing::Test {
protected:
    void Keep(int key, std::size_t bytes) {
        texts.Keep(key, std::make_shared<const std::string>(std::to_string(key)), bytes);
    }
    KeptValues<int, std::string> texts{100};
};

TEST_F(KeptTexts, AreFoundByTheirKeys) {
    Keep(1, 30);
    Keep(2, 30);
    ASSERT_NE(texts.Find(1), nullptr);
    EXPECT_EQ(*texts.Find(1), "1");
    EXPECT_EQ(*texts.Find(2), "2");
    EXPECT_EQ(texts.Find(3), nullptr);
}

TEST_F(KeptTexts, ThoseUsedLongestAgoMakeRoom) {
    Keep(1, 40);
    Keep(2, 40);
    texts.Find(1);
    Keep(3, 40);
    EXPECT_NE(texts.Find(1), nullptr);
    EXPECT_EQ(texts.Find(2), nullptr);
    EXPECT_NE(texts.Find(3), nullptr);
    Keep(4, 100);
    EXPECT_EQ(texts.Find(1), nullptr);
    EXPECT_EQ(texts.Find(3), nullptr);
    EXPECT_NE(texts.Find(4), nullptr) << "as many bytes as there may be";
}

TEST_F(KeptTexts, OneThatIsTooLongLeavesTheOthersWhereTheyAre) {
    Keep(1, 40);
    Keep(2, 101);
    EXPECT_EQ(texts.Find(2), nullptr);
    EXPECT_NE(texts.Find(1), nullptr);
}

TEST_F(KeptTexts, OneInHandOutlivesItsPlace) {
    Keep(1, 100);
    const auto held = texts.Find(1);
    Keep(2, 100);
    EXPECT_EQ(texts.Find(1), nullptr);
    EXPECT_EQ(*held, "1");
}

} // namespace
} // namespace quelmont
