#include "mainwindow/design_commands.h"

#include "core/file_names.h"
#include "core/map_design.h"
#include "designfile/cnf_read.h"
#include "designfile/cnf_save.h"
#include "dialogs/file_questions.h"
#include "mainwindow/commands.h"
#include "mainwindow/drawn_picture.h"
#include "mainwindow/kept_design.h"
#include "mainwindow/main_menu.h"
#include "mainwindow/main_window_state.h"
#include "mainwindow/projection_menu.h"
#include "mainwindow/settings.h"
#include "mainwindow/told_changes.h"
#include "platform/machine.h"

#include <algorithm>
#include <filesystem>
#include <vector>

namespace quelmont {

namespace {

constexpr const char* Filter = "Configuration (*.cnf)|*.cnf";
constexpr const char* Extension = "cnf";

bool EndsInCnf(const std::string& name) { return Capitals(name).ends_with(".CNF"); }

bool HasDesignEnding(const std::string& name) {
    if (EndsInCnf(name)) {
        return true;
    }
    Machine().boxes->Ask("File Extension Error", "File extension must be CNF", BoxButtons::Ok,
                         BoxIcon::Exclamation);
    return false;
}

std::string FullName(const std::string& name) {
    std::error_code failure;
    const std::filesystem::path full = std::filesystem::absolute(name, failure);
    return failure ? name : full.lexically_normal().string();
}

/// The design has a file, and is what that file holds.
void NoteFile() {
    MainWindowNow.DesignHasFile = true;
    MainWindowNow.SavedDesign = DesignTextNow();
    AddRecentDesign(FullName(Design.CnfFileName));
    ShowRecentDesigns();
    ForgetKeptDesign();
    NoteDesign();
}

bool HasUnsavedChanges() {
    return MainWindowNow.DesignHasFile && DesignTextNow() != MainWindowNow.SavedDesign;
}

/// What the window has to do with a design that was recalled.
void ShowRecalled() {
    Design.ProjGridSet[static_cast<std::size_t>(Design.ProjNum)] = true;
    MarkProjection(Design.ProjNum);
    MainWindow& window = *Machine().window;
    if (!window.CopyPixels().pixels.empty()) {
        window.Cls(); // the picture is that of another design
    }
    ForgetPicture();
    ToggleCaption();
}

bool Recall(const std::string& name) {
    const std::string before = Design.CnfFileName;
    Design.CnfFileName = name;
    if (!CnfRead()) {
        Design.CnfFileName = before;
        return false;
    }
    ShowRecalled();
    MainWindowNow.DesignHasFile = true;
    MainWindowNow.SavedDesign = DesignTextNow();
    TellRecall();
    NoteFile();
    return true;
}

} // namespace

bool SaveDesign() {
    if (!CnfSave()) {
        return false;
    }
    NoteFile();
    return true;
}

bool RecallKeptDesign(const std::string& file) {
    if (!ReadDesignFile(file)) {
        return false;
    }
    ShowRecalled();
    MainWindowNow.DesignHasFile = !Design.CnfFileName.empty();
    MainWindowNow.SavedDesign.clear();
    TellRecall();
    return true;
}

bool MayLeaveDesign() {
    if (!HasUnsavedChanges()) {
        return true;
    }
    const std::string title = ParseFileName(Design.CnfFileName).title;
    const BoxAnswer answer = Machine().boxes->Ask(
        "Save Map Design", "The map design " + title + " has changed.\n\nSave the changes?",
        BoxButtons::SaveDiscardCancel, BoxIcon::Exclamation);
    return answer == BoxAnswer::Discard || (answer == BoxAnswer::Save && SaveDesign());
}

bool OpenDesign(const std::string& name) {
    return HasDesignEnding(name) && MayLeaveDesign() && Recall(FullName(name));
}

void RecallDesign(int /*index*/) {
    for (;;) {
        FileDialogRequest request{.title = "Recall Map Design", .filter = Filter, .extension = Extension};
        ParseFileName(Design.CnfFileName, request);
        const FileDialogAnswer answer = Machine().fileDialogs->Open(request);
        if (answer.error != 0) {
            ShowFileDialogError(answer.error, " in Recall Map Design");
            return;
        }
        if (HasDesignEnding(answer.names.front())) {
            if (MayLeaveDesign()) {
                Recall(answer.names.front());
            }
            return;
        }
    }
}

void RecallRecentDesign(int index) {
    const std::vector<std::string> names = RecentDesigns();
    if (index >= 0 && static_cast<std::size_t>(index) < names.size()) {
        OpenDesign(names[static_cast<std::size_t>(index)]);
    }
}

void ShowRecentDesigns() {
    constexpr std::size_t longestName = 64;
    const auto fits = [](std::string_view name) { return name.size() <= longestName; };
    const std::vector<std::string> names = RecentDesigns();
    MainWindow& window = *Machine().window;
    for (std::size_t i = 0; i < RecentDesignsMost; ++i) {
        std::string text;
        if (i < names.size()) {
            text = "&" + std::to_string(i + 1) + " ";
            for (const char c : ElidedName(names[i], fits)) {
                text += c == '&' ? "&&" : std::string(1, c);
            }
        }
        window.SetMenuText(Menu::mnuRecent, static_cast<int>(i), text);
    }
    window.SetMenuEnabled(Menu::mnuInput, RecentDesignsItem, !names.empty());
}

} // namespace quelmont
