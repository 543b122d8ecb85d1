#include "dialogs/printing/print_map.h"

#include "core/error_box.h"
#include "core/map_design.h"
#include "core/number_text.h"
#include "dialogs/dialogs_state.h"
#include "dialogs/printing/page_checks.h"
#include "output/output_state.h"
#include "output/print/page_layout.h"
#include "output/print/papers.h"
#include "output/print/printer_params.h"
#include "platform/machine.h"

#include <algorithm>
#include <optional>
#include <utility>
#include <vector>

namespace quelmont {

namespace {

constexpr const char* Explanation =
    "The Print Map option prints the entire area of the screen beneath the Menu Bar.\n\n"
    "Map Height is controlled by Map Width.  The Map Margins are automatically calculated when the Center "
    "Map items are checked.";

void ShowCannotCenter(const char* title, const char* why, const char* remedy) {
    Machine().boxes->Ask(title, std::string(why) + "\n\n" + remedy, BoxButtons::Ok, BoxIcon::Exclamation);
}

std::vector<std::string> NamesOfPapers() {
    std::vector<std::string> names;
    names.reserve(Papers.size());
    for (const Paper& paper : Papers) {
        names.emplace_back(paper.name);
    }
    return names;
}

} // namespace

PrintMap::PrintMap(const Printer& printer_) : PrintMap(&printer_, printer_.Name()) {
    AddControls();
    Form_Load();
}

PrintMap::PrintMap(std::string_view printerName, std::vector<std::string> papers, std::size_t paper)
    : PrintMap(nullptr, printerName) {
    Add({.name = "PaperList",
         .kind = ControlKind::List,
         .caption = "Pap&er",
         .value = static_cast<int>(paper),
         .items = std::move(papers)});
    AddControls();
    Form_Load();
}

PrintMap::PrintMap(const Printer* printer_, std::string_view printerName)
    : PageDialog("PrintMap", "Print Map on " + std::string(printerName)),
      printer(printer_), left{"LeftMap", &Design.PrintLeft}, top{"TopMap", &Design.PrintTop},
      width{"WidthMap", &Design.PrintWidth}, height{"HeightMap", &Design.PrintHeight} {}

void PrintMap::AddControls() {
    Add({.name = "Help", .kind = ControlKind::Label, .text = Explanation});
    AddPageOptions("MapOrientation", "PrintUnits");
    AddLengths();
    AddOkAndCancel([this] { OK_Click(); });
}

void PrintMap::Form_Load() {
    Guarded(ClassName(), [this] {
        SetPrintWidth(Design.PrintWidth); // the window may have other proportions now
        TakePrinter(printer);
    });
    ShowUnit();
}

void PrintMap::AddLengths() {
    const auto addField = [this](const LengthField& field, const char* caption, void (PrintMap::*change)()) {
        AddLength(field.name, caption);
        On(field.name, ControlEvent::Change, [this, change] { (this->*change)(); });
    };
    const auto addCheck = [this](const char* name, const char* text, bool on, void (PrintMap::*click)()) {
        Add({.name = name, .kind = ControlKind::Check, .text = text, .value = on ? 1 : 0});
        On(name, ControlEvent::Click, [this, click] { (this->*click)(); });
    };
    Add({.name = "MapSize", .kind = ControlKind::Frame});
    addField(width, "&Width", &PrintMap::WidthMap_Change);
    addField(height, "&Height", &PrintMap::HeightMap_Change);
    Add({.name = "MapMargins", .kind = ControlKind::Frame});
    addField(left, "&Left", &PrintMap::LeftMap_Change);
    addField(top, "&Top", &PrintMap::TopMap_Change);
    Add({.name = "CenterMap", .kind = ControlKind::Frame, .text = "Center Map"});
    addCheck("HorizontalMap", "Hori&zontally", Design.CenterHorizontal, &PrintMap::HorizontalMap_Click);
    addCheck("VerticalMap", "&Vertically", Design.CenterVertical, &PrintMap::VerticalMap_Click);
}

void PrintMap::Show(LengthField& field) {
    field.exact = *field.length;
    field.written = ShowLength(field.name, field.exact);
}

void PrintMap::ShowLengths() {
    for (LengthField* const field : {&left, &top, &width, &height}) {
        Show(*field);
    }
    Edit(left.name).enabled = !Design.CenterHorizontal;
    Edit(top.name).enabled = !Design.CenterVertical;
}

void PrintMap::ShowUnit() {
    const std::string unit = InCentimetres() ? "(cm)" : "(inch)";
    Edit("MapSize").text = "Map Size " + unit;
    Edit("MapMargins").text = "Map Margins " + unit;
}

float PrintMap::Length(const LengthField& field) const {
    const std::string& text = At(field.name).text;
    return text == field.written ? field.exact : static_cast<float>(ValueOf(text));
}

void PrintMap::TakePrinter(const Printer* newPrinter) {
    printer = newPrinter;
    if (printer == nullptr) {
        OutputNow.page = {};
    } else if (GetPrinterParams(*printer)) {
        CalcPrnLeft();
        CalcPrnTop();
    }
    ShowLengths();
}

void PrintMap::LeftMap_Change() { Design.PrintLeft = Length(left); }
void PrintMap::TopMap_Change() { Design.PrintTop = Length(top); }

// What is being typed need not fit yet: only the margins of a centred map, which are not typed, follow it.
void PrintMap::WidthMap_Change() {
    SetPrintWidth(Length(width));
    Show(height);
    FollowSize();
}

void PrintMap::HeightMap_Change() {
    SetPrintHeight(Length(height));
    Show(width);
    FollowSize();
}

void PrintMap::FollowSize() {
    if (Design.CenterHorizontal) {
        CalcPrnLeft();
        Show(left);
    }
    if (Design.CenterVertical) {
        CalcPrnTop();
        Show(top);
    }
}

void PrintMap::Center(const CenterCheck& check) {
    if (At(check.name).value != 0 && !check.canCenter()) {
        ShowCannotCenter(check.title, check.why, check.remedy);
        Edit(check.name).value = 0;
    }
    *check.centered = At(check.name).value != 0;
    FollowSize();
    Edit(check.margin).enabled = !*check.centered;
}

void PrintMap::HorizontalMap_Click() {
    Center({"HorizontalMap", CanCenterHorizontally, &Design.CenterHorizontal, left.name,
            "Error: Map cannot be centered horizontally",
            "The map cannot be centered horizontally, because the map width is too large.",
            "To center the map horizontally, reduce the map width!"});
}

void PrintMap::VerticalMap_Click() {
    Center({"VerticalMap", CanCenterVertically, &Design.CenterVertical, top.name,
            "Error: Map cannot be centered vertically",
            "The map cannot be centered vertically, because the map height is too large.",
            "To center the map vertically, reduce the map width!"});
}

void PrintMap::TakeUnit(std::int32_t twips) {
    PageDialog::TakeUnit(twips);
    TakePrinter(printer);
    ShowUnit();
}

void PrintMap::TakeOrientation(std::int16_t orientation) {
    PageDialog::TakeOrientation(orientation);
    TakePrinter(printer);
}

void PrintMap::OK_Click() {
    if (printer != nullptr) {
        GetPrinterParams(*printer); // it may have been set up anew meanwhile
    }
    const std::optional<PageRefusal> refusal = CheckPage();
    if (!refusal) {
        CloseAccepted();
        return;
    }
    const char* const field = At(refusal->field).enabled ? refusal->field : width.name;
    Machine().boxes->AskAbout(field, refusal->title, refusal->text, BoxButtons::Ok, BoxIcon::Exclamation);
    SetFocus(field);
}

// ---- A page in a file.

PrintMapOnPdf::PrintMapOnPdf()
    : PrintMap("PDF", NamesOfPapers(), DialogsNow.PdfPaper), paperBefore(DialogsNow.PdfPaper) {
    On("PaperList", ControlEvent::Click, [this] { PaperList_Click(); });
    Guarded(ClassName(), [this] { PaperList_Click(); });
}

void PrintMapOnPdf::PaperList_Click() {
    DialogsNow.PdfPaper = static_cast<std::size_t>(At("PaperList").value);
    const Paper& paper = Papers.at(DialogsNow.PdfPaper);
    std::unique_ptr<Printer> chosen = Machine().printers->Pdf(paper.width, paper.height, "");
    TakePrinter(chosen.get());
    page = std::move(chosen);
}

void PrintMapOnPdf::Cancel_Click() {
    DialogsNow.PdfPaper = paperBefore;
    PageDialog::Cancel_Click();
}

} // namespace quelmont
