#include "convert/append_lock.h"

#include "convert/map_line.h"
#include "core/stop_signals.h"

#include <cerrno>
#include <chrono>
#include <filesystem>
#include <thread>
#include <utility>

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

namespace quelmont {

namespace {

bool Exists(const std::string& file) {
    struct stat facts = {};
    return stat(file.c_str(), &facts) == 0;
}

/// Whether a name still leads to an open file, which another process may have replaced.
bool LeadsTo(const std::string& file, int descriptor) {
    struct stat byName = {};
    struct stat open = {};
    return stat(file.c_str(), &byName) == 0 && fstat(descriptor, &open) == 0 &&
           byName.st_dev == open.st_dev && byName.st_ino == open.st_ino;
}

} // namespace

AppendLock::AppendLock(const std::string& file, const std::function<void()>& waiting) {
    const std::filesystem::path folder = std::filesystem::path(file).parent_path();
    constexpr int always = O_CLOEXEC | O_NOCTTY | O_NONBLOCK;
    for (;;) {
        descriptor = open(file.c_str(), O_RDWR | always);
        const bool isThere = descriptor >= 0;
        if (!isThere && errno == ENOENT) {
            descriptor = open(folder.empty() ? "." : folder.c_str(), O_RDONLY | O_DIRECTORY | always);
        }
        if (descriptor < 0 || !Take(waiting)) {
            return;
        }
        // The previous holder of the lock has put another file in the place of the one that was opened.
        if (isThere ? LeadsTo(file, descriptor) : !Exists(file)) {
            return;
        }
        Release();
    }
}

AppendLock::~AppendLock() { Release(); }

void AppendLock::Release() {
    if (descriptor >= 0) {
        close(std::exchange(descriptor, -1));
    }
}

bool AppendLock::Take(const std::function<void()>& waiting) {
    constexpr std::chrono::milliseconds pause(10);
    while (flock(descriptor, LOCK_EX | LOCK_NB) != 0) {
        if (errno != EWOULDBLOCK && errno != EINTR) {
            return false;
        }
        if (!std::exchange(noted, true)) {
            waiting();
        }
        if (StopSignals::Came()) {
            Release();
            throw ConvertError("stopped");
        }
        std::this_thread::sleep_for(pause);
    }
    return true;
}

} // namespace quelmont
