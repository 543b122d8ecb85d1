#include "dialogs/exports/asc_output.h"

#include "core/constant_defs.h"
#include "core/map_design.h"
#include "support/fresh_program.h"
#include "support/temporary_folder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>

namespace quelmont {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class AsciiDialog : public FreshProgramTest {
protected:
    AsciiDialog() {
        ConstantDefs();
        for (const char* const name : {"/maps/world.map", "/maps/europe/rivers.pkv"}) {
            Design.InputFiles.emplace_back().MapFileName = name;
        }
        Design.MapFileCount = 2;
    }

    static std::vector<std::string> Column(const Form& form, std::size_t column) {
        std::vector<std::string> texts;
        const std::vector<GridCell>& cells = form.At("AscGrid").cells;
        for (std::size_t cell = column; cell < cells.size(); cell += 3) {
            texts.push_back(cells[cell].text);
        }
        return texts;
    }
    /// Gives every row a name of its own.
    void NameAll(Form& form) {
        const std::size_t rows = form.At("AscGrid").cells.size() / 3;
        for (std::size_t row = 0; row < rows; ++row) {
            machine.fileDialogs.Choose({folder / ("out" + std::to_string(row) + ".txt")});
            form.Choose("AscGrid", static_cast<int>(3 * row + 2));
        }
    }

    TemporaryFolder folder;
};

TEST_F(AsciiDialog, ListsTheGridThenTheFiles) {
    Design.OutputAscii = true;
    const AscOutput form;
    EXPECT_FALSE(Design.OutputAscii);
    EXPECT_THAT(form.At("AscGrid").items, ElementsAre(" #", " Input Filename", " Output ASCII Filename"));
    EXPECT_THAT(Column(form, 0), ElementsAre(" 01", " 02", " 03"));
    EXPECT_THAT(Column(form, 1), ElementsAre(" Grid lines", " world.map", " rivers.pkv"));
    EXPECT_THAT(Column(form, 2), ElementsAre("", "", ""));
    EXPECT_EQ(
        form.At("Help").text,
        "To export map data in ASCII format, you must enter an Output ASCII Filename for each item listed "
        "in the Input Filename column.\n\n"
        "To enter a filename, click (or press the Space Bar) on a cell in the column labeled Output ASCII "
        "Filename.");
}

TEST_F(AsciiDialog, NamesTheGridByWhatItShows) {
    Design.InputFiles.clear();
    const std::map<int, std::vector<std::string>> rows = {
        {1, {" Grid points", " Grid lines"}}, {2, {" Grid"}}, {3, {" Grid lines"}}, {4, {" Grid points"}}};
    for (const auto& [code, expected] : rows) {
        Design.GridTypeCode = static_cast<std::int16_t>(code);
        Design.GridOutputCount = static_cast<std::int16_t>(expected.size());
        EXPECT_EQ(Column(AscOutput(), 1), expected) << code;
    }
}

TEST_F(AsciiDialog, WithoutAGridHasRowsOfFilesAlone) {
    Design.GridTypeCode = 5;
    Design.GridOutputCount = 0;
    EXPECT_THAT(Column(AscOutput(), 1), ElementsAre(" world.map", " rivers.pkv"));
}

TEST_F(AsciiDialog, ShowsEarlierNames) {
    Design.AsciiFileName = {"/out/grid.txt", "", "/out/rivers.txt"};
    EXPECT_THAT(Column(AscOutput(), 2), ElementsAre(" grid.txt", "", " rivers.txt"));
}

TEST_F(AsciiDialog, CellAsksForAName) {
    AscOutput form;
    machine.fileDialogs.Choose({folder / "coast"});
    form.Choose("AscGrid", 5);
    EXPECT_THAT(Column(form, 2), ElementsAre("", " coast.txt", ""));
    form.Choose("AscGrid", 5);
    ASSERT_EQ(machine.fileDialogs.asked.size(), 2U);
    const FileDialogRequest& first = machine.fileDialogs.asked[0];
    EXPECT_EQ(first.title, "Save As ASCII File");
    EXPECT_EQ(first.filter, "Text Files (*.txt)|*.txt");
    EXPECT_EQ(first.extension, "txt");
    EXPECT_EQ(first.name, "world.") << "the point stays";
    EXPECT_FALSE(first.asksToReplace) << "the dialog asks when it is accepted";
    EXPECT_EQ(machine.fileDialogs.asked[1].name, "coast.txt");
    EXPECT_EQ(machine.fileDialogs.asked[1].folder, folder.Path());
    EXPECT_THAT(Column(form, 2), ElementsAre("", " coast.txt", "")) << "cancelled";
}

TEST_F(AsciiDialog, OtherColumnsAskForNothing) {
    AscOutput form;
    form.Choose("AscGrid", 0);
    form.Choose("AscGrid", 1);
    EXPECT_THAT(machine.fileDialogs.asked, IsEmpty());
}

TEST_F(AsciiDialog, EveryRowNeedsAName) {
    AscOutput form;
    machine.fileDialogs.Choose({folder / "a.txt"});
    form.Choose("AscGrid", 2);
    form.PressDefault();
    EXPECT_FALSE(form.Closed());
    EXPECT_THAT(machine.boxes.asked,
                ElementsAre(AskedBox{"Error: Null Filename",
                                     "There must be an output filename\nfor each grid and input file!"}));
}

TEST_F(AsciiDialog, ExistingFilesAreReplacedOnlyIfAllowed) {
    AscOutput form;
    NameAll(form);
    WriteWholeFile(folder / "out0.txt", "");
    WriteWholeFile(folder / "out2.txt", "");
    const AskedBox question{"Save As ASCII File", "This file already exists.\nReplace existing file?",
                            BoxButtons::YesNo, BoxIcon::Exclamation, BoxAnswer::Yes};
    machine.boxes.Answer(BoxAnswer::Yes);
    form.PressDefault();
    EXPECT_FALSE(form.Closed()) << "the second was not allowed";
    EXPECT_EQ(machine.boxes.asked.size(), 2U);
    EXPECT_EQ(machine.boxes.Taken()[0], question);
    machine.boxes.Answer(BoxAnswer::Yes);
    machine.boxes.Answer(BoxAnswer::Yes);
    form.PressDefault();
    EXPECT_TRUE(form.Closed());
    EXPECT_TRUE(Design.OutputAscii);
}

TEST_F(AsciiDialog, NoTwoRowsHaveTheSameName) {
    AscOutput form;
    NameAll(form);
    machine.fileDialogs.Choose({folder / "out0.txt"});
    form.Choose("AscGrid", 8);
    form.PressDefault();
    EXPECT_FALSE(form.Closed());
    EXPECT_THAT(machine.boxes.asked,
                ElementsAre(AskedBox{"Error: Duplicate Filename",
                                     "The output files must have\ndifferent filenames."}));
    EXPECT_FALSE(Design.OutputAscii);
}

TEST_F(AsciiDialog, NoTwoRowsLeadToTheSameFile) {
    std::filesystem::create_symlink("out0.txt", folder / "link.txt");
    AscOutput form;
    NameAll(form);
    machine.fileDialogs.Choose({folder / "link.txt"});
    form.Choose("AscGrid", 8);
    form.PressDefault();
    EXPECT_FALSE(form.Closed());
    EXPECT_EQ(machine.boxes.asked.at(0).title, "Error: Duplicate Filename");
}

TEST_F(AsciiDialog, EmptyNameIsReportedBeforeADuplicate) {
    AscOutput form;
    for (const int cell : {2, 5}) {
        machine.fileDialogs.Choose({folder / "same.txt"});
        form.Choose("AscGrid", cell);
    }
    form.PressDefault();
    EXPECT_EQ(machine.boxes.asked.at(0).title, "Error: Null Filename");
}

TEST_F(AsciiDialog, OkArmsTheExport) {
    AscOutput form;
    NameAll(form);
    form.PressDefault();
    EXPECT_TRUE(form.Closed());
    EXPECT_TRUE(Design.OutputAscii);
    EXPECT_FALSE(Design.DialogCancelled);
    EXPECT_THAT(Design.AsciiFileName,
                ElementsAre(folder / "out0.txt", folder / "out1.txt", folder / "out2.txt"));
}

TEST_F(AsciiDialog, CancelKeepsTheNames) {
    Design.AsciiFileName = {"/out/grid.txt"};
    AscOutput form;
    NameAll(form);
    form.PressCancel();
    EXPECT_THAT(Design.AsciiFileName, ElementsAre("/out/grid.txt"));
    EXPECT_FALSE(Design.OutputAscii);
}

} // namespace
} // namespace quelmont
