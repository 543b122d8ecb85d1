#include "view/undo.h"

#include "annotation/text_picture.h"
#include "core/run_time_error.h"
#include "designfile/cnf_save.h"
#include "mainwindow/commands.h"
#include "mainwindow/drawn_picture.h"
#include "mainwindow/kept_choices.h"
#include "mainwindow/main_menu.h"
#include "mainwindow/main_window_state.h"
#include "mainwindow/projection_menu.h"
#include "mainwindow/told_changes.h"
#include "platform/machine.h"
#include "projection/projection_table.h"
#include "view/redraw.h"

#include <utility>

namespace quelmont {

namespace {

/// The design to compare by; empty for one that no file can hold.
std::string TextNow() {
    try {
        return DesignTextWithoutNames() + MapChoices();
    } catch (const RunTimeError&) {
        return {};
    }
}

template <auto... Fields>
void TakeFields(const MapDesign& from) {
    ((Design.*Fields = from.*Fields), ...);
}

/// What a design is, and what its map has besides: no state of a draw, of the screen or of the program.
void PutBack(const MapDesign& from) {
    using D = MapDesign;
    static_cast<DesignBounds&>(Design) = from;
    TakeFields<&D::ProjNum, &D::ProjName, &D::ProjGridSet, &D::ProjMenuLast, &D::ProjNumPrev>(from);
    TakeFields<&D::XAxisLength, &D::AsciiScale, &D::MapReduce>(from);
    TakeFields<&D::AsciiFileName, &D::GridOutputCount, &D::BmpFileName, &D::CgmFileName, &D::DxfFileName,
               &D::WmfFileName, &D::GcFileName, &D::ScFileName>(from);
    TakeFields<&D::LineWidthsScaled, &D::MaxChainPoints, &D::TextScalePercent>(from);
    TakeFields<&D::BackColorIndex, &D::BackColor, &D::GridColorIndex, &D::GridColor, &D::GridLineWidth,
               &D::GridTypeCode, &D::GridTypeText>(from);
    TakeFields<&D::GcColorIndex, &D::ScColorIndex, &D::GcColor, &D::ScColor, &D::GcLineWidth, &D::ScLineWidth,
               &D::GcText, &D::GcStartLat, &D::GcStartLon, &D::GcEndLat, &D::GcEndLon, &D::GcDefined,
               &D::GcTable, &D::ScText, &D::ScCenterLat, &D::ScCenterLon, &D::ScRadiusDeg, &D::ScSymbolCount,
               &D::ScDefined, &D::ScTable>(from);
    TakeFields<&D::TextItems, &D::Fonts, &D::InputFiles, &D::MapFileCount, &D::MapFeatureMax,
               &D::LabelsVisible, &D::GridLabels, &D::Frame, &D::Fill, &D::Distortion>(from);
    TakeFields<&D::PrintUnitTwips, &D::PrintLeft, &D::PrintTop, &D::PrintWidth, &D::PrintHeight,
               &D::CenterHorizontal, &D::CenterVertical, &D::ReportLeft, &D::ReportRight, &D::ReportTop,
               &D::ReportBottom, &D::PrinterOrientation>(from);
}

/// The fit to the window, as a recall left it. After any other change it is that of the picture, which draws
/// after the change may have altered and which another draw works out anew.
void PutBackFit(const MapDesign& from) {
    using D = MapDesign;
    TakeFields<&D::LogicalWidth, &D::LogicalHeight, &D::LogicalOriginX, &D::LogicalOriginY, &D::LogicalScale,
               &D::ClientWidth, &D::ClientHeight, &D::ScreenOriginX, &D::ScreenOriginY, &D::ScreenScaleX,
               &D::ScreenScaleY>(from);
}

/// The picture shows the design again: texts alone are put on it anew, anything else is drawn. Without a
/// picture none is made, unless the design was another one.
void ShowDesign(bool recall) {
    const auto& picture = MainWindowNow.Picture;
    if (picture && picture->design == DrawnDesign()) {
        ShowTexts();
    } else if ((picture || recall) && Design.BoundsProjNum == Design.ProjNum) {
        RedrawByItself();
    }
}

std::string ItemText(const char* item, const std::string& name) {
    return name.empty() ? item : std::string(item) + " " + name;
}

} // namespace

UndoSteps::VersionPointer UndoSteps::Present() {
    auto version = std::make_shared<Version>();
    version->design = Design;
    version->design.MapLabels.clear(); // of the draw
    version->hasFile = MainWindowNow.DesignHasFile;
    version->savedDesign = MainWindowNow.SavedDesign;
    version->text = TextNow();
    return version;
}

void UndoSteps::Noted() {
    now = Present();
    ShowItems();
}

void UndoSteps::Add(std::string name, bool recall) {
    const VersionPointer before = std::exchange(now, Present());
    if (before != nullptr && (recall || before->text != now->text)) {
        undo.push_back({std::move(name), before, recall});
        redo.clear();
    }
    if (undo.size() > Most) {
        undo.pop_front();
    }
    ShowItems();
}

void UndoSteps::Accepted(std::string_view name) {
    std::string plain(name);
    if (plain.ends_with("...")) {
        plain.resize(plain.size() - 3);
    }
    Add(std::move(plain), false);
}

void UndoSteps::Recalled() { Add("Recall Map Design", true); }

bool UndoSteps::Go(std::deque<Step>& from, std::deque<Step>& to) {
    if (from.empty() || IsPlotting() || Design.TextPending) {
        return false;
    }
    const Step step = std::move(from.back());
    from.pop_back();
    to.push_back({step.name, now, step.recall});
    now = step.version;
    PutBack(now->design);
    if (step.recall) {
        PutBackFit(now->design);
        Design.CnfFileName = now->design.CnfFileName;
        MainWindowNow.DesignHasFile = now->hasFile;
        MainWindowNow.SavedDesign = now->savedDesign;
    }
    NoteDesign();
    MarkProjection(Design.ProjNum);
    Machine().window->SetCaption(PropertiesOf(Design.ProjNum).caption);
    ToggleCaption();
    ShowDesign(step.recall);
    ShowItems();
    return true;
}

bool UndoSteps::Undo() { return Go(undo, redo); }

bool UndoSteps::Redo() { return Go(redo, undo); }

void UndoSteps::ShowItems() const {
    MainWindow& window = *Machine().window;
    window.SetMenuText(Menu::mnuEdit, UndoItem, ItemText("&Undo", undo.empty() ? "" : undo.back().name));
    window.SetMenuText(Menu::mnuEdit, RedoItem, ItemText("&Redo", redo.empty() ? "" : redo.back().name));
    window.SetMenuEnabled(Menu::mnuEdit, UndoItem, !undo.empty());
    window.SetMenuEnabled(Menu::mnuEdit, RedoItem, !redo.empty());
}

} // namespace quelmont
