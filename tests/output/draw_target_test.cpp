#include "output/draw_target.h"

#include "core/file_numbers.h"
#include "output/export_file.h"
#include "output_fixture.h"
#include "support/run_time_errors.h"
#include "support/temporary_folder.h"

#include <gtest/gtest.h>

namespace quelmont {
namespace {

class DrawTarget : public OutputTest {
protected:
    DrawTarget() {
        Design.AsciiFileName = {folder / "grid", folder / "map"};
        Design.CgmFileName = folder / "old";
        Design.DxfFileName = folder / "old";
    }
    ~DrawTarget() override { DropExports(); }

    /// One stage of a draw.
    static void Stage(const char* text, std::size_t slot = 1) {
        EXPECT_TRUE(OpenExport(slot));
        WriteExport(text);
        CloseStretch();
    }
    TemporaryFolder folder;
};

TEST_F(DrawTarget, DeviceIsTheWindowWithTheScreensPixels) {
    Design.TwipsPerPixelX = 7.5F;
    Design.TwipsPerPixelY = 6.0F;
    SelectDevice();
    EXPECT_EQ(Design.Surface, &machine.window.surface);
    EXPECT_EQ(Design.DevicePixelX, 7.5F);
    EXPECT_EQ(Design.DevicePixelY, 6.0F);
}

TEST_F(DrawTarget, WithoutAnExportNothingIsOpened) {
    EXPECT_FALSE(OpenExport(1));
    EXPECT_FALSE(IsFileOpen(OutputFileNumber));
}

TEST_F(DrawTarget, SlotWithoutANameIsASubscriptError) {
    Design.OutputAscii = true;
    EXPECT_EQ(ErrorOf([] { OpenExport(3); }), ErrorSubscript);
    EXPECT_EQ(ErrorOf([] { OpenExport(0); }), ErrorSubscript);
}

TEST_F(DrawTarget, AsciiFileIsTheOneOfTheSlotAndNew) {
    WriteWholeFile(folder / "map", "old contents");
    Design.OutputAscii = true;
    Design.LobeLast = true;
    Stage("hi", 2);
    EXPECT_EQ(ReadWholeFile(folder / "map"), "hi");
    EXPECT_EQ(Design.OutputFileName, folder / "map");
}

TEST_F(DrawTarget, AsciiFileOfAnInterruptedMapGoesOnFromPassToPass) {
    WriteWholeFile(folder / "map", "old contents");
    Design.OutputAscii = true;
    Stage("one ", 2);
    EXPECT_EQ(ReadWholeFile(folder / "map"), "old contents") << "not whole yet";
    Design.LobeLast = true;
    Stage("two", 2);
    EXPECT_EQ(ReadWholeFile(folder / "map"), "one two");
}

TEST_F(DrawTarget, CgmAndDxfAreWrittenOnBehindTheirHeader) {
    for (bool MapDesign::*flag : {&MapDesign::OutputCgm, &MapDesign::OutputDxf}) {
        Design.*flag = true;
        BeginExport(folder / "old");
        WriteExport("header ");
        CloseExport();
        Stage("one ");
        Stage("two");
        FinishExport(folder / "old");
        EXPECT_EQ(ReadWholeFile(folder / "old"), "header one two");
        Design.*flag = false;
    }
    EXPECT_EQ(Design.OutputFileName, "") << "the header names it";
}

TEST_F(DrawTarget, FileWithoutAHeaderIsNotFound) {
    Design.OutputCgm = true;
    EXPECT_EQ(ErrorOf([] { OpenExport(1); }), ErrorFileNotFound);
}

TEST_F(DrawTarget, MetafileOpensNothing) {
    Design.OutputWmf = true;
    EXPECT_TRUE(OpenExport(1));
    EXPECT_FALSE(IsFileOpen(OutputFileNumber));
}

} // namespace
} // namespace quelmont
