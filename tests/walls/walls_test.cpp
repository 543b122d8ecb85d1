#include "walls/walls.h"

#include "support/temporary_folder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <sstream>

namespace quelmont {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::UnorderedElementsAre;

std::set<std::string> WidgetHeaders() {
    std::set<std::string> names;
    std::istringstream folders(QUELMONT_WIDGET_FOLDERS);
    for (std::string folder; std::getline(folders, folder, ',');) {
        const std::string name = std::filesystem::path(folder).filename();
        if (name == "QtWidgets" || name == "QtPrintSupport") {
            for (const auto& entry : std::filesystem::directory_iterator(folder)) {
                names.insert(entry.path().filename().string());
            }
        }
    }
    return names;
}

std::vector<Room> OurRooms() { return ReadRooms(ReadWholeFile(QUELMONT_ROOMS)); }

TEST(Walls, NoRoomDeclaresOneThatDoesNotLieBelow) {
    const std::vector<Room> rooms = OurRooms();
    ASSERT_GE(rooms.size(), 2U);
    EXPECT_THAT(BadDeclarations(rooms), IsEmpty());
}

TEST(Walls, NoIncludeBreaksOne) {
    EXPECT_THAT(BadIncludes(OurRooms(), QUELMONT_SOURCE, WidgetHeaders()), IsEmpty());
}

TEST(Walls, ConverterIsLinkedWithNothingThatPaints) {
    EXPECT_THAT(LinkedRooms(OurRooms(), "convert"),
                UnorderedElementsAre("mapfiles", "projection", "core", "platform"));
}

TEST(Walls, NoNumberFollowsTheLocale) { EXPECT_THAT(LocaleDependentLines(QUELMONT_SOURCE), IsEmpty()); }

TEST(Walls, HeadersOfQtWidgetsAreKnown) {
    const std::set<std::string> headers = WidgetHeaders();
    EXPECT_TRUE(headers.contains("QMainWindow"));
    EXPECT_TRUE(headers.contains("qmainwindow.h"));
    EXPECT_FALSE(headers.contains("QImage"));
}

/// A house of three floors on the disk, sound as it stands, into which a test breaks holes.
class MadeUpHouse : public testing::Test {
protected:
    MadeUpHouse() {
        Write("src/ground/ground.h", "#pragma once\n#include <vector>\n");
        Write("src/middle/middle.h", "#include \"ground/ground.h\"\n");
        Write("src/middle/deep/part.cpp", "#include \"middle/middle.h\"\n#include \"ground/ground.h\"\n");
        Write("src/neighbour/neighbour.h", "#include \"ground/ground.h\"\n");
        Write("src/desktop/window.cpp", "#include <QMainWindow>\n#include <QtWidgets/QLabel>\n");
        Write("apps/program/main.cpp", "#include \"desktop/window.h\"\n#include \"ground/ground.h\"\n");
    }

    void Write(const std::string& name, std::string_view text) const {
        std::filesystem::create_directories(std::filesystem::path(folder / name).parent_path());
        WriteWholeFile(folder / name, text);
    }

    std::vector<std::string> Faults() const { return BadIncludes(rooms, folder.Path(), {"QMainWindow"}); }

    TemporaryFolder folder;
    std::vector<Room> rooms = {{"ground", 0, {}},
                               {"middle", 1, {"ground"}},
                               {"neighbour", 1, {"ground"}},
                               {"surface", 8, {"middle"}},
                               {"desktop", 9, {"middle"}}};
};

TEST_F(MadeUpHouse, IsSound) { EXPECT_THAT(Faults(), IsEmpty()); }

TEST_F(MadeUpHouse, UpwardIncludeIsReported) {
    Write("src/ground/ground.cpp", "// up\n  #  include \"middle/middle.h\"\n");
    EXPECT_THAT(Faults(),
                ElementsAre("src/ground/ground.cpp:2: middle/middle.h: middle does not lie below ground"));
}

TEST_F(MadeUpHouse, UpwardIncludeInAngleBracketsIsReported) {
    Write("src/ground/ground.cpp", "#include <middle/middle.h>\n");
    EXPECT_THAT(Faults(),
                ElementsAre("src/ground/ground.cpp:1: middle/middle.h: middle does not lie below ground"));
}

TEST_F(MadeUpHouse, IncludeOnOneFloorIsReported) {
    Write("src/middle/deep/other.cpp", "#include \"neighbour/neighbour.h\"\n");
    EXPECT_THAT(Faults(),
                ElementsAre("src/middle/deep/other.cpp:1: neighbour/neighbour.h: neighbour does not "
                            "lie below middle"));
}

TEST_F(MadeUpHouse, IncludeThatWasNotDeclaredIsReported) {
    Write("src/surface/surface.h", "#include \"ground/ground.h\"\n");
    EXPECT_THAT(Faults(),
                ElementsAre("src/surface/surface.h:1: ground/ground.h: surface did not declare ground"));
}

TEST_F(MadeUpHouse, IncludeOfNoRoomIsReported) {
    Write("src/middle/lost.cpp", "#include \"middle.h\"\n#include \"apps/program/main.h\"\n");
    EXPECT_THAT(Faults(), UnorderedElementsAre(
                              "src/middle/lost.cpp:1: middle.h: this is the header of no room",
                              "src/middle/lost.cpp:2: apps/program/main.h: this is the header of no room"));
}

TEST_F(MadeUpHouse, FileInNoRoomIsReported) {
    Write("src/attic/attic.h", "#pragma once\n");
    Write("src/loose.cpp", "int x;\n");
    EXPECT_THAT(Faults(), UnorderedElementsAre("src/attic/attic.h:1: this file lies in no room",
                                               "src/loose.cpp:1: this file lies in no room"));
}

TEST_F(MadeUpHouse, WidgetsOutsideTheDesktopAreReported) {
    Write("src/surface/surface.h", "#include <QMainWindow>\n#include <QImage>\n");
    Write("apps/program/main.cpp", "#include <QtWidgets/QApplication>\n");
    EXPECT_THAT(Faults(),
                UnorderedElementsAre(
                    "src/surface/surface.h:1: QMainWindow: only desktop may know Qt Widgets",
                    "apps/program/main.cpp:1: QtWidgets/QApplication: only desktop may know Qt Widgets"));
}

TEST_F(MadeUpHouse, QtOnTheLowerFloorsIsReported) {
    Write("src/middle/middle.cpp", "#include <QString>\n#include <QtCore/qglobal.h>\n#include <qimage.h>\n");
    EXPECT_THAT(
        Faults(),
        ElementsAre("src/middle/middle.cpp:1: QString: below the Qt surfaces nothing knows Qt",
                    "src/middle/middle.cpp:2: QtCore/qglobal.h: below the Qt surfaces nothing knows Qt",
                    "src/middle/middle.cpp:3: qimage.h: below the Qt surfaces nothing knows Qt"));
}

TEST_F(MadeUpHouse, NumberThatFollowsTheLocaleIsReported) {
    Write("src/ground/number.cpp", "double a = std::strtod(text, nullptr);\n"
                                   "double b = std::stod(text);\n"
                                   "std::snprintf(buffer, size, \"%d %.3f\", n, x);\n"
                                   "std::snprintf(buffer, size, \"%d\", n);\n"
                                   "const int restored = 1; // stood\n");
    EXPECT_THAT(LocaleDependentLines(folder.Path()),
                ElementsAre("src/ground/number.cpp:1: double a = std::strtod(text, nullptr);",
                            "src/ground/number.cpp:2: double b = std::stod(text);",
                            "src/ground/number.cpp:3: std::snprintf(buffer, size, \"%d %.3f\", n, x);"));
}

TEST(Rooms, AreReadFromTheBuildsList) {
    const std::vector<Room> rooms = ReadRooms("platform 0 \ncore 1 platform\noutput 2 core,platform\n\n");
    ASSERT_EQ(rooms.size(), 3U);
    EXPECT_EQ(rooms[0].name, "platform");
    EXPECT_THAT(rooms[0].below, IsEmpty());
    EXPECT_EQ(rooms[2].floor, 2);
    EXPECT_THAT(rooms[2].below, ElementsAre("core", "platform"));
}

TEST(Rooms, LinkedOnesAreDeclaredByThoseThatAreDeclared) {
    const std::vector<Room> rooms = ReadRooms("platform 0 \ncore 1 platform\noutput 2 core\nother 2 core\n");
    EXPECT_THAT(LinkedRooms(rooms, "output"), UnorderedElementsAre("core", "platform"));
    EXPECT_THAT(LinkedRooms(rooms, "platform"), IsEmpty());
}

TEST(Rooms, DeclarationOfAnEqualOrUnknownRoomIsReported) {
    EXPECT_THAT(BadDeclarations(ReadRooms("a 1 b,c\nb 1 \n")),
                ElementsAre("a declares b, which does not lie below it", "a declares c, which is no room"));
}

} // namespace
} // namespace quelmont
