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

TEST(FileNames, ExtensionFollowsTheFilter) {
    EXPECT_EQ(ExtensionOf({.extension = "dxf"}, 1), "dxf");
    EXPECT_EQ(ExtensionOf({.extension = "dxf"}, 2), "dxf") << "all filters have the same";
    EXPECT_EQ(ExtensionOf({.extension = "rtf|txt"}, 1), "rtf");
    EXPECT_EQ(ExtensionOf({.extension = "rtf|txt"}, 2), "txt");
    EXPECT_EQ(ExtensionOf({.extension = "rtf|txt"}, 0), "rtf") << "no filter in force";
    EXPECT_EQ(ExtensionOf({.extension = ""}, 2), "");
}

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

TEST(FileNames, FileDialogIsPresetWithTitleAndFolder) {
    FileDialogRequest request;
    EXPECT_EQ(ParseFileName("/home/user/world.map", request), "world.map");
    EXPECT_EQ(request.name, "world.map");
    EXPECT_EQ(request.folder, "/home/user");
    EXPECT_EQ(ParseFileName("C:\\maps\\other.pkv", request), "other.pkv");
    EXPECT_EQ(request.folder, "C:\\maps");
    EXPECT_EQ(ParseFileName("alone.map", request), "alone.map");
    EXPECT_EQ(request.name, "alone.map");
    EXPECT_EQ(request.folder, "C:\\maps") << "a name without a folder leaves the dialog's";
}

/// Fits what has at most that many bytes.
std::string Elided(std::string_view name, std::size_t bytes) {
    return ElidedName(name, [bytes](std::string_view text) { return text.size() <= bytes; });
}

TEST(FileNames, NameThatFitsIsShownWhole) { EXPECT_EQ(Elided("/maps/a.map", 11), "/maps/a.map"); }

TEST(FileNames, LongNameKeepsItsEndBehindThreeDots) {
    EXPECT_EQ(Elided("/maps/a.map", 10), "...s/a.map");
    EXPECT_EQ(Elided("/maps/a.map", 4), "...p");
    EXPECT_EQ(Elided("/maps/a.map", 3), "...");
    EXPECT_EQ(Elided("/maps/a.map", 0), "...");
    EXPECT_EQ(Elided("", 0), "");
}

TEST(FileNames, NoCharacterOfALongNameIsCutInTwo) {
    EXPECT_EQ(Elided("/maps/K\xC3\xB6ln.map", 10), "...ln.map") << "half a letter would fit";
    EXPECT_EQ(Elided("/maps/K\xC3\xB6ln.map", 11), "...\xC3\xB6ln.map");
}

TEST(FileNames, FolderAndTitleAreJoinedByOneSeparator) {
    EXPECT_EQ(InFolder("/home/user", "a.map"), "/home/user/a.map");
    EXPECT_EQ(InFolder("/home/user/", "a.map"), "/home/user/a.map");
    EXPECT_EQ(InFolder("C:\\maps\\", "a.map"), "C:\\maps\\a.map");
    EXPECT_EQ(InFolder("", "a.map"), "a.map");
}

TEST(Extension, IsPutBehindANameThatLacksIt) {
    EXPECT_EQ(WithExtension("map", "cgm"), "map.cgm");
    EXPECT_EQ(WithExtension("map.cgm", "cgm"), "map.cgm");
    EXPECT_EQ(WithExtension("MAP.CGM", "cgm"), "MAP.CGM");
    EXPECT_EQ(WithExtension("map.dxf", "cgm"), "map.dxf.cgm");
    EXPECT_EQ(WithExtension("map.", "cgm"), "map..cgm");
    EXPECT_EQ(WithExtension("cgm", "cgm"), "cgm.cgm");
    EXPECT_EQ(WithExtension("", "cgm"), ".cgm");
}

} // namespace
} // namespace quelmont
