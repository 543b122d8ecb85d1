#include "mainwindow/save_map.h"

#include "circles/save_circles.h"
#include "core/error_box.h"
#include "core/file_names.h"
#include "core/map_design.h"
#include "dialogs/exports/asc_output.h"
#include "dialogs/file_questions.h"
#include "mainwindow/commands.h"
#include "mainwindow/design_commands.h"
#include "mainwindow/main_menu.h"
#include "mainwindow/main_window_state.h"
#include "mainwindow/map_draw.h"
#include "mainwindow/map_picture.h"
#include "mainwindow/print_commands.h"
#include "mainwindow/ready_to_draw.h"
#include "output/bmp/bmp_file.h"
#include "platform/machine.h"

#include <algorithm>
#include <array>
#include <optional>
#include <string>

namespace quelmont {

namespace {

template <std::string MapDesign::*Name>
std::string& NameIn() {
    return Design.*Name;
}

std::string& PdfName() { return MainWindowNow.PdfFileName; }

/// What the file dialog of an item shows, and what becomes of the name.
struct SaveItem {
    int index;
    const char* title;
    const char* filter;
    const char* extension;
    std::string& (*name)();
    const char* failure; ///< end of the message of a failed file dialog
    void (*save)();
    bool draws;              ///< the map, so that it has to be ready
    bool (*ask)() = nullptr; ///< what is asked before the name; false after Cancel
};

void SaveBmpPicture() {
    Machine().window->Refresh();
    BmpSave();
}

void SavePngPicture() {
    Machine().window->Refresh();
    PngSave();
}

void DrawCgm() {
    Design.OutputCgm = true;
    MapDraw();
}

void DrawDxf() {
    Design.OutputDxf = true;
    MapDraw();
}

void DrawWmf() {
    Design.OutputWmf = true;
    MapDraw();
}

void DrawSvg() {
    Design.OutputSvg = true;
    MapDraw();
}

void SaveGreatCircle() {
    Design.OutputGc = true;
    GcSave();
}

void SaveSmallCircle() {
    Design.OutputSc = true;
    ScSave();
}

// clang-format off
constexpr std::array SaveItems = std::to_array<SaveItem>({
    {SaveBmpItem, "Save Map As BMP File", "BMP Files (*.bmp)|*.bmp", "bmp", NameIn<&MapDesign::BmpFileName>, " in Save as BMP", SaveBmpPicture, false},
    {SaveCgmItem, "Save Map As CGM File", "CGM Files (*.cgm)|*.cgm", "cgm", NameIn<&MapDesign::CgmFileName>, " in Save as CGM", DrawCgm, true},
    {SaveDxfItem, "Save Map As DXF File", "DXF Files (*.dxf)|*.dxf", "dxf", NameIn<&MapDesign::DxfFileName>, " in Save as DXF", DrawDxf, true},
    {SaveWmfItem, "Save Map As WMF File", "WMF Files (*.wmf)|*.wmf", "wmf", NameIn<&MapDesign::WmfFileName>, " in Save as WMF", DrawWmf, true},
    {SavePngItem, "Save Map As PNG File", "PNG Files (*.png)|*.png", "png", NameIn<&MapDesign::PngFileName>, " in Save as PNG", SavePngPicture, false},
    {SaveSvgItem, "Save Map As SVG File", "SVG Files (*.svg)|*.svg", "svg", NameIn<&MapDesign::SvgFileName>, " in Save as SVG", DrawSvg, true},
    {SavePdfItem, "Save Map As PDF File", "PDF Files (*.pdf)|*.pdf", "pdf", PdfName, " in Save as PDF", PrintPdf, true, AskPdfPage},
    {SaveGreatCircleItem, "Save Great Circle As ASCII File", "PRN Files (*.prn)|*.prn", "prn", NameIn<&MapDesign::GcFileName>, " in Save Great Circle", SaveGreatCircle, false},
    {SaveSmallCircleItem, "Save Small Circle As ASCII File", "PRN Files (*.prn)|*.prn", "prn", NameIn<&MapDesign::ScFileName>, " in Save Small Circle", SaveSmallCircle, false},
    {SaveDesignItem, "Save Map Design", "Configuration (*.cnf)|*.cnf", "cnf", NameIn<&MapDesign::CnfFileName>, " in Save Map Design", [] { SaveDesign(); }, true},
});
// clang-format on

/// The name that a person gives, with its extension; nothing after Cancel and after a failure.
std::optional<std::string> AskForName(const SaveItem& item) {
    FileDialogRequest request{.title = item.title, .filter = item.filter, .extension = item.extension};
    ParseFileName(item.name(), request);
    const FileDialogAnswer answer = Machine().fileDialogs->Save(request);
    if (answer.error == 0) {
        return WithExtension(answer.names.front(), item.extension);
    }
    ShowFileDialogError(answer.error, item.failure);
    return std::nullopt;
}

void SaveAsAscii() {
    AscOutput dialog;
    if (!dialog.Closed()) {
        Machine().forms->Show(dialog);
    }
    if (Design.OutputAscii) {
        Machine().window->Cls();
        MapDraw();
    }
}

} // namespace

void SaveMapAs(int Index) {
    if (Index == SaveAsciiItem) {
        if (ReadyToDraw()) {
            SaveAsAscii();
        }
        return;
    }
    const auto* const item = std::find_if(SaveItems.begin(), SaveItems.end(),
                                          [&](const SaveItem& entry) { return entry.index == Index; });
    if (item == SaveItems.end() || (item->draws && !ReadyToDraw())) {
        return;
    }
    if (item->ask != nullptr && !item->ask()) {
        return;
    }
    if (const std::optional<std::string> name = AskForName(*item)) {
        item->name() = *name;
        item->save();
    }
}

void SaveDesignAgain(int Index) {
    if (!MainWindowNow.DesignHasFile || Design.CnfFileName.empty()) {
        ClickMenuItem(Menu::mnuInput, Index);
        return;
    }
    MarkMenuItem(Menu::mnuInput, Index);
    Guarded("mnuInput_Click", [] {
        if (ReadyToDraw()) {
            SaveDesign();
        }
    });
}

} // namespace quelmont
