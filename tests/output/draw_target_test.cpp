#include "output/draw_target.h"

#include "core/file_numbers.h"
#include "output_fixture.h"
#include "support/failing_file.h"
#include "support/run_time_errors.h"

#include <gtest/gtest.h>

#include <array>

namespace quelmont {
namespace {

class DrawTarget : public OutputTest {
protected:
    DrawTarget() {
        files.Put("old", "before ");
        Design.AsciiFileName = {"grid", "map"};
        Design.CgmFileName = "old";
        Design.DxfFileName = "old";
    }
    static void WriteAndClose() {
        const std::array<std::byte, 2> bytes{std::byte{'h'}, std::byte{'i'}};
        WriteFile(OutputFileNumber, bytes);
        CloseFile(OutputFileNumber);
    }
    FailingFiles files;
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

TEST_F(DrawTarget, AsciiFileIsTheOneOfTheSlotAndNew) {
    files.Put("map", "old contents");
    Design.OutputAscii = true;
    EXPECT_TRUE(OpenExport(2));
    WriteAndClose();
    EXPECT_EQ(files.Contents("map"), "hi");
    EXPECT_EQ(Design.OutputFileName, "map");
}

TEST_F(DrawTarget, SlotWithoutANameIsASubscriptError) {
    Design.OutputAscii = true;
    EXPECT_EQ(ErrorOf([] { OpenExport(3); }), ErrorSubscript);
    EXPECT_EQ(ErrorOf([] { OpenExport(0); }), ErrorSubscript);
}

TEST_F(DrawTarget, CgmIsWrittenInPlace) {
    Design.OutputCgm = true;
    EXPECT_TRUE(OpenExport(1));
    WriteAndClose();
    EXPECT_EQ(files.Contents("old"), "hifore ");
    EXPECT_EQ(Design.OutputFileName, "") << "the header names it";
}

TEST_F(DrawTarget, DxfIsWrittenOn) {
    Design.OutputDxf = true;
    EXPECT_TRUE(OpenExport(1));
    WriteAndClose();
    EXPECT_EQ(files.Contents("old"), "before hi");
}

TEST_F(DrawTarget, MetafileOpensNothing) {
    Design.OutputWmf = true;
    EXPECT_TRUE(OpenExport(1));
    EXPECT_FALSE(IsFileOpen(OutputFileNumber));
}

} // namespace
} // namespace quelmont
