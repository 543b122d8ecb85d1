#include "core/replaced_file.h"

#include "core/run_time_error.h"

#include <filesystem>
#include <system_error>

#include <unistd.h>

namespace quelmont {

std::string ReplacedFileName(const std::string& path) {
    std::error_code ignored;
    const std::filesystem::path target = std::filesystem::canonical(path, ignored);
    if (target.empty()) {
        return path;
    }
    if (!std::filesystem::is_regular_file(target, ignored)) {
        throw RunTimeError(ErrorPathFileAccess);
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

TemporaryFile::TemporaryFile(const std::string& target)
    : name(target + "." + std::to_string(getpid()) + ".tmp") {}

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
