#include "dialogs/files/input_file_choices.h"

#include "core/constant_defs.h"
#include "core/map_design.h"
#include "mapfiles/feature_rows.h"
#include "support/fresh_program.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <sstream>

namespace quelmont {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

/// The dialog on a design with the files /maps/1.map, /maps/2.pkd, /maps/3.mps.
class FileList : public FreshProgramTest {
protected:
    FileList() {
        ConstantDefs();
        SetFiles({"/maps/1.map", "/maps/2.pkd", "/maps/3.mps"});
        Design.MapFileDefault = "/maps/1.map";
    }

    static void SetFiles(const std::vector<std::string>& names) {
        Design.InputFiles.clear();
        for (const std::string& name : names) {
            Design.InputFiles.push_back(NewMapFileEntry(name));
        }
        Design.MapFileCount = static_cast<std::int16_t>(names.size());
    }
    /// The names in the design, whose count must agree.
    static std::vector<std::string> Names() {
        EXPECT_EQ(static_cast<std::size_t>(Design.MapFileCount), Design.InputFiles.size());
        std::vector<std::string> names;
        for (const InputFileEntry& file : Design.InputFiles) {
            names.push_back(file.MapFileName);
        }
        return names;
    }
    static const std::vector<std::string>& Lines(const InputFileChoices& form) {
        return form.At("InputFilesOpen").items;
    }
    static int Selected(const InputFileChoices& form) { return form.At("InputFilesOpen").value; }

    void Accept(const std::string& name) {
        machine.forms.Script("InputFileParams", [name](Form& form) {
            EXPECT_EQ(form.At("MapFile").text, name);
            form.PressDefault();
        });
    }
    void Refuse(const std::string& name) {
        machine.forms.Script("InputFileParams", [name](Form& form) {
            EXPECT_EQ(form.At("MapFile").text, name);
            form.PressCancel();
        });
    }
};

// ---- The list

TEST_F(FileList, ShowsItsTextsAndALinePerFile) {
    const InputFileChoices form;
    EXPECT_EQ(form.Caption(), "Add or Edit Digital Map File");
    EXPECT_EQ(form.At("Label1").text, "To add a file to the list: Click on the line where the file is to be "
                                      "added, then press the Add Digital Map File button.");
    EXPECT_EQ(form.At("Label2").text, "To edit or delete a file from the list: Click on the filename and "
                                      "press the Edit or Delete Digital Map File button.");
    EXPECT_EQ(form.At("Label4").text,
              "Press the OK button when you are done adding or editing digital map files.");
    EXPECT_EQ(form.At("Label3").text, "Current Digital Map &Files:");
    EXPECT_THAT(Lines(form), ElementsAre("01   /maps/1.map", "02   /maps/2.pkd", "03   /maps/3.mps", ""));
    EXPECT_TRUE(Design.DialogCancelled);
}

TEST_F(FileList, BeginsOnTheBlankLine) {
    const InputFileChoices form;
    EXPECT_EQ(Selected(form), 3);
    EXPECT_EQ(form.Focus(), "InputFilesOpen");
    EXPECT_FALSE(form.At("InputFileEdit").enabled);
    EXPECT_FALSE(form.At("InputFileDelete").enabled);
}

TEST_F(FileList, OnlyFilesCanBeEditedAndDeleted) {
    InputFileChoices form;
    form.Choose("InputFilesOpen", 1);
    EXPECT_TRUE(form.At("InputFileEdit").enabled);
    EXPECT_TRUE(form.At("InputFileDelete").enabled);
    form.Choose("InputFilesOpen", 3);
    form.Press("InputFileEdit");
    form.DoubleClick("InputFilesOpen");
    form.Press("InputFileDelete");
    EXPECT_THAT(machine.forms.shown, IsEmpty());
    EXPECT_THAT(machine.boxes.asked, IsEmpty());
    EXPECT_EQ(Names().size(), 3U);
}

TEST_F(FileList, PositionHasTwoDigitsAndGrowsBeyond) {
    SetFiles(std::vector<std::string>(100, "/x.map"));
    const InputFileChoices form;
    EXPECT_EQ(Lines(form)[8], "09   /x.map");
    EXPECT_EQ(Lines(form)[9], "10   /x.map");
    EXPECT_EQ(Lines(form)[99], "100   /x.map");
    EXPECT_EQ(Lines(form)[100], "");
}

TEST_F(FileList, EmptyListHasTheBlankLineAlone) {
    SetFiles({});
    const InputFileChoices form;
    EXPECT_THAT(Lines(form), ElementsAre(""));
    EXPECT_EQ(Selected(form), 0);
}

// ---- Adding

TEST_F(FileList, AddAsksForFiles) {
    InputFileChoices form;
    form.Press("InputFileAdd");
    ASSERT_EQ(machine.fileDialogs.asked.size(), 1U);
    const FileDialogRequest& request = machine.fileDialogs.asked[0];
    EXPECT_EQ(request.title, "Open Digital Map File");
    EXPECT_EQ(
        request.filter,
        "ASCII (.prn, .utm)|*.prn;*.utm|MWDB2 (.all, .pnt, .cci)|*.all;*.pnt;*.cci|USGS DLG (.grv, "
        ".grf)|*.grv;*.grf|QMNT (.map)|*.map|WDB1 (.dat)|*.dat|WDB2 (.pkv, .pkd)|*.pkv;*.pkd|World "
        "(.mp1, .mps)|*.mp1;*.mps|All digital map files|*.prn;*.utm;*.all;*.pnt;*.cci;*.grv;*.grf;*.map;"
        "*.dat;*.pkv;*.pkd;*.mp1;*.mps|All files|*");
    EXPECT_EQ(request.name, "1.map");
    EXPECT_EQ(request.folder, "/maps");
    EXPECT_TRUE(request.several);
    EXPECT_EQ(Names().size(), 3U) << "it was cancelled";
    EXPECT_THAT(machine.boxes.asked, IsEmpty());
}

TEST_F(FileList, FilterShowsEveryMapFileAtFirst) {
    for (const char* const name : {"/a.prn", "/a.UTM", "/a.grv", "/a.map", "", "/a.txt"}) {
        Design.MapFileDefault = name;
        InputFileChoices form;
        form.Press("InputFileAdd");
        const FileDialogRequest& request = machine.fileDialogs.asked.back();
        std::vector<std::string> parts;
        std::istringstream filter(request.filter);
        for (std::string part; std::getline(filter, part, '|');) {
            parts.push_back(part);
        }
        ASSERT_EQ(parts.size(), 2U * 9U);
        const auto chosen = static_cast<std::size_t>(2 * request.filterIndex - 1);
        for (const char* const ending :
             {"prn", "utm", "all", "pnt", "cci", "grv", "grf", "map", "dat", "pkv", "pkd", "mp1", "mps"}) {
            EXPECT_THAT(";" + parts[chosen] + ";", HasSubstr(std::string(";*.") + ending + ";")) << name;
        }
    }
}

TEST_F(FileList, WithoutAFileChosenBeforeAllMapsAreProposed) {
    Design.MapFileDefault.clear();
    InputFileChoices form;
    form.Press("InputFileAdd");
    EXPECT_EQ(machine.fileDialogs.asked[0].name, "*.MAP");
    EXPECT_EQ(machine.fileDialogs.asked[0].folder, "");
}

TEST_F(FileList, FileIsAddedBeforeTheSelectedLine) {
    InputFileChoices form;
    form.Choose("InputFilesOpen", 1);
    machine.fileDialogs.Choose({"/new/n.prn"});
    machine.forms.Script("FontDialog", [](Form& font) { font.PressCancel(); });
    Accept("/new/n.prn");
    form.Press("InputFileAdd");
    EXPECT_THAT(Names(), ElementsAre("/maps/1.map", "/new/n.prn", "/maps/2.pkd", "/maps/3.mps"));
    EXPECT_THAT(Lines(form), ElementsAre("01   /maps/1.map", "02   /new/n.prn", "03   /maps/2.pkd",
                                         "04   /maps/3.mps", ""));
    EXPECT_EQ(Selected(form), 2) << "the next file follows";
    EXPECT_EQ(Design.MapFileDefault, "/new/n.prn");
    EXPECT_EQ(form.Focus(), "InputFilesOpen");
}

TEST_F(FileList, FileIsAddedToTheEndOnTheBlankLine) {
    InputFileChoices form;
    machine.fileDialogs.Choose({"/n.map"});
    Accept("/n.map");
    form.Press("InputFileAdd");
    EXPECT_THAT(Names(), ElementsAre("/maps/1.map", "/maps/2.pkd", "/maps/3.mps", "/n.map"));
    EXPECT_EQ(Selected(form), 4) << "the blank line";
}

TEST_F(FileList, NewFileHasTheStylesThatWereAccepted) {
    InputFileChoices form;
    machine.fileDialogs.Choose({"/n.map"});
    machine.forms.Script("InputFileParams", [](Form& parameters) {
        EXPECT_EQ(parameters.At("SymbolType1").value, 0);
        parameters.Choose("SymbolType1", SymbolPlus - 1);
        parameters.Choose("GeoFeatures", 3); // the first name
        parameters.PressDefault();
    });
    form.Press("InputFileAdd");
    EXPECT_EQ(Design.InputFiles[3].MapFileType, SymbolPlus);
    EXPECT_FALSE(Design.InputFiles[3].Features[1].Shown);
    EXPECT_TRUE(Design.InputFiles[3].Features[2].Shown);
    EXPECT_EQ(Design.InputFiles[3].Features[2].SymbolSize, 45);
}

TEST_F(FileList, SeveralFilesAreAddedInTheirOrder) {
    InputFileChoices form;
    form.Choose("InputFilesOpen", 0);
    machine.fileDialogs.Choose({"/a.map", "/b.map", "/c.map"});
    Accept("/a.map");
    Refuse("/b.map");
    Accept("/c.map");
    form.Press("InputFileAdd");
    EXPECT_THAT(Names(), ElementsAre("/a.map", "/c.map", "/maps/1.map", "/maps/2.pkd", "/maps/3.mps"))
        << "the one that was cancelled is passed over";
    EXPECT_EQ(Selected(form), 2);
}

TEST_F(FileList, CancelledParametersAddNothing) {
    InputFileChoices form;
    form.Choose("InputFilesOpen", 1);
    machine.fileDialogs.Choose({"/a.map"});
    Refuse("/a.map");
    form.Press("InputFileAdd");
    EXPECT_EQ(Names().size(), 3U);
    EXPECT_EQ(Selected(form), 1);
    EXPECT_EQ(Design.MapFileDefault, "/maps/1.map");
}

TEST_F(FileList, FailedFileDialogIsReported) {
    InputFileChoices form;
    machine.fileDialogs.Fail(12);
    form.Press("InputFileAdd");
    EXPECT_THAT(machine.boxes.asked,
                ElementsAre(AskedBox{"File Common Dialog Error", "Error 12 in Open Digital Map File",
                                     BoxButtons::Ok, BoxIcon::Exclamation, BoxAnswer::Ok}));
    EXPECT_EQ(Names().size(), 3U);
}

TEST_F(FileList, DroppedFilesAreAddedWhereTheyFell) {
    InputFileChoices form;
    Accept("/a.map");
    Accept("/b.dat");
    form.Drop("InputFilesOpen", 1, {"/a.map", "/b.dat"});
    EXPECT_THAT(Names(), ElementsAre("/maps/1.map", "/a.map", "/b.dat", "/maps/2.pkd", "/maps/3.mps"));
    Accept("/c.map");
    form.Drop("InputFilesOpen", -1, {"/c.map"});
    EXPECT_EQ(Names().back(), "/c.map") << "below the lines is the end";
    EXPECT_THAT(machine.fileDialogs.asked, IsEmpty());
}

TEST_F(FileList, PixelTooLargeForAStyleIsReported) {
    InputFileChoices form;
    Design.TwipsPerPixelY = 20000.0F; // three of them are more than a radius can be
    form.Drop("InputFilesOpen", 0, {"/a.map"});
    EXPECT_THAT(machine.boxes.asked,
                ElementsAre(AskedBox{"Error in InputFileChoices", "Error: Overflow", BoxButtons::Ok,
                                     BoxIcon::Exclamation, BoxAnswer::Ok}));
    EXPECT_EQ(Names().size(), 3U);
}

TEST_F(FileList, ListThatIsFullTakesNoMore) {
    SetFiles(std::vector<std::string>(32767, "/x.map"));
    InputFileChoices form;
    Accept("/a.map");
    form.Drop("InputFilesOpen", 0, {"/a.map"});
    EXPECT_THAT(machine.boxes.asked,
                ElementsAre(AskedBox{"Error in InputFileChoices", "Error: Overflow", BoxButtons::Ok,
                                     BoxIcon::Exclamation, BoxAnswer::Ok}));
    EXPECT_EQ(Names().size(), 32767U);
}

// ---- Editing

TEST_F(FileList, EditChangesTheSelectedFile) {
    InputFileChoices form;
    form.Choose("InputFilesOpen", 1);
    machine.forms.Script("InputFileParams", [](Form& parameters) {
        EXPECT_EQ(parameters.At("MapFile").text, "/maps/2.pkd");
        EXPECT_EQ(parameters.At("GeoFeatures").cells.size(), 36U * 4U);
        parameters.Choose("SymbolType1", SymbolDot - 1);
        parameters.PressDefault();
    });
    form.Press("InputFileEdit");
    EXPECT_EQ(Design.InputFiles[0].MapFileType, SymbolLine);
    EXPECT_EQ(Design.InputFiles[1].MapFileType, SymbolDot);
    EXPECT_THAT(Names(), ElementsAre("/maps/1.map", "/maps/2.pkd", "/maps/3.mps"));
    EXPECT_EQ(Selected(form), 1);
    EXPECT_FALSE(form.Closed());
}

TEST_F(FileList, DoubleClickEdits) {
    InputFileChoices form;
    form.Choose("InputFilesOpen", 2);
    Accept("/maps/3.mps");
    form.DoubleClick("InputFilesOpen");
    EXPECT_FALSE(form.Closed());
}

TEST_F(FileList, EditedEntryShowsItsOwnSizes) {
    Design.InputFiles[2].Features[1].LineWidth = 90;
    InputFileChoices form;
    form.Choose("InputFilesOpen", 2);
    machine.forms.Script("InputFileParams", [](Form& parameters) {
        EXPECT_EQ(parameters.At("GeoFeatures").cells[0].text, "0006");
        parameters.PressCancel();
    });
    form.Press("InputFileEdit");
}

TEST_F(FileList, NameBeginsAtTheSixthColumnOfItsLine) {
    SetFiles(std::vector<std::string>(100, "/x.map"));
    InputFileChoices form;
    form.Choose("InputFilesOpen", 98);
    Accept("/x.map");
    form.Press("InputFileEdit");
    form.Choose("InputFilesOpen", 99);
    Accept(" /x.map"); // behind three digits the last blank lies there
    form.Press("InputFileEdit");
    EXPECT_EQ(Names()[99], "/x.map") << "only what is shown";
}

// ---- Deleting

TEST_F(FileList, DeleteAsksFirst) {
    InputFileChoices form;
    form.Choose("InputFilesOpen", 1);
    form.Press("InputFileDelete");
    EXPECT_THAT(machine.boxes.asked,
                ElementsAre(AskedBox{"Delete Digital Map File from List",
                                     "File: 2.pkd\n\nRemove file from the list of digital map files?",
                                     BoxButtons::YesNo, BoxIcon::Exclamation, BoxAnswer::No}));
    EXPECT_THAT(Names(), ElementsAre("/maps/1.map", "/maps/2.pkd", "/maps/3.mps"));
}

TEST_F(FileList, DeleteClosesTheGap) {
    Design.InputFiles[2].MapFileType = SymbolDot;
    InputFileChoices form;
    form.Choose("InputFilesOpen", 1);
    machine.boxes.Answer(BoxAnswer::Yes);
    form.Press("InputFileDelete");
    EXPECT_THAT(Names(), ElementsAre("/maps/1.map", "/maps/3.mps"));
    EXPECT_EQ(Design.InputFiles[1].MapFileType, SymbolDot) << "with all that belongs to it";
    EXPECT_THAT(Lines(form), ElementsAre("01   /maps/1.map", "02   /maps/3.mps", ""));
    EXPECT_EQ(Selected(form), 1);
    EXPECT_EQ(form.Focus(), "InputFilesOpen");
}

TEST_F(FileList, DeletingTheLastFileLeavesAnEmptyList) {
    SetFiles({"C:\\maps\\only.map"});
    InputFileChoices form;
    form.Choose("InputFilesOpen", 0);
    machine.boxes.Answer(BoxAnswer::Yes);
    form.Press("InputFileDelete");
    EXPECT_THAT(machine.boxes.asked[0].text, testing::StartsWith("File: only.map\n"));
    EXPECT_THAT(Names(), IsEmpty());
    EXPECT_THAT(Lines(form), ElementsAre(""));
    EXPECT_FALSE(form.At("InputFileDelete").enabled);
    form.PressDefault();
    EXPECT_EQ(Design.MapFileCount, 0);
}

// ---- OK and Cancel

TEST_F(FileList, OkKeepsTheList) {
    InputFileChoices form;
    form.Choose("InputFilesOpen", 0);
    machine.boxes.Answer(BoxAnswer::Yes);
    form.Press("InputFileDelete");
    form.PressDefault();
    EXPECT_TRUE(form.Closed());
    EXPECT_FALSE(Design.DialogCancelled);
    EXPECT_THAT(Names(), ElementsAre("/maps/2.pkd", "/maps/3.mps"));
}

TEST_F(FileList, CancelPutsTheListBack) {
    InputFileChoices form;
    form.Choose("InputFilesOpen", 0);
    machine.boxes.Answer(BoxAnswer::Yes);
    form.Press("InputFileDelete");
    Accept("/a.map");
    form.Drop("InputFilesOpen", 0, {"/a.map"});
    form.Choose("InputFilesOpen", 1);
    machine.forms.Script("InputFileParams", [](Form& parameters) {
        parameters.Choose("SymbolType1", SymbolDot - 1);
        parameters.PressDefault();
    });
    form.Press("InputFileEdit");
    form.PressCancel();
    EXPECT_TRUE(form.Closed());
    EXPECT_TRUE(Design.DialogCancelled);
    EXPECT_THAT(Names(), ElementsAre("/maps/1.map", "/maps/2.pkd", "/maps/3.mps"));
    EXPECT_EQ(Design.InputFiles[1].MapFileType, SymbolLine);
}

// ---- The order of the files

TEST_F(FileList, MoveUpAndMoveDownMoveTheSelectedFile) {
    InputFileChoices form;
    form.Choose("InputFilesOpen", 2);
    form.Press("MoveUp");
    EXPECT_THAT(Lines(form), ElementsAre("01   /maps/1.map", "02   /maps/3.mps", "03   /maps/2.pkd", ""));
    EXPECT_EQ(Selected(form), 1) << "it stays the selected one";
    EXPECT_EQ(form.Focus(), "InputFilesOpen");
    form.Press("MoveUp");
    EXPECT_THAT(Names(), ElementsAre("/maps/3.mps", "/maps/1.map", "/maps/2.pkd"));
    form.Press("MoveDown");
    form.Press("MoveDown");
    EXPECT_THAT(Names(), ElementsAre("/maps/1.map", "/maps/2.pkd", "/maps/3.mps"));
    EXPECT_EQ(Selected(form), 2);
}

TEST_F(FileList, FilesMoveOnlyWithinTheList) {
    InputFileChoices form;
    const auto movable = [&](int line) {
        form.Choose("InputFilesOpen", line);
        return std::pair(form.At("MoveUp").enabled, form.At("MoveDown").enabled);
    };
    EXPECT_EQ(movable(0), std::pair(false, true));
    EXPECT_EQ(movable(1), std::pair(true, true));
    EXPECT_EQ(movable(2), std::pair(true, false));
    EXPECT_EQ(movable(3), std::pair(false, false)) << "the blank line";
    form.Press("MoveUp");
    form.Choose("InputFilesOpen", 0);
    form.Press("MoveUp");
    form.Choose("InputFilesOpen", 2);
    form.Press("MoveDown");
    EXPECT_THAT(Names(), ElementsAre("/maps/1.map", "/maps/2.pkd", "/maps/3.mps"));
}

TEST_F(FileList, StyleOfAFileMovesWithIt) {
    Design.InputFiles[0].MapFileType = SymbolFilledCircle;
    Design.InputFiles[0].Features[1].Shown = false;
    InputFileChoices form;
    form.Choose("InputFilesOpen", 0);
    form.Press("MoveDown");
    form.Press("OK");
    ASSERT_EQ(Design.InputFiles[1].MapFileName, "/maps/1.map");
    EXPECT_EQ(Design.InputFiles[1].MapFileType, SymbolFilledCircle);
    EXPECT_FALSE(Design.InputFiles[1].Features[1].Shown);
    EXPECT_TRUE(Design.InputFiles[0].Features[1].Shown);
}

TEST_F(FileList, DraggedFileStandsBeforeTheLineWhereItWasLetGo) {
    struct Row {
        int from, before;
        std::vector<std::string> names;
        int selected;
    };
    const std::string a = "/maps/1.map";
    const std::string b = "/maps/2.pkd";
    const std::string c = "/maps/3.mps";
    for (const Row& row : {Row{0, 2, {b, a, c}, 1}, Row{0, 3, {b, c, a}, 2}, Row{2, 0, {c, a, b}, 0},
                           Row{1, 1, {a, b, c}, 1}, Row{1, 2, {a, b, c}, 1}, Row{3, 0, {a, b, c}, 3}}) {
        SetFiles({a, b, c});
        InputFileChoices form;
        form.Drag("InputFilesOpen", row.from, row.before);
        EXPECT_EQ(Names(), row.names) << row.from << " to " << row.before;
        EXPECT_EQ(Selected(form), row.selected);
        EXPECT_EQ(Lines(form).back(), "");
    }
}

TEST_F(FileList, CancelPutsTheOrderBack) {
    InputFileChoices form;
    form.Drag("InputFilesOpen", 0, 3);
    form.PressCancel();
    EXPECT_THAT(Names(), ElementsAre("/maps/1.map", "/maps/2.pkd", "/maps/3.mps"));
}

TEST_F(FileList, DeleteKeyAsksAsTheButtonDoes) {
    InputFileChoices form;
    form.PressDelete("InputFilesOpen"); // the blank line
    EXPECT_THAT(machine.boxes.asked, IsEmpty());
    form.Choose("InputFilesOpen", 1);
    machine.boxes.Answer(BoxAnswer::No);
    form.PressDelete("InputFilesOpen");
    EXPECT_EQ(Names().size(), 3U);
    machine.boxes.Answer(BoxAnswer::Yes);
    form.PressDelete("InputFilesOpen");
    EXPECT_THAT(Names(), ElementsAre("/maps/1.map", "/maps/3.mps"));
    const std::vector<AskedBox> boxes = machine.boxes.Taken();
    ASSERT_EQ(boxes.size(), 2U);
    EXPECT_EQ(boxes[0].title, "Delete Digital Map File from List");
    EXPECT_EQ(boxes[0].text, "File: 2.pkd\n\nRemove file from the list of digital map files?");
}

} // namespace
} // namespace quelmont
