#include "dialogs/files/input_file_choices.h"

#include "core/file_names.h"
#include "core/map_design.h"
#include "core/number_text.h"
#include "core/rounding.h"
#include "dialogs/files/input_file_params.h"
#include "mapfiles/feature_rows.h"
#include "mapfiles/map_formats.h"
#include "platform/machine.h"

#include <algorithm>

namespace quelmont {

namespace {

constexpr const char* HelpOfAdd =
    "To add a file to the list: Click on the line where the file is to be added, then press the Add Digital "
    "Map File button.";
constexpr const char* HelpOfEdit =
    "To edit or delete a file from the list: Click on the filename and press the Edit or Delete Digital Map "
    "File button.";
constexpr const char* HelpOfOk = "Press the OK button when you are done adding or editing digital map files.";

constexpr const char* DialogTitle = "Open Digital Map File";

/// Where a line's name begins, behind the position and the blanks.
constexpr std::size_t NameColumn = 5;

std::string LineOf(std::size_t position, std::string_view name) {
    return (FormatNumber(static_cast<double>(position), "00") += "   ") += name;
}

FileDialogAnswer AskForFiles() {
    FileDialogRequest request{.title = DialogTitle,
                              .filter = MapFileFilters(),
                              .filterIndex = FilterOfAllMapFiles,
                              .name = "*.MAP",
                              .several = true};
    if (!Design.MapFileDefault.empty()) {
        ParseFileName(Design.MapFileDefault, request);
    }
    return Machine().fileDialogs->Open(request);
}

} // namespace

InputFileChoices::InputFileChoices()
    : DesignDialog("InputFileChoices", "Add or Edit Digital Map File"), filesBefore(Design.InputFiles),
      countBefore(Design.MapFileCount) {
    Design.DialogCancelled = true;
    Add({.name = "Label1", .kind = ControlKind::Label, .text = HelpOfAdd});
    Add({.name = "Label2", .kind = ControlKind::Label, .text = HelpOfEdit});
    Add({.name = "Label4", .kind = ControlKind::Label, .text = HelpOfOk});
    Add({.name = "Label3", .kind = ControlKind::Label, .text = "Current Digital Map &Files:"});
    Add({.name = "InputFilesOpen", .kind = ControlKind::List, .caption = At("Label3").text});
    Add({.name = "MoveUp", .kind = ControlKind::Button, .text = "Move &Up"});
    Add({.name = "MoveDown", .kind = ControlKind::Button, .text = "Move Do&wn"});
    Add({.name = "InputFileAdd", .kind = ControlKind::Button, .text = "&Add Digital Map File"});
    Add({.name = "InputFileEdit", .kind = ControlKind::Button, .text = "&Edit Digital Map File"});
    Add({.name = "InputFileDelete", .kind = ControlKind::Button, .text = "&Delete Digital Map File"});
    On("InputFilesOpen", ControlEvent::Click, [this] { EnableButtons(); });
    On("InputFilesOpen", ControlEvent::DoubleClick, [this] { InputFileEdit_Click(); });
    On("InputFilesOpen", ControlEvent::Drop, [this] { InputFilesOpen_Drop(); });
    On("InputFilesOpen", ControlEvent::Drag, [this] { InputFilesOpen_Drag(); });
    On("InputFilesOpen", ControlEvent::Delete, [this] { InputFileDelete_Click(); });
    On("MoveUp", ControlEvent::Click, [this] { MoveSelected(-1); });
    On("MoveDown", ControlEvent::Click, [this] { MoveSelected(1); });
    On("InputFileAdd", ControlEvent::Click, [this] { InputFileAdd_Click(); });
    On("InputFileEdit", ControlEvent::Click, [this] { InputFileEdit_Click(); });
    On("InputFileDelete", ControlEvent::Click, [this] { InputFileDelete_Click(); });
    AddOkAndCancel([this] { CloseAccepted(); });
    On("Cancel", ControlEvent::Click, [this] { RestoreAndCancel(); });
    RenumberLines();
    Select(Design.InputFiles.size());
}

void InputFileChoices::RenumberLines() {
    std::vector<std::string>& lines = Edit("InputFilesOpen").items;
    lines.clear();
    for (const InputFileEntry& file : Design.InputFiles) {
        lines.push_back(LineOf(lines.size() + 1, file.MapFileName));
    }
    lines.emplace_back();
}

void InputFileChoices::Select(std::size_t line) {
    Edit("InputFilesOpen").value = static_cast<int>(line);
    EnableButtons();
}

void InputFileChoices::EnableButtons() {
    const std::optional<std::size_t> file = SelectedFile();
    Edit("InputFileEdit").enabled = file.has_value();
    Edit("InputFileDelete").enabled = file.has_value();
    Edit("MoveUp").enabled = file && *file > 0;
    Edit("MoveDown").enabled = file && *file + 1 < Design.InputFiles.size();
}

std::optional<std::size_t> InputFileChoices::SelectedFile() const {
    const auto line = static_cast<std::size_t>(At("InputFilesOpen").value);
    return line < Design.InputFiles.size() ? std::optional(line) : std::nullopt;
}

void InputFileChoices::InputFileAdd_Click() {
    SetFocus("InputFilesOpen");
    const FileDialogAnswer answer = AskForFiles();
    if (answer.error == 0) {
        AddFiles(answer.names);
    } else if (answer.error != FileDialogCancelled) {
        Machine().boxes->Ask("File Common Dialog Error",
                             "Error " + std::to_string(answer.error) + " in " + DialogTitle, BoxButtons::Ok,
                             BoxIcon::Exclamation);
    }
}

void InputFileChoices::InputFilesOpen_Drop() { AddFiles(At("InputFilesOpen").dropped); }

void InputFileChoices::InputFilesOpen_Drag() {
    const auto from = static_cast<std::size_t>(At("InputFilesOpen").dragged);
    const auto before = static_cast<std::size_t>(At("InputFilesOpen").value);
    if (from < Design.InputFiles.size()) {
        MoveFile(from, before > from ? before - 1 : before);
    } else {
        Select(from); // the blank line stays the last one
    }
}

void InputFileChoices::MoveSelected(std::ptrdiff_t by) {
    SetFocus("InputFilesOpen");
    if (const std::optional<std::size_t> file = SelectedFile()) {
        MoveFile(*file, *file + static_cast<std::size_t>(by));
    }
}

void InputFileChoices::MoveFile(std::size_t from, std::size_t to) {
    const auto first = Design.InputFiles.begin() + static_cast<std::ptrdiff_t>(from);
    const auto last = Design.InputFiles.begin() + static_cast<std::ptrdiff_t>(to);
    if (from < to) {
        std::rotate(first, first + 1, last + 1);
    } else {
        std::rotate(last, first, first + 1);
    }
    RenumberLines();
    Select(to);
}

void InputFileChoices::AddFiles(const std::vector<std::string>& names) {
    auto position = static_cast<std::size_t>(At("InputFilesOpen").value);
    for (const std::string& name : names) {
        // A file that fails does not keep the others from being added.
        Handle([&] {
            if (AddFile(name, position)) {
                ++position;
            }
        });
    }
    RenumberLines();
    Select(position);
}

bool InputFileChoices::AddFile(const std::string& name, std::size_t position) {
    InputFileEntry entry = NewMapFileEntry(name);
    InputFileParams parameters(name, entry, MapFileMode::Add);
    Machine().forms->Show(parameters);
    if (Design.DialogCancelled) {
        return false;
    }
    const std::int16_t count = RoundToInt16(static_cast<double>(Design.InputFiles.size()) + 1.0);
    Design.InputFiles.insert(Design.InputFiles.begin() + static_cast<std::ptrdiff_t>(position),
                             std::move(entry));
    Design.MapFileCount = count;
    Design.MapFileDefault = name;
    return true;
}

void InputFileChoices::InputFileEdit_Click() {
    const std::optional<std::size_t> file = SelectedFile();
    if (!file) {
        return;
    }
    SetFocus("InputFilesOpen");
    const std::string name = At("InputFilesOpen").items[*file].substr(NameColumn);
    InputFileParams parameters(name, Design.InputFiles[*file], MapFileMode::Edit);
    Machine().forms->Show(parameters);
}

void InputFileChoices::InputFileDelete_Click() {
    const std::optional<std::size_t> file = SelectedFile();
    if (!file) {
        return;
    }
    SetFocus("InputFilesOpen");
    const std::string title = ParseFileName(Design.InputFiles[*file].MapFileName).title;
    if (Machine().boxes->Ask("Delete Digital Map File from List",
                             "File: " + title + "\n\nRemove file from the list of digital map files?",
                             BoxButtons::YesNo, BoxIcon::Exclamation) != BoxAnswer::Yes) {
        return;
    }
    Design.InputFiles.erase(Design.InputFiles.begin() + static_cast<std::ptrdiff_t>(*file));
    Design.MapFileCount = RoundToInt16(static_cast<double>(Design.InputFiles.size()));
    RenumberLines();
    Select(*file);
}

void InputFileChoices::RestoreAndCancel() {
    Design.InputFiles = filesBefore;
    Design.MapFileCount = countBefore;
    Cancel_Click();
}

} // namespace quelmont
