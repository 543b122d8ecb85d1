#pragma once

#include <span>
#include <string>

/// Files that are complete or absent: written beside their target, and put in its place when whole.

namespace quelmont {

/// The file that a name leads to, links followed, so that a link stays a link when its file is
/// replaced; it need not exist. RunTimeError "Path/File access error" for what is no plain file,
/// "Permission denied" for one that may not be written (the folder alone would let it be replaced), "Bad
/// file name or number" for a name that no folder can hold.
std::string ReplacedFileName(const std::string& path);

/// The file to which a name leads, or would if it existed, by one text: names of the same file have the
/// same one. For many names, which need not be compared pair by pair then.
std::string FileIdentity(const std::string& name);

/// Whether two names lead to the same file, or would if it existed.
bool IsSameFile(const std::string& a, const std::string& b);

/// A file, or a folder with all that is in it, that is removed at the end unless it was put in the
/// place of its target. Nothing is made; that is for its writer.
class TemporaryFile {
public:
    /// The name is the target's, with the number of the process and ".tmp" behind it; a long one is cut
    /// until it fits, and one that exists is passed over.
    explicit TemporaryFile(const std::string& target);
    ~TemporaryFile();
    TemporaryFile(const TemporaryFile&) = delete;
    TemporaryFile& operator=(const TemporaryFile&) = delete;

    const std::string& Name() const { return name; }

    /// Takes the place of a file in the same folder, and who may read and write it, once it lies on the
    /// disk: after a crash of the machine too there is either file, and whole. RunTimeError "Permission
    /// denied", "Path/File access error", "Disk full", "Device I/O error"; the earlier file stays then.
    void MoveTo(const std::string& target);

private:
    std::string name;
    bool moved = false;
};

/// Gives a file the name of another in the same folder, which it replaces. RunTimeError "Permission
/// denied", "Path/File access error".
void ReplaceFile(const std::string& target, const std::string& by);

/// Returns when what was written to a file lies on the disk. RunTimeError "Disk full", "Device I/O
/// error". Where the file system cannot tell, it returns at once.
void SyncFile(const std::string& name);

/// The same of the names in the folder of a file; what fails is passed over.
void SyncFolderOf(const std::string& name);

/// A whole file, and the one whose place it is to take.
struct Replacement {
    TemporaryFile* by;
    std::string target;
};

/// Puts several files in their places, all of them or, after a failure, none: the earlier files have
/// second names until the last one has its place. A process that is killed meanwhile can leave some of
/// each. RunTimeError as of MoveTo, "Disk full" where an earlier file has to be copied to be kept.
void MoveTogether(std::span<const Replacement> files);

} // namespace quelmont
