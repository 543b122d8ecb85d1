#include "core/replaced_file.h"

#include "core/run_time_error.h"

#include <algorithm>
#include <cerrno>
#include <filesystem>
#include <memory>
#include <system_error>
#include <vector>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace quelmont {

namespace {

/// Bytes of a name in a folder.
constexpr std::size_t LongestName = 255;

/// The path at the end of a chain of links, which need not exist. A link that leads back to itself is its own
/// end.
std::filesystem::path EndOfLinks(const std::filesystem::path& path) {
    constexpr int mostLinks = 40;
    std::filesystem::path end = path;
    std::error_code failure;
    for (int link = 0; std::filesystem::is_symlink(std::filesystem::symlink_status(end, failure)); ++link) {
        const std::filesystem::path next = std::filesystem::read_symlink(end, failure);
        if (link == mostLinks || failure) {
            return path;
        }
        end = end.parent_path() / next; // next alone when it begins at the root
    }
    return end;
}

/// Gives a file the owner and the mode of the one that it replaces, as far as this process has the right to.
void TakeOwnerAndMode(const std::string& name, const std::string& from) {
    struct stat facts = {};
    if (stat(from.c_str(), &facts) == 0 && S_ISREG(facts.st_mode)) {
        constexpr mode_t modeBits = 0777;
        [[maybe_unused]] const int owner = chown(name.c_str(), facts.st_uid, facts.st_gid);
        [[maybe_unused]] const int mode = chmod(name.c_str(), facts.st_mode & modeBits);
    }
}

} // namespace

std::string FileIdentity(const std::string& name) {
    std::error_code ignored;
    const std::filesystem::path file = std::filesystem::weakly_canonical(EndOfLinks(name), ignored);
    return file.empty() ? name : file.string();
}

bool IsSameFile(const std::string& a, const std::string& b) {
    return a == b || FileIdentity(a) == FileIdentity(b);
}

std::string ReplacedFileName(const std::string& path) {
    std::error_code ignored;
    const std::filesystem::path target = std::filesystem::canonical(path, ignored);
    if (target.empty()) {
        const std::filesystem::path end = EndOfLinks(path);
        if (end.filename().native().size() > LongestName) {
            throw RunTimeError(ErrorBadFileNumber);
        }
        return end.string();
    }
    if (!std::filesystem::is_regular_file(target, ignored)) {
        throw RunTimeError(ErrorPathFileAccess);
    }
    if (faccessat(AT_FDCWD, target.c_str(), W_OK, AT_EACCESS) != 0) {
        throw RunTimeError(ErrorPermissionDenied);
    }
    return target.string();
}

void SyncFile(const std::string& name) {
    const int descriptor = open(name.c_str(), O_RDONLY | O_CLOEXEC | O_NOCTTY | O_NONBLOCK);
    if (descriptor < 0) {
        return; // writable but not readable: the owner's decision
    }
    const int failure = fsync(descriptor) == 0 ? 0 : errno;
    close(descriptor);
    switch (failure) {
    case 0:
    case EINVAL:
    case EROFS:
    case ENOTSUP:
        return;
    case ENOSPC:
    case EDQUOT:
        throw RunTimeError(ErrorDiskFull);
    default:
        throw RunTimeError(ErrorDeviceIo);
    }
}

void SyncFolderOf(const std::string& name) {
    const std::filesystem::path folder = std::filesystem::path(name).parent_path();
    const int descriptor = open(folder.empty() ? "." : folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (descriptor >= 0) {
        [[maybe_unused]] const int done = fsync(descriptor);
        close(descriptor);
    }
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
    SyncFile(name); // before its mode may forbid to open it
    TakeOwnerAndMode(name, target);
    ReplaceFile(target, name);
    moved = true;
    SyncFolderOf(target);
}

namespace {

RunTimeError FailureOf(const std::error_code& failure) {
    if (failure == std::errc::no_space_on_device) {
        return RunTimeError(ErrorDiskFull);
    }
    const bool denied = failure == std::errc::permission_denied ||
                        failure == std::errc::operation_not_permitted ||
                        failure == std::errc::read_only_file_system;
    return RunTimeError(denied ? ErrorPermissionDenied : ErrorPathFileAccess);
}

/// The file of a name under a second one as well; nothing when there is none.
std::unique_ptr<TemporaryFile> KeptFile(const std::string& name) {
    std::error_code failure;
    if (!std::filesystem::exists(std::filesystem::symlink_status(name, failure))) {
        return nullptr;
    }
    auto kept = std::make_unique<TemporaryFile>(name);
    std::filesystem::create_hard_link(name, kept->Name(), failure);
    if (failure) { // not every file system has such links
        failure.clear();
        std::filesystem::copy_file(name, kept->Name(), failure);
    }
    if (failure) {
        throw FailureOf(failure);
    }
    return kept;
}

/// Puts back what stood in a place before.
void Restore(const std::string& target, const std::unique_ptr<TemporaryFile>& kept) {
    try {
        if (kept) {
            kept->MoveTo(target);
        } else {
            std::error_code ignored;
            std::filesystem::remove(target, ignored);
        }
    } catch (const RunTimeError&) {
        // The failure for which it was to be put back is reported.
    }
}

} // namespace

void MoveTogether(std::span<const Replacement> files) {
    if (files.size() == 1) {
        files.front().by->MoveTo(files.front().target);
        return;
    }
    std::vector<std::unique_ptr<TemporaryFile>> kept;
    kept.reserve(files.size());
    for (const Replacement& file : files) {
        kept.push_back(KeptFile(file.target));
    }
    std::size_t moved = 0;
    try {
        for (; moved < files.size(); ++moved) {
            files[moved].by->MoveTo(files[moved].target);
        }
    } catch (const RunTimeError&) {
        while (moved > 0) {
            --moved;
            Restore(files[moved].target, kept[moved]);
        }
        throw;
    }
}

} // namespace quelmont
