#include "dialogs/dialogs_state.h"
#include "mainwindow/main_window_state.h"
#include "mapinput/map_input_state.h"
#include "output/export_file.h"
#include "output/output_state.h"
#include "support/fresh_program.h"
#include "support/temporary_folder.h"

#include <gtest/gtest.h>

#include <filesystem>

namespace quelmont {
namespace {

TEST(FreshRooms, EveryRoomBelowForgetsItsState) {
    const TemporaryFolder folder;
    {
        const FreshProgram program;
        OutputNow.SymbolRadius = 7;
        OutputNow.pen.made = 3;
        Writers().dxf = &MainWindowNow.writers.dxf;
        BeginExport(folder / "map.dxf");
        MapInputNow.StartLine = true;
        MapInputNow.FilesWithoutLineStarts = {"a.prn"};
        DialogsNow.FeatureColorIndex = 9;
        MainWindowNow.MapDrawing = true;
        MainWindowNow.SavedCaption = "earlier";
    }
    EXPECT_EQ(OutputNow.SymbolRadius, 0);
    EXPECT_EQ(OutputNow.pen.made, 0U);
    EXPECT_EQ(Writers().dxf, nullptr);
    EXPECT_TRUE(std::filesystem::is_empty(folder.Path())) << "the file that was begun";
    EXPECT_FALSE(MapInputNow.StartLine);
    EXPECT_TRUE(MapInputNow.FilesWithoutLineStarts.empty());
    EXPECT_EQ(DialogsNow.FeatureColorIndex, 0);
    EXPECT_FALSE(MainWindowNow.MapDrawing);
    EXPECT_EQ(MainWindowNow.SavedCaption, "");
}

} // namespace
} // namespace quelmont
