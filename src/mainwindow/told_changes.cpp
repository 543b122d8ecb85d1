#include "mainwindow/told_changes.h"

#include "core/run_time_error.h"
#include "designfile/cnf_save.h"
#include "mainwindow/kept_choices.h"
#include "mainwindow/main_window_state.h"
#include "platform/machine.h"

#include <algorithm>
#include <string>

namespace quelmont {

std::string DesignTextNow() {
    try {
        return ComparableDesignText();
    } catch (const RunTimeError&) {
        return {};
    }
}

namespace {

/// What is compared to find a change: the design, and the choices beside it that its picture depends on.
std::string MapTextNow() { return DesignTextNow() + DrawnChoices(); }

} // namespace

void TellChange(std::string_view name, ChangeKind kind) {
    if (Machine().changes == nullptr) {
        return;
    }
    std::string now = MapTextNow();
    if (now == MainWindowNow.ToldDesign) {
        return;
    }
    MainWindowNow.ToldDesign = std::move(now);
    std::string plain(name);
    std::erase(plain, '&');
    Machine().changes->Accepted(plain, kind);
}

void NoteDesign() {
    if (Machine().changes != nullptr) {
        MainWindowNow.ToldDesign = MapTextNow();
        Machine().changes->Noted();
    }
}

void TellRecall() {
    if (Machine().changes != nullptr) {
        Machine().changes->Recalled();
    }
}

} // namespace quelmont
