#include "dialogs/files/input_file_choices.h"

#include "core/constant_defs.h"
#include "core/map_design.h"
#include "mapfiles/feature_rows.h"
#include "support/fresh_program.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace quelmont {
namespace {

using testing::ElementsAre;
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
    EXPECT_EQ(request.filter,
              "ASCII (.prn, .utm)|*.prn;*.utm|MWDB2 (.all, .pnt, .cci)|*.all;*.pnt;*.cci|USGS DLG (.grv, "
              ".grf)|*.grv;*.grf|QMNT (.map)|*.map|WDB1 (.dat)|*.dat|WDB2 (.pkv, .pkd)|*.pkv;*.pkd|World "
              "(.mp1, .mps)|*.mp1;*.mps");
    EXPECT_EQ(request.name, "1.map");
    EXPECT_EQ(request.folder, "/maps");
    EXPECT_TRUE(request.several);
    EXPECT_EQ(Names().size(), 3U) << "it was cancelled";
    EXPECT_THAT(machine.boxes.asked, IsEmpty());
}

TEST_F(FileList, FilterFollowsTheFileChosenLast) {
    const std::pair<const char*, int> filters[] = {{"/a.prn", 1}, {"/a.UTM", 1}, {"/a.all", 2}, {"/a.pnt", 2},
                                                   {"/a.cci", 2}, {"/a.grv", 3}, {"/a.grf", 3}, {"/a.map", 4},
                                                   {"", 4},       {"/a.dat", 5}, {"/a.pkv", 6}, {"/a.PKD", 6},
                                                   {"/a.mp1", 7}, {"/a.mps", 7}, {"/a.txt", 4}};
    for (const auto& [name, index] : filters) {
        Design.MapFileDefault = name;
        InputFileChoices form;
        form.Press("InputFileAdd");
        EXPECT_EQ(machine.fileDialogs.asked.back().filterIndex, index) << name;
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

TEST_F(FileList, FailedFileDialogIsTold) {
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

TEST_F(FileList, PixelTooLargeForAStyleIsTold) {
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

} // namespace
} // namespace quelmont
