#include "output/draw_target.h"

#include "core/file_numbers.h"
#include "output/cgm/cgm_writer.h"
#include "output/dxf/dxf_writer.h"
#include "output/export_file.h"
#include "output/fan_out.h"
#include "output/output_state.h"
#include "output/wmf/wmf_writer.h"
#include "output_fixture.h"
#include "support/run_time_errors.h"
#include "support/temporary_folder.h"

#include <gtest/gtest.h>

namespace quelmont {
namespace {

class DrawTarget : public OutputTest {
protected:
    DrawTarget() {
        Design.CgmFileName = folder / "old";
        Design.DxfFileName = folder / "old";
        Writers() = {nullptr, &cgm, &dxf, &wmf};
    }
    ~DrawTarget() override {
        DropExports();
        Writers() = {};
    }

    /// One stage of a draw.
    static void Stage(const char* text) {
        EXPECT_TRUE(OpenExport(1));
        WriteExport(text);
        CloseExport();
    }
    TemporaryFolder folder;
    CgmWriter cgm;
    DxfWriter dxf;
    WmfWriter wmf;
};

TEST_F(DrawTarget, DeviceIsThePageOfTheJobWhileAMapIsPrinted) {
    RecordingSurface page;
    machine.window.scaleWidth = 9360.0; // as wide as the map
    Design.PrintUnitTwips = 1440;
    Design.PrintWidth = 6.5F;
    OutputNow.PrinterSurface = &page;
    OutputNow.PrinterTwipsPerPixelX = 4.8F;
    OutputNow.PrinterTwipsPerPixelY = 2.4F;
    Design.PrintingNow = true;
    Design.LineWidthsScaled = true;
    SelectDevice();
    EXPECT_EQ(Design.Surface, &page);
    EXPECT_EQ(OutputNow.DevicePixelX, 4.8F);
    EXPECT_EQ(OutputNow.DevicePixelY, 2.4F);
    EXPECT_EQ(Design.DotPixels, 6) << "a pixel of 15 twips";
    Design.PrintingNow = false;
    SelectDevice();
    EXPECT_EQ(Design.Surface, &machine.window.surface);
    EXPECT_EQ(Design.DotPixels, 1);
}

TEST_F(DrawTarget, DeviceIsTheWindowWithTheScreensPixels) {
    Design.TwipsPerPixelX = 7.5F;
    Design.TwipsPerPixelY = 6.0F;
    SelectDevice();
    EXPECT_EQ(Design.Surface, &machine.window.surface);
    EXPECT_EQ(OutputNow.DevicePixelX, 7.5F);
    EXPECT_EQ(OutputNow.DevicePixelY, 6.0F);
}

TEST_F(DrawTarget, WithoutAnExportNothingIsOpened) {
    EXPECT_FALSE(OpenExport(1));
    EXPECT_FALSE(IsFileOpen(OutputFileNumber));
}

TEST_F(DrawTarget, CgmAndDxfAreWrittenOnBehindTheirHeader) {
    for (bool MapDesign::*flag : {&MapDesign::OutputCgm, &MapDesign::OutputDxf}) {
        Design.*flag = true;
        BeginExport(folder / "old");
        WriteExport("header ");
        CloseExport();
        Stage("one ");
        Stage("two");
        FinishExports();
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
    wmf.Header();
    EXPECT_TRUE(OpenExport(1));
    EXPECT_FALSE(IsFileOpen(OutputFileNumber));
}

TEST_F(DrawTarget, MetafileWithoutAHeaderIsNotFound) {
    Design.OutputWmf = true;
    EXPECT_EQ(ErrorOf([] { OpenExport(1); }), ErrorFileNotFound);
}

TEST_F(DrawTarget, FlagWithoutAWriterIsNoExport) {
    Writers() = {};
    Design.OutputWmf = true;
    EXPECT_FALSE(OpenExport(1));
}

} // namespace
} // namespace quelmont
