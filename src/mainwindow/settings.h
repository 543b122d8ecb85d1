#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace quelmont {

/// The value of a key in "Qmnt.ini", from the settings folder first, then from the program's; empty when
/// there is none.
std::string ReadSetting(const char* key);

/// Writes a key where WriteSettings writes its own. False when that cannot be written.
bool WriteSetting(const char* key, const std::string& value);

/// A flag as the settings have it; nothing for a text that is none.
std::optional<bool> FlagOfSetting(std::string_view text);
std::string SettingOfFlag(bool flag);

/// Takes the printing unit, in which all lengths of pages then are, and the window's place from "Qmnt.ini",
/// and the kept choices, and leaves what it does not find there as it is. Pages are measured in inches or
/// centimetres alone.
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
