#pragma once

#include <string>
#include <vector>

namespace quelmont {

/// Takes the printing unit, in which all lengths of pages then are, and the window's place from "Qmnt.ini",
/// and leaves what it does not find there as it is. Pages are measured in inches or centimetres alone.
///
/// The file is looked for in the settings folder first, then in the program's. The place and the
/// maximised state count only if the screen is at least as large as it was. No fault of the file is
/// worth a message box.
void ReadSettings();

/// Writes the four keys when the window closes: to the program's folder, or to the settings folder
/// when that one cannot be written. Each key that cannot be written shows
/// "WritePrivateProfileString(n) error in Quelmont: Form_Unload".
void WriteSettings();

/// The folder to which settings are written, which ends in a separator; it is made when it is not there.
std::string SettingsFileFolder();

/// The designs saved or recalled last, full names, the last one first.
std::vector<std::string> RecentDesigns();

/// Puts a name in front of them, once. Where the settings cannot be written nothing happens.
void AddRecentDesign(const std::string& name);

} // namespace quelmont
