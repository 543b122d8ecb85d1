#include "core/replaced_file.h"

#include "core/run_time_error.h"

#include <algorithm>
#include <filesystem>
#include <system_error>

#include <fcntl.h>
#include <unistd.h>

namespace quelmont {

namespace {

/// Bytes of a name in a folder.
constexpr std::size_t LongestName = 255;

} // namespace

std::string ReplacedFileName(const std::string& path) {
    std::error_code ignored;
    const std::filesystem::path target = std::filesystem::canonical(path, ignored);
    if (target.empty()) {
        return path;
    }
    if (!std::filesystem::is_regular_file(target, ignored)) {
        throw RunTimeError(ErrorPathFileAccess);
    }
    if (faccessat(AT_FDCWD, target.c_str(), W_OK, AT_EACCESS) != 0) {
        throw RunTimeError(ErrorPermissionDenied);
    }
    return target.string();
}

void ReplaceFile(const std::string& target, const std::string& by) {
    std::error_code failure;
    std::filesystem::rename(by, target, failure);
    if (failure) {
        throw RunTimeError(failure == std::errc::permission_denied ||
                                   failure == std::errc::operation_not_permitted
                               ? ErrorPermissionDenied
                               : ErrorPathFileAccess);
    }
}

TemporaryFile::TemporaryFile(const std::string& target) {
    const std::size_t folder = target.rfind('/') + 1; // 0 when there is none
    std::error_code ignored;
    for (int number = 1;
         number == 1 || std::filesystem::exists(std::filesystem::symlink_status(name, ignored)); ++number) {
        const std::string ending =
            "." + std::to_string(getpid()) + (number > 1 ? "-" + std::to_string(number) : "") + ".tmp";
        name = target.substr(0, std::min(target.size(), folder + LongestName - ending.size())) + ending;
    }
}

TemporaryFile::~TemporaryFile() {
    if (!moved) {
        std::error_code ignored;
        std::filesystem::remove_all(name, ignored);
    }
}

void TemporaryFile::MoveTo(const std::string& target) {
    ReplaceFile(target, name);
    moved = true;
}

} // namespace quelmont
