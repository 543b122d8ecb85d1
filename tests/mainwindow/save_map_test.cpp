#include "mainwindow/save_map.h"

#include "mainwindow/commands.h"
#include "mainwindow/map_draw.h"
#include "mainwindow/started_program.h"
#include "output/export_file.h"
#include "support/temporary_folder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>

namespace quelmont {
namespace {

using testing::ElementsAre;
using testing::EndsWith;
using testing::IsEmpty;
using testing::StartsWith;

/// An item of the File menu that saves by one name.
struct SavedAs {
    int index;
    const char* title;
    const char* filter;
    const char* extension;
    std::string MapDesign::*name;
    const char* failure;
    const char* begins; ///< of the file
};

const std::array Items = std::to_array<SavedAs>({
    {5, "Save Map As BMP File", "BMP Files (*.bmp)|*.bmp", "bmp", &MapDesign::BmpFileName,
     "Error 4 in Save as BMP", "BM"},
    {6, "Save Map As CGM File", "CGM Files (*.cgm)|*.cgm", "cgm", &MapDesign::CgmFileName,
     "Error 4 in Save as CGM", ""},
    {7, "Save Map As DXF File", "DXF Files (*.dxf)|*.dxf", "dxf", &MapDesign::DxfFileName,
     "Error 4 in Save as DXF", "  0\r\nSECTION\r\n"},
    {8, "Save Map As WMF File", "WMF Files (*.wmf)|*.wmf", "wmf", &MapDesign::WmfFileName,
     "Error 4 in Save as WMF", "\xD7\xCD\xC6\x9A"},
    {19, "Save Map As PNG File", "PNG Files (*.png)|*.png", "png", &MapDesign::PngFileName,
     "Error 4 in Save as PNG", "PNG 2x1, 3780x3780 in a metre, Outline map, Quelmont 3.00"},
    {20, "Save Map As SVG File", "SVG Files (*.svg)|*.svg", "svg", &MapDesign::SvgFileName,
     "Error 4 in Save as SVG", "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<svg "},
});

/// The started program, its files in a folder of the system.
class SaveMap : public StartedProgram {
protected:
    SaveMap() {
        SetFileDeviceMaker(nullptr);
        Design.MapFileCount = 0;
        Design.InputFiles.clear();
        window.pixels = {2, 1, {0x0000FFU, 0xFF0000U}};
    }
    ~SaveMap() override { DropExports(); }

    std::size_t Files() const {
        const std::filesystem::directory_iterator entries(folder.Path());
        return static_cast<std::size_t>(std::distance(begin(entries), end(entries)));
    }

    /// Names for all.
    void NameAll() const {
        Design.AsciiFileName = {folder / "grid.txt"};
        Design.CgmFileName = folder / "map.cgm";
        Design.DxfFileName = folder / "map.dxf";
        Design.WmfFileName = folder / "map.wmf";
        Design.SvgFileName = folder / "map.svg";
    }

    TemporaryFolder folder;
};

TEST_F(SaveMap, AsksForANameInTheFolderOfTheLastOne) {
    for (const SavedAs& item : Items) {
        Design.*item.name = "/maps/old." + std::string(item.extension);
        mnuInput_Click(item.index);
        const FileDialogRequest& request = machine.fileDialogs.asked.back();
        EXPECT_EQ(request.title, item.title);
        EXPECT_EQ(request.filter, item.filter);
        EXPECT_EQ(request.filterIndex, 1);
        EXPECT_EQ(request.extension, item.extension);
        EXPECT_EQ(request.folder, "/maps");
        EXPECT_EQ(request.name, "old." + std::string(item.extension));
        EXPECT_TRUE(request.asksToReplace);
        EXPECT_TRUE(window.MenuChecked(Menu::mnuInput, item.index));
    }
}

TEST_F(SaveMap, CancelDoesNothing) {
    for (const SavedAs& item : Items) {
        mnuInput_Click(item.index);
        EXPECT_EQ(Design.*item.name, "");
    }
    EXPECT_THAT(machine.boxes.asked, IsEmpty());
    EXPECT_EQ(machine.clock.beeps, 0);
    EXPECT_FALSE(Design.OutputCgm || Design.OutputDxf || Design.OutputWmf || Design.OutputSvg);
}

TEST_F(SaveMap, FailureOfTheFileDialogIsReported) {
    for (const SavedAs& item : Items) {
        machine.fileDialogs.Fail(4);
        mnuInput_Click(item.index);
        EXPECT_THAT(machine.boxes.Taken(), ElementsAre(AskedBox{"File Common Dialog Error", item.failure}));
    }
}

TEST_F(SaveMap, WritesTheFileUnderTheNameWithItsExtension) {
    for (const SavedAs& item : Items) {
        machine.fileDialogs.Choose({folder / "map"});
        mnuInput_Click(item.index);
        const std::string name = folder / ("map." + std::string(item.extension));
        EXPECT_EQ(Design.*item.name, name);
        EXPECT_THAT(ReadWholeFile(name), StartsWith(item.begins));
        EXPECT_THAT(machine.boxes.asked, IsEmpty());
    }
    EXPECT_EQ(Files(), Items.size());
    EXPECT_EQ(machine.clock.beeps, 4) << "pictures are saved without a draw";
    ExpectIdle();
}

TEST_F(SaveMap, NameThatHasTheExtensionKeepsIt) {
    machine.fileDialogs.Choose({folder / "MAP.DXF"});
    mnuInput_Click(7);
    EXPECT_EQ(Design.DxfFileName, folder / "MAP.DXF");
    EXPECT_TRUE(std::filesystem::exists(folder / "MAP.DXF"));
}

TEST_F(SaveMap, PictureNeverReplacesAMapFileOfTheDesign) {
    WriteWholeFile(folder / "coast.png", "a map");
    Design.InputFiles.assign(1, {});
    Design.InputFiles[0].MapFileName = folder / "coast.png";
    machine.fileDialogs.Choose({folder / "coast.png"});
    mnuInput_Click(19);
    EXPECT_THAT(machine.boxes.Taken(),
                ElementsAre(AskedBox{"Error in PngSave", "Error: Path/File access error"}));
    EXPECT_EQ(ReadWholeFile(folder / "coast.png"), "a map");
    EXPECT_EQ(Files(), 1U);
}

TEST_F(SaveMap, PictureInAFolderThatIsNotThereIsReported) {
    machine.fileDialogs.Choose({folder / "nowhere/map.png"});
    mnuInput_Click(19);
    EXPECT_THAT(machine.boxes.Taken(), ElementsAre(AskedBox{"Error in PngSave", "Error: Path not found"}));
}

TEST_F(SaveMap, PictureHasTheTitleOfItsDesignAndTheResolutionOfTheScreen) {
    Design.CnfFileName = "/maps/My islands.cnf";
    Design.TwipsPerPixelX = Design.TwipsPerPixelY = 7.5F;
    machine.fileDialogs.Choose({folder / "map"});
    mnuInput_Click(19);
    // 1440 / 7.5 = 192 pixels in 0.0254 m
    EXPECT_EQ(ReadWholeFile(folder / "map.png"), "PNG 2x1, 7559x7559 in a metre, My islands, Quelmont 3.00");
}

TEST_F(SaveMap, NextDrawExportsNothing) {
    machine.fileDialogs.Choose({folder / "map.cgm"});
    mnuInput_Click(6);
    std::filesystem::remove(folder / "map.cgm");
    machine.forms.Script("MapReduce", [](Form& form) { form.PressDefault(); });
    mnuBar_Click(3);
    EXPECT_EQ(Files(), 0U);
}

TEST_F(SaveMap, EscapeKeepsTheEarlierFile) {
    for (const SavedAs& item : {Items[1], Items[2], Items[3], Items[5]}) {
        const std::string name = folder / ("map." + std::string(item.extension));
        WriteWholeFile(name, "earlier");
        machine.pump.At(machine.pump.calls + 3, EscapeKey);
        machine.fileDialogs.Choose({name});
        mnuInput_Click(item.index);
        EXPECT_EQ(ReadWholeFile(name), "earlier");
        ExpectIdle();
    }
    EXPECT_EQ(Files(), 4U) << "no temporary one";
}

TEST_F(SaveMap, EscapeBeforeTheFirstLineLeavesNothing) {
    for (bool MapDesign::*flag : {&MapDesign::OutputAscii, &MapDesign::OutputCgm, &MapDesign::OutputDxf,
                                  &MapDesign::OutputWmf, &MapDesign::OutputSvg}) {
        NameAll();
        Design.*flag = true;
        machine.pump.At(machine.pump.calls + 1, EscapeKey);
        MapDraw();
        EXPECT_EQ(Files(), 0U);
        EXPECT_THAT(machine.boxes.asked, IsEmpty());
        ExpectIdle();
    }
}

TEST_F(SaveMap, GridStageThatFailsLeavesNothing) {
    for (bool MapDesign::*flag : {&MapDesign::OutputAscii, &MapDesign::OutputCgm, &MapDesign::OutputDxf,
                                  &MapDesign::OutputWmf, &MapDesign::OutputSvg}) {
        NameAll();
        Design.*flag = true;
        Design.LonGrid = 0.0; // fails between the header and the first line
        MapDraw();
        EXPECT_THAT(Told(machine.boxes.Taken()), ElementsAre("Error in PlotGrid: Error: Division by zero"));
        EXPECT_EQ(Files(), 0U);
        EXPECT_EQ(machine.clock.beeps, 0);
        ExpectIdle();
    }
}

TEST_F(SaveMap, WindowLargerThanTheScreenIsExportedWhole) {
    window.scaleWidth = 2.0 * 19200.0;
    window.scaleHeight = 3.0 * 13860.0;
    NameAll();
    for (bool MapDesign::*flag :
         {&MapDesign::OutputCgm, &MapDesign::OutputDxf, &MapDesign::OutputWmf, &MapDesign::OutputSvg}) {
        Design.*flag = true;
        MapDraw();
    }
    EXPECT_THAT(machine.boxes.asked, IsEmpty());
    EXPECT_EQ(Files(), 4U);
}

TEST_F(SaveMap, FileThatCannotBeWrittenShowsItsBoxAndTheProgramGoesOn) {
    const std::string missing = folder / "missing/map.";
    for (const SavedAs& item : Items) {
        machine.fileDialogs.Choose({missing + item.extension});
        mnuInput_Click(item.index);
        ASSERT_EQ(machine.boxes.asked.size(), 1U) << item.title;
        EXPECT_THAT(machine.boxes.asked[0].text, EndsWith("Path not found"));
        EXPECT_THAT(machine.boxes.asked[0].title, StartsWith("Error in "));
        machine.boxes.Taken();
        ExpectIdle();
    }
}

TEST_F(SaveMap, NameOfAFolderShowsItsBox) {
    for (const SavedAs& item : Items) {
        const std::string name = folder / ("dir." + std::string(item.extension));
        std::filesystem::create_directory(name);
        machine.fileDialogs.Choose({name});
        mnuInput_Click(item.index);
        ASSERT_EQ(machine.boxes.asked.size(), 1U) << item.title;
        EXPECT_THAT(machine.boxes.Taken()[0].text, EndsWith("Path/File access error"));
        EXPECT_TRUE(std::filesystem::is_directory(name));
    }
}

TEST_F(SaveMap, BitmapBeforeTheFirstDrawIsTheBlankArea) {
    window.pixels = {};
    machine.fileDialogs.Choose({folder / "map.bmp"});
    mnuInput_Click(5);
    EXPECT_THAT(machine.boxes.asked, IsEmpty());
    EXPECT_EQ(std::filesystem::file_size(folder / "map.bmp"), 54U + 1280U * 924U * 3U);
    EXPECT_EQ(window.clears, 0);
}

TEST_F(SaveMap, AsciiAsksInItsOwnDialogThenDraws) {
    machine.forms.Script("AscOutput", [&](Form& form) {
        machine.fileDialogs.Choose({folder / "grid"});
        form.Choose("AscGrid", 2);
        form.PressDefault();
        EXPECT_TRUE(form.Closed());
    });
    mnuInput_Click(9);
    EXPECT_TRUE(std::filesystem::exists(folder / "grid.txt"));
    EXPECT_EQ(window.clears, 1);
    EXPECT_EQ(machine.clock.beeps, 1);
    EXPECT_FALSE(Design.OutputAscii);
}

TEST_F(SaveMap, CancelledAsciiDialogDrawsNothing) {
    machine.forms.Script("AscOutput", [](Form& form) { form.PressCancel(); });
    mnuInput_Click(9);
    EXPECT_EQ(machine.clock.beeps, 0);
    EXPECT_EQ(window.clears, 0);
}

TEST_F(SaveMap, NothingToExportIsReportedAndNoDialogComes) {
    Design.GridTypeCode = 5;
    Design.GridOutputCount = 0;
    mnuInput_Click(9);
    EXPECT_THAT(
        machine.boxes.asked,
        ElementsAre(AskedBox{"ASCII Output File Information",
                             "There are no ASCII output files, because there is no grid and there are no "
                             "input map files!",
                             BoxButtons::Ok, BoxIcon::Information}));
    EXPECT_THAT(machine.forms.shown, IsEmpty());
    EXPECT_EQ(machine.clock.beeps, 0);
}

} // namespace
} // namespace quelmont
