#pragma once

#include "core/file_numbers.h"

#include <cstddef>
#include <cstdint>
#include <map>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace quelmont {

/// Files that lie in memory and fail where a test wants them to. As long as it lives, the file
/// numbers open these files instead of the system's. At most one lives at a time.
class FailingFiles {
public:
    FailingFiles();
    ~FailingFiles();
    FailingFiles(const FailingFiles&) = delete;
    FailingFiles& operator=(const FailingFiles&) = delete;

    void Put(const std::string& name, std::string_view contents);
    void Put(const std::string& name, std::span<const std::byte> contents);
    /// What a file holds; nothing when there is no such file.
    std::optional<std::string> Contents(const std::string& name) const;

    /// From now on an operation fails with a run-time error: opening, closing or seeking always;
    /// reading and writing as soon as one open file has passed so many bytes, the bytes before that
    /// one still going through.
    void FailOpening(int error) { opening = error; }
    void FailClosing(int error) { closing = error; }
    void FailSeeking(int error) { seeking = error; }
    void FailReadingAfter(std::int64_t bytes, int error) { reading = Limit{bytes, error}; }
    void FailWritingAfter(std::int64_t bytes, int error) { writing = Limit{bytes, error}; }

    /// From now on each file tells this length, whatever it holds.
    void TellLength(std::int64_t bytes) { toldLength = bytes; }
    /// From now on a file has this stamp, whatever it holds; nothing: it has none, as at first.
    void Stamp(const std::string& name, std::optional<FileStamp> stamp) { stamps[name] = stamp; }
    /// From now on a read gives no more bytes than these at once.
    void ReadAtMost(std::size_t bytes) { mostPerRead = bytes; }

    int opens = 0;
    int closes = 0;
    std::int64_t bytesRead = 0; ///< of all files together

private:
    friend class FailingFile;
    struct Limit {
        std::int64_t bytes = 0;
        int error = 0;
    };

    std::map<std::string, std::vector<std::byte>> files;
    int opening = 0;
    int closing = 0;
    int seeking = 0;
    std::optional<Limit> reading;
    std::optional<Limit> writing;
    std::optional<std::int64_t> toldLength;
    std::optional<std::size_t> mostPerRead;
    std::map<std::string, std::optional<FileStamp>> stamps;
};

} // namespace quelmont
