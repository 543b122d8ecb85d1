#pragma once

#include "core/map_file_entry.h"
#include "dialogs/design_dialog.h"

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

namespace quelmont {

/// "Add or Edit Digital Map File": the list of map files in the order in which they are drawn, a line
/// to each, and a blank one behind the last.
///
/// Files are added before the line that is selected, several in their order: each opens its
/// InputFileParams, and is passed over when that is cancelled. Afterwards the line behind them is
/// selected, so that the next ones follow. Files that are dropped on a line are added in the same
/// way. A file is moved by buttons, a line at a time, or dragged to before another line; it stays the
/// selected one. The design's list changes at once; Cancel puts back the one that was there at first.
///
/// Reads   MapFileDefault (tells the file dialog where to start).
/// Writes  InputFiles, MapFileCount; MapFileDefault (the file added last); DialogCancelled, which is
///         true unless OK was pressed.
class InputFileChoices : public DesignDialog {
public:
    InputFileChoices();

private:
    void RenumberLines();
    /// Selects a line and enables what can be done with it.
    void Select(std::size_t line);
    void EnableButtons();
    /// The position of the selected file in the list, from 0; none on the blank line.
    std::optional<std::size_t> SelectedFile() const;
    void AddFiles(const std::vector<std::string>& names);
    bool AddFile(const std::string& name, std::size_t position);

    void InputFileAdd_Click();
    void InputFileEdit_Click();
    void InputFileDelete_Click();
    void InputFilesOpen_Drop();
    void InputFilesOpen_Drag();
    /// Moves a file to another position in the list, from 0, and selects it there.
    void MoveFile(std::size_t from, std::size_t to);
    /// Moves the selected file a line up or down.
    void MoveSelected(std::ptrdiff_t by);
    void RestoreAndCancel();

    std::vector<InputFileEntry> filesBefore;
    std::int16_t countBefore;
};

} // namespace quelmont
