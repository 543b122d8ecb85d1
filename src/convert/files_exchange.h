#pragma once

#include <string>
#include <utility>
#include <vector>

namespace quelmont {

/// Puts files that belong together in the places of earlier ones, all or none. Files can be renamed one by
/// one only: the caller chooses an order in which readers never find a mixture.
///
/// Earlier files wait in a folder of their own. Unless Done was called they are back at the end, the
/// last one taken first, and what was put in their places is where it was. A process that is killed in
/// between leaves them in that folder.
class FilesExchange {
public:
    /// The folder lies on the same file system as the places. It is made when it is needed, and is the
    /// caller's to remove.
    explicit FilesExchange(std::string folder);
    ~FilesExchange();
    FilesExchange(const FilesExchange&) = delete;
    FilesExchange& operator=(const FilesExchange&) = delete;

    /// Takes a file away from its place. RunTimeError "Permission denied", "Path/File access error".
    void TakeAway(const std::string& place);
    /// Gives a file a place at which none is. The same errors, and those of SyncFile: it lies on the disk
    /// before it is there.
    void Put(const std::string& file, const std::string& place);
    void Done() { renamed.clear(); }

private:
    std::string folder;
    std::vector<std::pair<std::string, std::string>> renamed; ///< from, to
};

} // namespace quelmont
