#pragma once

#include <string>
#include <vector>

namespace quelmont {

/// What a file dialog is to show. Names are UTF-8.
struct FileDialogRequest {
    std::string title = {};
    /// Names and patterns alternately: "WDB1 (.dat)|*.dat|WDB2 (.pkv, .pkd)|*.pkv;*.pkd".
    std::string filter = {};
    int filterIndex = 1;     ///< of the pair that is in force at first, from 1
    std::string name = {};   ///< proposed, without a folder; a pattern proposes none
    std::string folder = {}; ///< where it starts; empty: where the last one was
    bool several = false;    ///< more than one file can be chosen
    /// Of a file to save whose name was given without one, "txt"; "rtf|txt" where each filter has its own.
    std::string extension = {};
    /// The dialog asks before it takes the name of a file that is there, with its extension.
    bool asksToReplace = true;
};

/// The error of a file dialog that was cancelled.
constexpr int FileDialogCancelled = 32755;

struct FileDialogAnswer {
    int error = 0;                       ///< 0, FileDialogCancelled, or another error number
    std::vector<std::string> names = {}; ///< full names in their order; none after an error, else one or more
    int filterIndex = 1;                 ///< of the filter that was in force when a file to save was named
};

/// The dialogs in which a person chooses files.
class FileDialogs {
public:
    virtual ~FileDialogs() = default;
    /// Asks for files that are there. A file's ending may match a pattern in any case of its letters.
    virtual FileDialogAnswer Open(const FileDialogRequest& request) = 0;
    /// Asks for the name of a file to write, which may be there already.
    virtual FileDialogAnswer Save(const FileDialogRequest& request) = 0;
};

} // namespace quelmont
