#include "mainwindow/kept_file.h"

#include <algorithm>
#include <filesystem>
#include <system_error>
#include <utility>

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

namespace quelmont {

namespace {

/// More programs than these do not run at once.
constexpr int MostFiles = 100;

std::string FileName(const std::string& folder, int number, const char* ending) {
    return folder + "Qmnt-kept-" + std::to_string(number) + ending;
}

bool Exists(const std::string& name) {
    std::error_code ignored;
    return std::filesystem::exists(name, ignored);
}

std::filesystem::file_time_type TimeOf(const std::string& name) {
    std::error_code failure;
    const auto time = std::filesystem::last_write_time(name, failure);
    return failure ? std::filesystem::file_time_type::min() : time;
}

} // namespace

std::optional<ProcessLock> ProcessLock::Take(const std::string& file) {
    const int descriptor = open(file.c_str(), O_RDWR | O_CREAT | O_CLOEXEC | O_NOFOLLOW | O_NONBLOCK, 0600);
    if (descriptor < 0) {
        return std::nullopt;
    }
    struct stat facts = {};
    // Whoever had it may have removed it meanwhile: then it is another file under this name that counts.
    if (flock(descriptor, LOCK_EX | LOCK_NB) != 0 || fstat(descriptor, &facts) != 0 || facts.st_nlink == 0) {
        close(descriptor);
        return std::nullopt;
    }
    return ProcessLock(descriptor);
}

ProcessLock::ProcessLock(ProcessLock&& other) noexcept : descriptor(std::exchange(other.descriptor, -1)) {}

ProcessLock& ProcessLock::operator=(ProcessLock&& other) noexcept {
    std::swap(descriptor, other.descriptor);
    return *this;
}

ProcessLock::~ProcessLock() {
    if (descriptor >= 0) {
        close(descriptor);
    }
}

KeptFile::KeptFile(std::string name_, std::string lockName_, ProcessLock lock_)
    : name(std::move(name_)), lockName(std::move(lockName_)), lock(std::move(lock_)) {}

std::optional<KeptFile> KeptFile::New(const std::string& folder) {
    for (int number = 1; number <= MostFiles; ++number) {
        const std::string name = FileName(folder, number, ".cnf");
        const std::string lockName = FileName(folder, number, ".lock");
        if (Exists(name)) {
            continue;
        }
        if (std::optional<ProcessLock> lock = ProcessLock::Take(lockName)) {
            return KeptFile(name, lockName, std::move(*lock));
        }
    }
    return std::nullopt;
}

std::vector<KeptFile> KeptFile::Orphans(const std::string& folder) {
    std::vector<KeptFile> orphans;
    for (int number = 1; number <= MostFiles; ++number) {
        const std::string name = FileName(folder, number, ".cnf");
        const std::string lockName = FileName(folder, number, ".lock");
        if (Exists(name)) {
            if (std::optional<ProcessLock> lock = ProcessLock::Take(lockName)) {
                orphans.push_back(KeptFile(name, lockName, std::move(*lock)));
            }
        }
    }
    std::sort(orphans.begin(), orphans.end(),
              [](const KeptFile& a, const KeptFile& b) { return TimeOf(a.name) > TimeOf(b.name); });
    return orphans;
}

void KeptFile::Remove() {
    std::error_code ignored;
    std::filesystem::remove(name, ignored);
    std::filesystem::remove(lockName, ignored);
}

} // namespace quelmont
