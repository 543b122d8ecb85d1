#include "mainwindow/kept_design.h"

#include "core/map_design.h"
#include "core/run_time_error.h"
#include "core/unseen_boxes.h"
#include "designfile/cnf_save.h"
#include "dialogs/bounds/accept_bounds.h"
#include "mainwindow/design_commands.h"
#include "mainwindow/kept_file.h"
#include "mainwindow/main_window_state.h"
#include "mainwindow/settings.h"
#include "platform/machine.h"
#include "projection/projection_table.h"

#include <array>
#include <ctime>
#include <filesystem>
#include <string>

#include <sys/stat.h>

namespace quelmont {

namespace {

/// Puts the projection and its bounds back as they were.
class BoundsAsTheyAre {
public:
    BoundsAsTheyAre() = default;
    ~BoundsAsTheyAre() {
        static_cast<DesignBounds&>(Design) = bounds;
        Design.ProjNum = projNum;
        Design.ProjName = projName;
        Design.ProjGridSet = gridSet;
    }
    BoundsAsTheyAre(const BoundsAsTheyAre&) = delete;
    BoundsAsTheyAre& operator=(const BoundsAsTheyAre&) = delete;

private:
    DesignBounds bounds = Design;
    std::int16_t projNum = Design.ProjNum;
    std::string projName = Design.ProjName;
    decltype(Design.ProjGridSet) gridSet = Design.ProjGridSet;
};

/// A projection whose dialog was cancelled has no numbers of its own. They are computed for the file, or,
/// where it refuses the bounds, the file has the projection before.
std::string KeptText() {
    const BoundsAsTheyAre restored;
    if (Design.BoundsProjNum != Design.ProjNum) {
        const UnseenBoxes unseen;
        if (!AcceptProjection() && FindProjection(Design.BoundsProjNum) != nullptr) {
            Design.ProjNum = Design.BoundsProjNum;
            Design.ProjName = FindProjection(Design.ProjNum)->ProjName;
        }
    }
    return DesignFileText();
}

/// "2026-01-31 14:05", local time.
std::string TimeOf(const std::string& file) {
    struct stat facts = {};
    std::tm time = {};
    std::array<char, 20> text = {};
    if (stat(file.c_str(), &facts) != 0 || localtime_r(&facts.st_mtime, &time) == nullptr) {
        return "an unknown time";
    }
    return {text.data(), std::strftime(text.data(), text.size(), "%Y-%m-%d %H:%M", &time)};
}

} // namespace

void KeepDesign() {
    try {
        if (!MainWindowNow.Kept) {
            MainWindowNow.Kept = KeptFile::New(SettingsFileFolder());
        }
        if (MainWindowNow.Kept) {
            WriteDesignFile(MainWindowNow.Kept->Name(), KeptText());
        }
    } catch (const RunTimeError&) {
        // A message box after each change would help nobody.
    }
}

void ForgetKeptDesign() {
    if (MainWindowNow.Kept) {
        MainWindowNow.Kept->Remove();
        MainWindowNow.Kept.reset();
    }
}

void OfferKeptDesigns() {
    for (KeptFile& kept : KeptFile::Orphans(SettingsFileFolder())) {
        const BoxAnswer answer = Machine().boxes->Ask(
            "Recall Map Design",
            "The map design of " + TimeOf(kept.Name()) + " was not saved\nwhen Quelmont ended.\n\nRecall it?",
            BoxButtons::RecallDiscard, BoxIcon::Exclamation);
        if (answer == BoxAnswer::Recall) {
            if (RecallKeptDesign(kept.Name())) {
                KeepDesign();
                kept.Remove();
            }
            return;
        }
        if (answer == BoxAnswer::Discard) {
            kept.Remove();
        }
    }
}

} // namespace quelmont
