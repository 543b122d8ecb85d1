#include "core/file_names.h"

#include <gtest/gtest.h>

namespace quelmont {
namespace {

TEST(FileNames, LastThreeLettersAreCapitals) {
    EXPECT_EQ(LastThreeLetters("world.map"), "MAP");
    EXPECT_EQ(LastThreeLetters("C:\\maps\\world.Mp1"), "MP1");
    EXPECT_EQ(LastThreeLetters("map"), "MAP");
    EXPECT_EQ(LastThreeLetters("a"), "A");
    EXPECT_EQ(LastThreeLetters(""), "");
}

TEST(FileNames, OtherCharactersThanLettersStay) { EXPECT_EQ(Capitals("z\xC3\xBC_9[`{"), "Z\xC3\xBC_9[`{"); }

TEST(FileNames, TitleLiesBehindTheLastSeparator) {
    EXPECT_EQ(ParseFileName("C:\\maps\\world.map").title, "world.map");
    EXPECT_EQ(ParseFileName("C:\\maps\\world.map").folder, "C:\\maps");
    EXPECT_EQ(ParseFileName("/home/user/world.map").title, "world.map");
    EXPECT_EQ(ParseFileName("/home/user/world.map").folder, "/home/user");
    EXPECT_EQ(ParseFileName("D:world.map").title, "world.map");
    EXPECT_EQ(ParseFileName("D:world.map").folder, "D");
    EXPECT_EQ(ParseFileName("/mixed\\and:more").title, "more");
}

TEST(FileNames, NameWithoutASeparatorIsAllTitle) {
    EXPECT_EQ(ParseFileName("world.map").title, "world.map");
    EXPECT_EQ(ParseFileName("world.map").folder, "");
    EXPECT_EQ(ParseFileName("").title, "");
}

TEST(FileNames, FolderThatEndsTheNameLeavesNoTitle) {
    EXPECT_EQ(ParseFileName("/home/user/").title, "");
    EXPECT_EQ(ParseFileName("/home/user/").folder, "/home/user");
}

TEST(FileNames, RootIsAFolder) {
    EXPECT_EQ(ParseFileName("/world.map").folder, "/");
    EXPECT_EQ(ParseFileName("/world.map").title, "world.map");
}

TEST(FileNames, FolderAndTitleAreJoinedByOneSeparator) {
    EXPECT_EQ(InFolder("/home/user", "a.map"), "/home/user/a.map");
    EXPECT_EQ(InFolder("/home/user/", "a.map"), "/home/user/a.map");
    EXPECT_EQ(InFolder("C:\\maps\\", "a.map"), "C:\\maps\\a.map");
    EXPECT_EQ(InFolder("", "a.map"), "a.map");
}

} // namespace
} // namespace quelmont
