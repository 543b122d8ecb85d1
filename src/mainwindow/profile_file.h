#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace quelmont {

/// The value of a key in a section of a settings file ("[section]", "key=value"), nothing if the
/// file, the section or the key is not there. Letter case does not count, nor a byte order mark before
/// the file, nor one pair of quotes around the value. Files above 1 MB and what is no plain file are
/// not read.
std::optional<std::string> ReadProfileString(const std::string& file, std::string_view section,
                                             std::string_view key);

/// Sets a key and keeps every other line; makes the file if there is none. The file that links lead to
/// is replaced as a whole and keeps its mode and its owner. False when it cannot be written.
bool WriteProfileString(const std::string& file, std::string_view section, std::string_view key,
                        std::string_view value);

} // namespace quelmont
