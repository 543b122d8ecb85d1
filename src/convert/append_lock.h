#pragma once

#include <functional>
#include <string>

namespace quelmont {

/// As long as it lives, no other process that has one adds to the same file. The file itself is locked,
/// or its folder as long as the file does not exist. There is no lock where the file system has none, nor
/// for a file that cannot be opened, whose writer reports why.
class AppendLock {
public:
    /// Waits until the lock is free, after a call of waiting if it is not. ConvertError when the process
    /// gets a signal to end meanwhile.
    AppendLock(const std::string& file, const std::function<void()>& waiting);
    ~AppendLock();
    AppendLock(const AppendLock&) = delete;
    AppendLock& operator=(const AppendLock&) = delete;

private:
    void Release();
    /// False where there are no locks.
    bool Take(const std::function<void()>& waiting);

    int descriptor = -1;
    bool noted = false; ///< waiting has been called
};

} // namespace quelmont
