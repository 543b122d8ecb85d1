#include "support/fresh_program.h"

#include "core/error_box.h"
#include "core/file_numbers.h"
#include "core/map_design.h"
#include "support/temporary_folder.h"

#include <gtest/gtest.h>

namespace quelmont {
namespace {

int RoomState = 0;
const FreshRoom FreshExample([] { RoomState = 0; });

TEST(FreshProgram, ForgetsTheDesign) {
    Design.ProjNum = ProjUtm;
    Design.InputFiles.resize(3);
    const FreshProgram program;
    EXPECT_EQ(Design.ProjNum, ProjEquirectangular);
    EXPECT_TRUE(Design.InputFiles.empty());
}

TEST(FreshProgram, LeavesNothingBehind) {
    {
        const FreshProgram program;
        Design.GridTypeCode = 5;
        RoomState = 7;
    }
    EXPECT_EQ(Design.GridTypeCode, 0);
    EXPECT_EQ(RoomState, 0);
}

TEST(FreshProgram, ClosesTheFileNumbers) {
    const TemporaryFolder folder;
    OpenFile(OutputFileNumber, folder / "out", OpenMode::Output);
    const FreshProgram program;
    EXPECT_FALSE(IsFileOpen(OutputFileNumber));
}

TEST(FreshProgram, ForgetsTheBoxesOfADraw) {
    FreshProgram program;
    BeginDrawBoxes();
    ShowApiErrorBox("LineTo(1) error in PrintToScreen");
    {
        const FreshProgram inner;
        ShowApiErrorBox("LineTo(1) error in PrintToScreen");
        ShowApiErrorBox("LineTo(1) error in PrintToScreen");
        EXPECT_EQ(inner.machine.boxes.asked.size(), 2U) << "no draw is running";
    }
}

} // namespace
} // namespace quelmont
