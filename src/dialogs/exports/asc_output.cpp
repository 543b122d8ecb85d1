#include "dialogs/exports/asc_output.h"

#include "core/file_names.h"
#include "core/map_design.h"
#include "core/number_text.h"
#include "core/replaced_file.h"
#include "platform/machine.h"

#include <algorithm>
#include <filesystem>
#include <system_error>
#include <unordered_set>

namespace quelmont {

namespace {

constexpr std::size_t Columns = 3;
constexpr std::size_t NameColumn = 2;

constexpr const char* Explanation =
    "To export map data in ASCII format, you must enter an Output ASCII Filename for each item listed in the "
    "Input Filename column.\n\nTo enter a filename, click (or press the Space Bar) on a cell in the column "
    "labeled Output ASCII Filename.";

/// What the grid writes: grid type 1 both its points and its boundary.
std::vector<std::string> GridRows() {
    if (Design.GridOutputCount == 0) {
        return {};
    }
    switch (Design.GridTypeCode) {
    case 1:
        return {" Grid points", " Grid lines"};
    case 3:
        return {" Grid lines"};
    case 4:
        return {" Grid points"};
    default:
        return {" Grid"};
    }
}

std::string TitleOf(const std::string& name) { return ParseFileName(name).title; }

/// A title without its ending; the point stays.
std::string StartName(const std::string& input) {
    const std::string title = TitleOf(input.front() == ' ' ? input.substr(1) : input);
    const std::size_t point = title.rfind('.');
    return point == std::string::npos ? title + "." : title.substr(0, point + 1);
}

} // namespace

AscOutput::AscOutput() : DesignDialog("AscOutput", "Save As ASCII File") {
    Design.DialogCancelled = true;
    Form_Load();
}

void AscOutput::Form_Load() {
    Design.OutputAscii = false;
    inputs = GridRows();
    for (const InputFileEntry& file : Design.InputFiles) {
        inputs.push_back(file.MapFileName);
    }
    if (inputs.empty()) {
        Machine().boxes->Ask("ASCII Output File Information",
                             "There are no ASCII output files, because there is no grid and there are no "
                             "input map files!",
                             BoxButtons::Ok, BoxIcon::Information);
        Close();
        return;
    }
    names = Design.AsciiFileName;
    names.resize(inputs.size());
    Add({.name = "Help", .kind = ControlKind::Label, .text = Explanation});
    Add({.name = "AscGrid",
         .kind = ControlKind::Grid,
         .caption = "&Files",
         .value = static_cast<int>(NameColumn),
         .items = {" #", " Input Filename", " Output ASCII Filename"},
         .columns = static_cast<int>(Columns),
         .cells = std::vector<GridCell>(inputs.size() * Columns)});
    std::vector<GridCell>& cells = Edit("AscGrid").cells;
    for (std::size_t row = 0; row < inputs.size(); ++row) {
        cells[row * Columns].text = FormatNumber(static_cast<double>(row + 1), " 00");
        cells[row * Columns + 1].text = inputs[row].front() == ' ' ? inputs[row] : " " + TitleOf(inputs[row]);
        ShowName(row);
    }
    On("AscGrid", ControlEvent::Click, [this] { AscGrid_Click(); });
    AddOkAndCancel([this] { OK_Click(); });
}

void AscOutput::ShowName(std::size_t row) {
    GridCell& cell = Edit("AscGrid").cells[row * Columns + NameColumn];
    cell.text = names[row].empty() ? "" : " " + TitleOf(names[row]);
    cell.words = names[row].empty() ? "no name for" + inputs[row] : names[row];
}

void AscOutput::AscGrid_Click() {
    const auto cell = static_cast<std::size_t>(At("AscGrid").value);
    if (cell % Columns != NameColumn) {
        return;
    }
    const std::size_t row = cell / Columns;
    FileDialogRequest request{.title = "Save As ASCII File",
                              .filter = "Text Files (*.txt)|*.txt",
                              .name = StartName(inputs[row]),
                              .extension = "txt",
                              .asksToReplace = false};
    if (!names[row].empty()) {
        ParseFileName(names[row], request);
    }
    const FileDialogAnswer answer = Machine().fileDialogs->Save(request);
    if (answer.error == 0) {
        std::string_view name = answer.names.front();
        if (name.ends_with('.')) {
            name.remove_suffix(1); // the point that the dialog proposed
        }
        names[row] = WithExtension(name, request.extension);
        ShowName(row);
    }
}

bool AscOutput::NamesAreComplete() const {
    if (std::none_of(names.begin(), names.end(), [](const std::string& name) { return name.empty(); })) {
        return true;
    }
    Machine().boxes->Ask("Error: Null Filename",
                         "There must be an output filename\nfor each grid and input file!", BoxButtons::Ok,
                         BoxIcon::Exclamation);
    return false;
}

bool AscOutput::ReplacementsAllowed() const {
    return std::all_of(names.begin(), names.end(), [](const std::string& name) {
        std::error_code ignored;
        return !std::filesystem::exists(name, ignored) ||
               Machine().boxes->Ask("Save As ASCII File", "This file already exists.\nReplace existing file?",
                                    BoxButtons::YesNo, BoxIcon::Exclamation) == BoxAnswer::Yes;
    });
}

bool AscOutput::NamesDiffer() const {
    std::unordered_set<std::string> files;
    if (std::all_of(names.begin(), names.end(),
                    [&](const std::string& name) { return files.insert(FileIdentity(name)).second; })) {
        return true;
    }
    Machine().boxes->Ask("Error: Duplicate Filename", "The output files must have\ndifferent filenames.",
                         BoxButtons::Ok, BoxIcon::Exclamation);
    return false;
}

void AscOutput::OK_Click() {
    if (NamesAreComplete() && ReplacementsAllowed() && NamesDiffer()) {
        Design.AsciiFileName = names;
        Design.OutputAscii = true;
        CloseAccepted();
    }
}

} // namespace quelmont
