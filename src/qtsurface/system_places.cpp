#include "qtsurface/system_places.h"

#include <cstdlib>
#include <ctime>
#include <filesystem>
#include <system_error>

namespace quelmont {

SystemPlaces::SystemPlaces() {
    std::error_code failed;
    const std::filesystem::path program = std::filesystem::canonical("/proc/self/exe", failed);
    if (!failed) {
        programFolder = program.parent_path().string() + "/";
    }
}

std::string SystemPlaces::SettingsFolder() const {
    // The configuration folder counts only when it is absolute.
    if (const char* configuration = std::getenv("XDG_CONFIG_HOME");
        configuration != nullptr && configuration[0] == '/') {
        return std::string(configuration) + "/quelmont/";
    }
    const char* home = std::getenv("HOME");
    return home != nullptr && home[0] == '/' ? std::string(home) + "/.config/quelmont/" : std::string();
}

double SystemClock::SecondsSinceMidnight() const {
    std::timespec now = {};
    std::timespec_get(&now, TIME_UTC);
    std::tm local = {};
    localtime_r(&now.tv_sec, &local);
    return local.tm_hour * 3600.0 + local.tm_min * 60.0 + local.tm_sec +
           static_cast<double>(now.tv_nsec) / 1e9;
}

} // namespace quelmont
