#pragma once

#include <string>
#include <string_view>

/// Names of files. "\", "/" and ":" end a folder's name.

namespace quelmont {

/// The last three characters of a name in capitals, which tell its format: "MAP". A shorter name
/// as a whole. Only the letters a to z change.
std::string LastThreeLetters(std::string_view name);

/// A text with its letters a to z in capitals.
std::string Capitals(std::string_view text);

struct FileNameParts {
    std::string folder; ///< without the separator at its end, but "/" for the root; may be empty
    std::string title;  ///< behind the last separator
};

/// Splits a full name at the last separator.
FileNameParts ParseFileName(std::string_view FileName);

/// A name inside a folder; a separator is put between them unless the folder ends in one or is
/// empty.
std::string InFolder(std::string_view folder, std::string_view title);

} // namespace quelmont
