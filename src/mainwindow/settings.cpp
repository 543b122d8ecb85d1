#include "mainwindow/settings.h"

#include "core/error_box.h"
#include "core/map_design.h"
#include "core/number_text.h"
#include "core/print_units.h"
#include "mainwindow/kept_choices.h"
#include "mainwindow/main_menu.h"
#include "mainwindow/profile_file.h"
#include "platform/machine.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <filesystem>
#include <optional>
#include <sstream>
#include <string>
#include <vector>

#include <unistd.h>

namespace quelmont {

namespace {

constexpr const char* FileName = "Qmnt.ini";
constexpr const char* Section = "Quelmont";
/// A place whose sizes are beyond it comes from a damaged file, twips.
constexpr double LargestPlace = 1.0e6;
constexpr double SmallestSize = 1440.0;

std::string ProgramFile() { return Machine().places->ProgramFolder() + FileName; }

std::optional<std::string> UserFile() {
    const std::string folder = Machine().places->SettingsFolder();
    return folder.empty() ? std::nullopt : std::optional(folder + FileName);
}

/// The numbers of a text separated by blanks; what is no number or too large counts as 0.
std::vector<double> Numbers(const std::string& text) {
    std::vector<double> numbers;
    std::istringstream words(text);
    for (std::string word; words >> word;) {
        double number = 0.0;
        try {
            number = ValueOf(word);
        } catch (const RunTimeError&) {
            number = 0.0;
        }
        numbers.push_back(number);
    }
    return numbers;
}

std::array<double, 2> ScreenTwips() {
    return {static_cast<double>(Design.ScreenPixelsX) * Design.TwipsPerPixelX,
            static_cast<double>(Design.ScreenPixelsY) * Design.TwipsPerPixelY};
}

bool ScreenShrank() {
    const std::vector<double> before = Numbers(ReadSetting("ScreenSize"));
    const std::array<double, 2> now = ScreenTwips();
    return before.size() >= 2 && (now[0] < before[0] || now[1] < before[1]);
}

void ReadPlace() {
    const std::vector<double> n = Numbers(ReadSetting("MainWindow"));
    if (n.size() < 4 || n[2] < SmallestSize || n[3] < SmallestSize) {
        return;
    }
    for (const double number : n) {
        if (std::fabs(number) > LargestPlace) {
            return;
        }
    }
    Machine().window->SetPlace({n[0], n[1], n[2], n[3]});
}

std::string RecentKey(std::size_t i) { return "RecentDesign" + std::to_string(i + 1); }

} // namespace

std::string ReadSetting(const char* key) {
    if (const auto user = UserFile()) {
        if (const auto value = ReadProfileString(*user, Section, key)) {
            return *value;
        }
    }
    return ReadProfileString(ProgramFile(), Section, key).value_or("");
}

bool WriteSetting(const char* key, const std::string& value) {
    const auto user = UserFile();
    // A key that is read from the user's file is written there, or the old value would come back.
    const bool readFromUser = user && ReadProfileString(*user, Section, key);
    if (!readFromUser && WriteProfileString(ProgramFile(), Section, key, value)) {
        return true;
    }
    if (!user) {
        return false;
    }
    std::error_code ignored;
    std::filesystem::create_directories(Machine().places->SettingsFolder(), ignored);
    return WriteProfileString(*user, Section, key, value);
}

std::optional<bool> FlagOfSetting(std::string_view text) {
    if (text == "True" || text == "true") {
        return true;
    }
    if (text == "False" || text == "false") {
        return false;
    }
    const std::vector<double> numbers = Numbers(std::string(text));
    if (numbers.empty() || text.find_first_of("0123456789") == std::string_view::npos) {
        return std::nullopt;
    }
    return numbers[0] != 0.0;
}

std::string SettingOfFlag(bool flag) { return flag ? "-1" : "0"; }

std::string SettingsFileFolder() {
    std::string program = Machine().places->ProgramFolder();
    std::string user = Machine().places->SettingsFolder();
    if (user.empty() || access(program.c_str(), W_OK) == 0) {
        return program;
    }
    std::error_code ignored;
    std::filesystem::create_directories(user, ignored);
    return user;
}

std::vector<std::string> RecentDesigns() {
    std::vector<std::string> names;
    for (std::size_t i = 0; i < RecentDesignsMost; ++i) {
        std::string name = ReadSetting(RecentKey(i).c_str());
        if (!name.empty()) {
            names.push_back(std::move(name));
        }
    }
    return names;
}

void AddRecentDesign(const std::string& name) {
    std::vector<std::string> names = RecentDesigns();
    std::erase(names, name);
    names.insert(names.begin(), name);
    names.resize(std::min(names.size(), RecentDesignsMost));
    for (std::size_t i = 0; i < names.size(); ++i) {
        if (ReadSetting(RecentKey(i).c_str()) != names[i] && !WriteSetting(RecentKey(i).c_str(), names[i])) {
            return;
        }
    }
}

void ReadSettings() {
    const std::vector<double> units = Numbers(ReadSetting("PrinterUnits"));
    for (const std::int32_t unit : {InchTwips, CentimetreTwips}) {
        if (!units.empty() && units[0] == unit) {
            ChangePrintUnit(unit);
        }
    }
    ReadKeptChoices();
    if (ScreenShrank()) {
        return;
    }
    ReadPlace();
    if (FlagOfSetting(ReadSetting("WindowMaximized")).value_or(false)) {
        Machine().window->Maximise();
    }
}

void WriteSettings() {
    const MainWindow& window = *Machine().window;
    const WindowPlace place = window.Place();
    const std::array<double, 2> screen = ScreenTwips();
    const std::array<std::pair<const char*, std::string>, 4> settings = {{
        {"PrinterUnits", std::to_string(Design.PrintUnitTwips)},
        {"ScreenSize", PlainNumber(screen[0]) + " " + PlainNumber(screen[1])},
        {"MainWindow", PlainNumber(place.left) + " " + PlainNumber(place.top) + " " +
                           PlainNumber(place.width) + " " + PlainNumber(place.height)},
        {"WindowMaximized", SettingOfFlag(window.IsZoomed())},
    }};
    for (std::size_t i = 0; i < settings.size(); ++i) {
        if (!WriteSetting(settings[i].first, settings[i].second)) {
            ShowApiErrorBox("WritePrivateProfileString(" + std::to_string(i + 1) +
                            ") error in Quelmont: Form_Unload");
        }
    }
}

} // namespace quelmont
