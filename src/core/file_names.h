#pragma once

#include "platform/file_dialogs.h"

#include <functional>
#include <string>
#include <string_view>

/// Names of files. "\", "/" and ":" end a folder's name.

namespace quelmont {

/// The last three characters of a name in capitals, which tell its format: "MAP". A shorter name
/// as a whole. Only the letters a to z change.
std::string LastThreeLetters(std::string_view name);

/// A text with its letters a to z in capitals.
std::string Capitals(std::string_view text);

/// A name of a file to save: unless it ends in the extension, in any case of its letters, "." and the
/// extension are put behind it.
std::string WithExtension(std::string_view name, std::string_view extension);

/// The extension that a file dialog has for one of its filters, counted from 1: its only one, or the one of
/// that place in "rtf|txt".
std::string ExtensionOf(const FileDialogRequest& request, int filterIndex);

struct FileNameParts {
    std::string folder; ///< without the separator at its end, but "/" for the root; may be empty
    std::string title;  ///< behind the last separator
};

/// Splits a full name at the last separator.
FileNameParts ParseFileName(std::string_view FileName);

/// The same for a file dialog: proposes the name's title there and lets the dialog start in the
/// name's folder, unless that is empty. Returns the title.
std::string ParseFileName(std::string_view FileName, FileDialogRequest& SetDialog);

/// A name inside a folder; a separator is put between them unless the folder ends in one or is
/// empty.
std::string InFolder(std::string_view folder, std::string_view title);

/// A name that is too long for its place keeps its end: characters are dropped from its front, behind
/// "...", until it fits, or nothing but "..." is left. A name that fits stays as it is. UTF-8; no
/// character is cut in two.
std::string ElidedName(std::string_view name, const std::function<bool(std::string_view)>& fits);

} // namespace quelmont
