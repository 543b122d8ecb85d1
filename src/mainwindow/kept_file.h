#pragma once

#include <optional>
#include <string>
#include <vector>

namespace quelmont {

/// A lock that belongs to this process as long as it lives, and falls off it when it dies.
class ProcessLock {
public:
    /// Takes the lock on a file, which is made when there is none. Nothing when another process has it, or
    /// when it cannot be made.
    static std::optional<ProcessLock> Take(const std::string& file);
    ProcessLock(ProcessLock&& other) noexcept;
    ProcessLock& operator=(ProcessLock&& other) noexcept;
    ProcessLock(const ProcessLock&) = delete;
    ProcessLock& operator=(const ProcessLock&) = delete;
    ~ProcessLock();

private:
    explicit ProcessLock(int descriptor_) : descriptor(descriptor_) {}
    int descriptor = -1;
};

/// A kept design: a file and its lock, numbered in a folder.
class KeptFile {
public:
    /// One that is free in the folder: locked by nobody, and without a design of a dead process. Nothing
    /// where none can be made.
    static std::optional<KeptFile> New(const std::string& folder);
    /// Those of dead processes, the newest first. As long as they live no other process takes them.
    static std::vector<KeptFile> Orphans(const std::string& folder);

    const std::string& Name() const { return name; }
    /// Removes the design and its lock; nothing is written under its name afterwards.
    void Remove();

private:
    KeptFile(std::string name_, std::string lockName_, ProcessLock lock_);
    std::string name;
    std::string lockName;
    ProcessLock lock;
};

} // namespace quelmont
