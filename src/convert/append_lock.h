#pragma once

#include <functional>
#include <string>

namespace quelmont {

/// As long as it lives, no other process that has one adds to the same file. The file itself is locked,
/// or its folder as long as the file is not there. Where the file system has no locks there is none, and
/// for a file that cannot be opened neither: whoever writes it will tell why.
class AppendLock {
public:
    /// Waits until the lock is free, after a call of waiting if it is not. ConvertError when the process
    /// is told to end meanwhile.
    AppendLock(const std::string& file, const std::function<void()>& waiting);
    ~AppendLock();
    AppendLock(const AppendLock&) = delete;
    AppendLock& operator=(const AppendLock&) = delete;

private:
    void Release();
    /// False where there are no locks.
    bool Take(const std::function<void()>& waiting);

    int descriptor = -1;
    bool told = false; ///< that it waits
};

} // namespace quelmont
