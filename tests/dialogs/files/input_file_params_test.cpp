#include "dialogs/files/input_file_params.h"

#include "core/constant_defs.h"
#include "core/map_design.h"
#include "mapfiles/feature_rows.h"
#include "platform/help_pages.h"
#include "support/fresh_program.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <memory>

namespace quelmont {
namespace {

using testing::Each;
using testing::ElementsAre;
using testing::IsEmpty;

constexpr ColorValue Black = Rgb(0, 0, 0);
constexpr ColorValue LightGrey = Rgb(192, 192, 192);

/// Columns of the features.
enum Column { Size, Color, Border, Name };

/// The dialog on an entry of its own, with pixels of 15 twips.
class FileParameters : public FreshProgramTest {
protected:
    FileParameters() { ConstantDefs(); }

    void Add(const std::string& name) {
        entry = NewMapFileEntry(name);
        form = std::make_unique<InputFileParams>(name, entry, MapFileMode::Add);
    }
    void Edit() { form = std::make_unique<InputFileParams>(entry.MapFileName, entry, MapFileMode::Edit); }

    static int CellNumber(int row, Column column) { return (row - 1) * 4 + column; }
    const GridCell& Cell(int row, Column column) const {
        return form->At("GeoFeatures").cells[static_cast<std::size_t>(CellNumber(row, column))];
    }
    int Rows() const { return static_cast<int>(form->At("GeoFeatures").cells.size()) / 4; }
    std::vector<std::string> Texts(Column column) const {
        std::vector<std::string> texts;
        for (int row = 1; row <= Rows(); ++row) {
            texts.push_back(Cell(row, column).text);
        }
        return texts;
    }
    void Click(int row, Column column) { form->Choose("GeoFeatures", CellNumber(row, column)); }
    void ChooseType(SymbolType type) { form->Choose("SymbolType1", type - 1); }
    std::string Heading() const { return form->At("GeoFeatures").items[0]; }
    const FeatureStyle& Style(std::size_t row) const { return entry.Features[row]; }

    /// Answers the next box of a size.
    void EnterSize(int pixels) {
        machine.forms.Script("SymbolSizeSpin", [pixels](Form& spin) {
            spin.Spin("SymbolSize", pixels);
            spin.PressDefault();
        });
    }

    InputFileEntry entry;
    std::unique_ptr<InputFileParams> form;
};

// ---- What it shows

TEST_F(FileParameters, ShowsTheNameTheTypesAndTheFeatures) {
    Add("/maps/world.map");
    EXPECT_EQ(form->Caption(), "Digital Map File Plot Parameters");
    EXPECT_EQ(form->At("MapFile").caption, "Map File: ");
    EXPECT_EQ(form->At("MapFile").text, "/maps/world.map");
    const Control& types = form->At("SymbolType1");
    EXPECT_THAT(types.items, ElementsAre("Symbol Type"));
    ASSERT_EQ(types.cells.size(), 12U);
    for (int type = 1; type <= 12; ++type) {
        EXPECT_EQ(types.cells[static_cast<std::size_t>(type - 1)].picture, type);
    }
    EXPECT_EQ(types.value, 0);
    EXPECT_THAT(form->At("GeoFeatures").items,
                ElementsAre("Line Width", "Color", "Border", "Geographic Feature"));
    EXPECT_TRUE(Design.DialogCancelled);
}

TEST_F(FileParameters, RowsAreThoseOfTheTableOfTheFile) {
    const std::pair<const char*, int> files[] = {{"a.all", 10}, {"a.CCI", 10}, {"a.map", 10}, {"a.grv", 72},
                                                 {"a.grf", 72}, {"a.PKV", 36}, {"a.pkd", 36}, {"a.pnt", 1},
                                                 {"a.prn", 1},  {"a.utm", 1},  {"a.dat", 1},  {"a.mp1", 1},
                                                 {"a.mps", 1},  {"a.txt", 1},  {"a", 1}};
    for (const auto& [name, rows] : files) {
        Add(name);
        EXPECT_EQ(Rows(), rows) << name;
        for (int row = 1; row <= rows; ++row) {
            const FeatureRow& feature = FeatureRows(name)[static_cast<std::size_t>(row - 1)];
            EXPECT_EQ(Cell(row, Name).text, feature.name);
            EXPECT_EQ(Cell(row, Color).color, feature.color);
        }
    }
    Add("places.pnt");
    EXPECT_THAT(Texts(Name), ElementsAre("All features"));
    EXPECT_EQ(Cell(1, Color).color, Rgb(1, 0, 0));
}

TEST_F(FileParameters, NewFileShowsEveryRowWithLinesOfOnePixel) {
    for (const char* const name : {"a.map", "a.pkd", "a.grf", "a.mps"}) {
        Add(name);
        EXPECT_THAT(Texts(Size), Each("0001"));
        EXPECT_THAT(Texts(Border), Each(""));
        for (int row = 1; row <= Rows(); ++row) {
            EXPECT_EQ(Cell(row, Name).textColor, Black);
        }
    }
}

TEST_F(FileParameters, EntryIsShownAsItIsStored) {
    entry = NewMapFileEntry("a.map");
    entry.MapFileType = SymbolOpenCircle;
    entry.Features[1] = {
        .Shown = true, .Color = SolidColor(Rgb(1, 2, 3)), .SymbolSize = 75, .BorderWidth = 30};
    entry.Features[2].Shown = false;
    entry.Features[2].SymbolSize = 0;
    entry.Features[2].BorderWidth = 0;
    Edit();
    EXPECT_EQ(form->At("SymbolType1").value, 10);
    EXPECT_EQ(Heading(), "Symbol Radius");
    EXPECT_EQ(Cell(1, Size).text, "0005");
    EXPECT_EQ(Cell(1, Border).text, "0002");
    EXPECT_EQ(Cell(1, Color).color, Rgb(1, 2, 3));
    EXPECT_EQ(Cell(1, Name).textColor, Black);
    EXPECT_EQ(Cell(2, Size).text, "0003") << "nothing is stored";
    EXPECT_EQ(Cell(2, Border).text, "0001");
    EXPECT_EQ(Cell(2, Name).textColor, LightGrey);
}

TEST_F(FileParameters, SizesAreShownInWholePixels) {
    Design.TwipsPerPixelY = 7.5F;
    entry = NewMapFileEntry("a.map");
    entry.Features[1].LineWidth = 8;     // 1.07 pixels
    entry.Features[2].LineWidth = 12;    // 1.6
    entry.Features[3].LineWidth = 32767; // 4368.9
    entry.Features[4].LineWidth = 2;     // 0.27: not zero, so it counts
    Edit();
    EXPECT_EQ(Cell(1, Size).text, "0001");
    EXPECT_EQ(Cell(2, Size).text, "0002");
    EXPECT_EQ(Cell(3, Size).text, "4369");
    EXPECT_EQ(Cell(4, Size).text, "0000");
}

TEST_F(FileParameters, UnknownSymbolTypeCountsAsLines) {
    for (const int type : {0, -1, 13, 99}) {
        entry = NewMapFileEntry("a.map");
        entry.MapFileType = static_cast<std::int16_t>(type);
        Edit();
        EXPECT_EQ(form->At("SymbolType1").value, 0);
        EXPECT_EQ(Heading(), "Line Width");
    }
}

// ---- Symbol types

TEST_F(FileParameters, EachTypeProposesItsSizes) {
    const std::map<SymbolType, std::string> borders = {{SymbolDot, ""},
                                                       {SymbolPlus, "0001"},
                                                       {SymbolCross, "0001"},
                                                       {SymbolOpenSquare, "0001"},
                                                       {SymbolFilledSquare, ""},
                                                       {SymbolOpenDiamond, "0001"},
                                                       {SymbolFilledDiamond, ""},
                                                       {SymbolOpenTriangle, "0001"},
                                                       {SymbolFilledTriangle, ""},
                                                       {SymbolOpenCircle, "0001"},
                                                       {SymbolFilledCircle, ""}};
    ASSERT_EQ(borders.size(), 11U);
    for (const char* const name : {"a.map", "a.pkd", "a.grf", "a.mps"}) {
        Add(name);
        for (const auto& [type, border] : borders) {
            ChooseType(type);
            EXPECT_EQ(Heading(), "Symbol Radius");
            EXPECT_THAT(Texts(Size), Each("0003")) << type;
            EXPECT_THAT(Texts(Border), Each(border)) << type;
        }
        ChooseType(SymbolLine);
        EXPECT_EQ(Heading(), "Line Width");
        EXPECT_THAT(Texts(Size), Each("0001"));
        EXPECT_THAT(Texts(Border), Each(""));
    }
}

TEST_F(FileParameters, AnotherTypeOfAnEntryTakesItsStoredSizes) {
    entry = NewMapFileEntry("a.mps");
    entry.Features[1].LineWidth = 60;
    entry.Features[1].SymbolSize = 105;
    entry.Features[1].BorderWidth = 45;
    Edit();
    EXPECT_EQ(Cell(1, Size).text, "0004");
    ChooseType(SymbolPlus);
    EXPECT_EQ(Cell(1, Size).text, "0007");
    EXPECT_EQ(Cell(1, Border).text, "0003");
    ChooseType(SymbolFilledCircle);
    EXPECT_EQ(Cell(1, Border).text, "");
    ChooseType(SymbolLine);
    EXPECT_EQ(Cell(1, Size).text, "0004");
}

TEST_F(FileParameters, ArrowKeysChooseTheTypeToo) {
    Add("a.map");
    form->MoveTo("SymbolType1", SymbolCross - 1);
    EXPECT_EQ(Heading(), "Symbol Radius");
    form->PressDefault();
    EXPECT_EQ(entry.MapFileType, SymbolCross);
}

TEST_F(FileParameters, PlaceBelowTheLastTypeChoosesNothing) {
    Add("a.map");
    form->Choose("SymbolType1", 12);
    form->MoveTo("SymbolType1", 12);
    EXPECT_EQ(form->At("SymbolType1").value, 0);
    EXPECT_EQ(Heading(), "Line Width");
}

TEST_F(FileParameters, TypeThatIsChosenAgainKeepsWhatWasEntered) {
    Add("a.map");
    ChooseType(SymbolPlus);
    EnterSize(9);
    Click(2, Size);
    ChooseType(SymbolPlus);
    EXPECT_EQ(Cell(2, Size).text, "0009");
    ChooseType(SymbolCross);
    EXPECT_EQ(Cell(2, Size).text, "0003") << "another type proposes anew";
}

// ---- Cells

TEST_F(FileParameters, NameTurnsItsRowOffAndOn) {
    Add("a.map");
    EXPECT_EQ(Cell(3, Name).words, "Lakes, shown");
    Click(3, Name);
    EXPECT_EQ(Cell(3, Name).textColor, LightGrey);
    EXPECT_EQ(Cell(3, Name).words, "Lakes, not shown");
    EXPECT_EQ(Cell(2, Name).textColor, Black);
    EXPECT_EQ(Cell(4, Name).textColor, Black);
    Click(3, Name);
    EXPECT_EQ(Cell(3, Name).textColor, Black);
}

TEST_F(FileParameters, MovingOverTheCellsChangesNothing) {
    Add("a.map");
    for (int cell = 0; cell < 40; ++cell) {
        form->MoveTo("GeoFeatures", cell);
    }
    EXPECT_THAT(machine.forms.shown, IsEmpty());
    EXPECT_EQ(Cell(3, Name).textColor, Black);
}

TEST_F(FileParameters, ColorOfARowComesFromThePicker) {
    Add("a.map");
    machine.forms.Script("Colors256", [](Form& picker) {
        EXPECT_EQ(picker.At("Purpose").text, "Geofeature Color");
        EXPECT_EQ(picker.At("ColorSquare").marked, 9) << "the row's blue";
        picker.Choose("ColorSquare", 48);
    });
    Click(4, Color);
    EXPECT_EQ(Cell(4, Color).color, Rgb(0x4D, 0x26, 0));
    EXPECT_EQ(Cell(4, Color).words, "orange 1 of 16: red 77, green 38, blue 0");
    EXPECT_EQ(Cell(3, Color).color, Rgb(0, 0, 255));
    EXPECT_FALSE(form->Closed());
}

TEST_F(FileParameters, CancelledPickerLeavesTheColor) {
    Add("a.map");
    machine.forms.Script("Colors256", [](Form& picker) { picker.PressCancel(); });
    Click(4, Color);
    EXPECT_EQ(Cell(4, Color).color, Rgb(0, 0, 255));
}

TEST_F(FileParameters, ColorThatThePickerDoesNotHaveIsReadOutByItsParts) {
    Add("a.mps");
    EXPECT_EQ(Cell(1, Color).words, "red 1, green 0, blue 0");
}

TEST_F(FileParameters, SizesAreEnteredByTheirKind) {
    Add("a.map");
    const auto expect = [&](const std::string& caption, int before, int pixels) {
        machine.forms.Script("SymbolSizeSpin", [=](Form& spin) {
            EXPECT_EQ(spin.Caption(), caption);
            EXPECT_EQ(spin.At("SymbolSize").value, before);
            spin.Spin("SymbolSize", pixels);
            spin.PressDefault();
        });
    };
    expect("Line Width", 1, 12);
    Click(2, Size);
    EXPECT_THAT(Texts(Size),
                ElementsAre("0001", "0012", "0001", "0001", "0001", "0001", "0001", "0001", "0001", "0001"));
    ChooseType(SymbolOpenSquare);
    expect("Symbol Radius", 3, 600);
    Click(10, Size);
    EXPECT_EQ(Cell(10, Size).text, "0600");
    expect("Border Width of Symbol", 1, 2);
    Click(10, Border);
    EXPECT_EQ(Cell(10, Border).text, "0002");
    EXPECT_FALSE(form->Closed());
}

TEST_F(FileParameters, CancelledSizeLeavesTheCell) {
    Add("a.map");
    machine.forms.Script("SymbolSizeSpin", [](Form& spin) {
        spin.Spin("SymbolSize", 50);
        spin.PressCancel();
    });
    Click(1, Size);
    EXPECT_EQ(Cell(1, Size).text, "0001");
}

TEST_F(FileParameters, EmptyBorderCellOpensNothing) {
    Add("a.map");
    Click(1, Border);
    ChooseType(SymbolFilledCircle);
    Click(1, Border);
    EXPECT_THAT(machine.forms.shown, IsEmpty());
    EXPECT_EQ(Cell(1, Border).text, "");
}

// ---- OK and Cancel

TEST_F(FileParameters, OkStoresLinesInTwips) {
    Add("a.map");
    EnterSize(4);
    Click(2, Size);
    Click(3, Name);
    machine.forms.Script("Colors256", [](Form& picker) { picker.Choose("ColorSquare", 12); });
    Click(5, Color);
    const FeatureStyle before = Style(2);
    form->PressDefault();
    EXPECT_TRUE(form->Closed());
    EXPECT_FALSE(Design.DialogCancelled);
    EXPECT_EQ(entry.MapFileName, "a.map");
    EXPECT_EQ(entry.MapFileType, SymbolLine);
    EXPECT_EQ(Style(1).LineWidth, 15);
    EXPECT_EQ(Style(2).LineWidth, 60);
    EXPECT_EQ(Style(2).SymbolSize, before.SymbolSize) << "not asked for";
    EXPECT_EQ(Style(2).BorderWidth, before.BorderWidth);
    EXPECT_TRUE(Style(2).Shown);
    EXPECT_FALSE(Style(3).Shown);
    EXPECT_EQ(Style(5).Color, SolidColor(Rgb(255, 0, 0)));
    EXPECT_EQ(Style(6).Color, SolidColor(Rgb(255, 0, 255)));
    EXPECT_FALSE(Style(0).Shown);
    EXPECT_FALSE(Style(11).Shown);
    EXPECT_THAT(machine.boxes.asked, IsEmpty());
}

TEST_F(FileParameters, OkStoresRadiusAndBorderOfTheTypesThatHaveThem) {
    for (int type = SymbolDot; type <= SymbolFilledCircle; ++type) {
        Add("a.mps");
        entry.Features[1].LineWidth = 7;
        entry.Features[1].BorderWidth = 9;
        ChooseType(static_cast<SymbolType>(type));
        EnterSize(11);
        Click(1, Size);
        const bool border = !Cell(1, Border).text.empty();
        if (border) {
            EnterSize(5);
            Click(1, Border);
        }
        form->PressDefault();
        EXPECT_EQ(entry.MapFileType, type);
        EXPECT_EQ(Style(1).SymbolSize, 165) << type;
        EXPECT_EQ(Style(1).LineWidth, 7) << type;
        EXPECT_EQ(Style(1).BorderWidth, border ? 75 : 9) << type;
    }
}

TEST_F(FileParameters, TwipsAreRoundedToTheEvenNeighbour) {
    Design.TwipsPerPixelY = 7.5F;
    Add("a.map");
    EnterSize(3); // 22.5
    Click(1, Size);
    EnterSize(5); // 37.5
    Click(2, Size);
    form->PressDefault();
    EXPECT_EQ(Style(1).LineWidth, 22);
    EXPECT_EQ(Style(2).LineWidth, 38);
    EXPECT_EQ(Style(3).LineWidth, 8); // 7.5
}

TEST_F(FileParameters, RowsBeyondTheTableAreNotShown) {
    entry = NewMapFileEntry("a.map");
    entry.Features[0].Shown = true;
    entry.Features[11].Shown = true;
    entry.Features[72].Shown = true;
    Edit();
    form->PressDefault();
    EXPECT_FALSE(Style(0).Shown);
    EXPECT_TRUE(Style(10).Shown);
    EXPECT_FALSE(Style(11).Shown);
    EXPECT_FALSE(Style(72).Shown);
}

TEST_F(FileParameters, ReopenedEntryShowsWhatWasStored) {
    Add("a.grf");
    ChooseType(SymbolOpenTriangle);
    EnterSize(8);
    Click(72, Size);
    Click(71, Name);
    form->PressDefault();
    Edit();
    EXPECT_EQ(form->At("SymbolType1").value, SymbolOpenTriangle - 1);
    EXPECT_EQ(Cell(72, Size).text, "0008");
    EXPECT_EQ(Cell(71, Size).text, "0003");
    EXPECT_EQ(Cell(71, Name).textColor, LightGrey);
    EXPECT_EQ(Cell(72, Name).textColor, Black);
}

TEST_F(FileParameters, CheckBoxTellsWhetherARowIsShown) {
    Add("a.map");
    Click(2, Name);
    for (int row = 1; row <= 10; ++row) {
        EXPECT_EQ(Cell(row, Name).checked, row != 2) << row;
        EXPECT_EQ(Cell(row, Color).checked, std::nullopt);
    }
    Click(2, Name);
    EXPECT_EQ(Cell(2, Name).checked, true);
}

TEST_F(FileParameters, AllRowsAreShownOrHiddenAtOnce) {
    Add("a.grf");
    Click(5, Name);
    form->Press("HideAll");
    EXPECT_EQ(form->Focus(), "GeoFeatures");
    for (int row = 1; row <= 72; ++row) {
        EXPECT_EQ(Cell(row, Name).textColor, LightGrey);
        EXPECT_EQ(Cell(row, Name).checked, false);
    }
    Click(7, Name);
    form->PressDefault();
    EXPECT_FALSE(Style(5).Shown);
    EXPECT_TRUE(Style(7).Shown);
    EXPECT_FALSE(Style(72).Shown);
    Edit();
    form->Press("ShowAll");
    for (int row = 1; row <= 72; ++row) {
        EXPECT_EQ(Cell(row, Name).textColor, Black);
        EXPECT_EQ(Cell(row, Name).checked, true);
    }
    form->PressDefault();
    EXPECT_TRUE(Style(1).Shown && Style(72).Shown);
    EXPECT_FALSE(Style(0).Shown);
}

TEST_F(FileParameters, CancelStoresNothing) {
    Add("a.map");
    ChooseType(SymbolPlus);
    Click(1, Name);
    EnterSize(9);
    Click(2, Size);
    form->PressCancel();
    EXPECT_TRUE(form->Closed());
    EXPECT_TRUE(Design.DialogCancelled);
    EXPECT_EQ(entry.MapFileType, SymbolLine);
    EXPECT_TRUE(Style(1).Shown);
    EXPECT_EQ(Style(2).SymbolSize, 45);
}

TEST_F(FileParameters, SizeThatCannotBeStoredLeavesTheEntryAndTheDialog) {
    Design.TwipsPerPixelY = 7.5F;
    entry = NewMapFileEntry("a.map");
    entry.Features[9].LineWidth = 32767; // 4369 pixels, which would be 32768 twips
    Edit();
    Click(1, Name);
    form->PressDefault();
    EXPECT_THAT(machine.boxes.asked,
                ElementsAre(AskedBox{"Error in InputFileParams", "Error: Overflow", BoxButtons::Ok,
                                     BoxIcon::Exclamation, BoxAnswer::Ok}));
    EXPECT_FALSE(form->Closed());
    EXPECT_TRUE(Style(1).Shown) << "all or nothing";
}

// ---- Labels

constexpr const char* FontAnnouncement = "Quelmont .PRN and .UTM files may contain labels that can be "
                                         "displayed next to the point they represent.\n\n"
                                         "When you press OK, a Font selection dialog box will appear.  Use "
                                         "this box to select the font that will be "
                                         "used to display any labels contained in this file.";

TEST_F(FileParameters, FontOfLabelsIsAskedForWhereThereMayBeLabels) {
    for (const char* const name : {"a.prn", "a.PRN", "a.utm", "a.Utm"}) {
        Add(name);
        machine.forms.Script("FontDialog", [](Form& font) {
            font.Type("comFontName", "Courier");
            font.Type("comFontSize", "24");
            font.Choose("chkBold");
            font.Choose("chkUnderline");
            font.Choose("ColorSquare", 12);
            font.PressDefault();
        });
        form->PressDefault();
        EXPECT_TRUE(form->Closed());
        EXPECT_FALSE(Design.DialogCancelled);
        EXPECT_THAT(machine.boxes.Taken(),
                    ElementsAre(AskedBox{"Select Label Font", FontAnnouncement, BoxButtons::Ok,
                                         BoxIcon::Information, BoxAnswer::Ok}));
        EXPECT_EQ(entry.LabelFontName, "Courier");
        EXPECT_EQ(entry.LabelFontSize, 24);
        EXPECT_EQ(entry.LabelColor, SolidColor(Rgb(255, 0, 0)));
        EXPECT_TRUE(entry.LabelBold && entry.LabelUnderline);
        EXPECT_FALSE(entry.LabelItalic || entry.LabelStrikeout);
        EXPECT_EQ(Design.FontSlot, TextFontSlot) << "as before";
    }
}

TEST_F(FileParameters, NoFontIsAskedForElsewhere) {
    for (const char* const name : {"a.map", "a.pkv", "a.dat", "a.mp1", "towns.txt"}) {
        Add(name);
        form->PressDefault();
        EXPECT_THAT(machine.boxes.Taken(), IsEmpty());
        EXPECT_EQ(entry.LabelFontName, "");
        EXPECT_EQ(entry.LabelFontSize, 0);
    }
}

TEST_F(FileParameters, FontDialogOpensOnTheTextFontAtFirst) {
    Design.Fonts[TextFontSlot] = {.FontName = "Times", .FontSize = 7, .FontColour = 255, .FontItalic = true};
    Add("a.prn");
    machine.forms.Script("FontDialog", [](Form& font) {
        EXPECT_EQ(Design.FontSlot, LabelFontSlot);
        EXPECT_EQ(font.At("comFontName").text, "Times");
        EXPECT_EQ(font.At("comFontSize").text, "10") << "7 is less than 8";
        EXPECT_EQ(font.At("chkItalic").value, 1);
        font.PressDefault();
    });
    form->PressDefault();
    EXPECT_EQ(entry.LabelFontName, "Times");
    EXPECT_EQ(entry.LabelFontSize, 10);
    EXPECT_EQ(entry.LabelColor, 255U);
    EXPECT_TRUE(entry.LabelItalic);
    EXPECT_EQ(Design.Fonts[TextFontSlot].FontSize, 7) << "the texts keep theirs";
}

TEST_F(FileParameters, CancelledFontDialogLeavesTheFontOfTheEntry) {
    entry = NewMapFileEntry("a.prn");
    entry.LabelFontName = "Courier";
    entry.LabelFontSize = 24;
    entry.LabelColor = Rgb(255, 0, 0);
    entry.LabelItalic = true;
    Edit();
    machine.forms.Script("FontDialog", [](Form& font) {
        EXPECT_EQ(font.At("comFontName").text, "Courier");
        EXPECT_EQ(font.At("comFontSize").text, "24");
        font.Type("comFontSize", "60");
        font.PressCancel();
    });
    form->PressDefault();
    EXPECT_TRUE(form->Closed());
    EXPECT_FALSE(Design.DialogCancelled) << "the rest was accepted";
    EXPECT_EQ(entry.LabelFontName, "Courier");
    EXPECT_EQ(entry.LabelFontSize, 24);
    EXPECT_EQ(entry.LabelColor, Rgb(255, 0, 0));
    EXPECT_TRUE(entry.LabelItalic);
}

TEST_F(FileParameters, CancelledFontDialogGivesANewEntryArialOfTenPointsInBlack) {
    Design.Fonts[TextFontSlot] = {.FontName = "Times", .FontSize = 30, .FontColour = 255, .FontBold = true};
    Add("a.utm");
    machine.forms.Script("FontDialog", [](Form& font) { font.PressCancel(); });
    form->PressDefault();
    EXPECT_FALSE(Design.DialogCancelled);
    EXPECT_EQ(entry.LabelFontName, "Arial");
    EXPECT_EQ(entry.LabelFontSize, 10);
    EXPECT_EQ(entry.LabelColor, SolidColor(Rgb(0, 0, 0)));
    EXPECT_FALSE(entry.LabelBold || entry.LabelItalic || entry.LabelUnderline || entry.LabelStrikeout);
}

TEST_F(FileParameters, HelpHasItsPage) {
    Add("a.map");
    form->PressF1();
    EXPECT_THAT(machine.help.shown,
                ElementsAre(testing::Pair(HelpContext, HelpContextOf("InputFileParams", form->Focus()))));
}

} // namespace
} // namespace quelmont
