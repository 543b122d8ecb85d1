#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <span>
#include <string>

/// The two files that the program has open at most: number 1 is the input, number 2 the output.
/// The handler of Escape closes both by number, whoever opened them.

namespace quelmont {

constexpr int InputFileNumber = 1;
constexpr int OutputFileNumber = 2;

enum class OpenMode {
    Input,  ///< reads a file that must exist
    Output, ///< writes a file anew
    Append, ///< writes behind what a file holds
    Binary, ///< writes at any place of a file and keeps what it holds
};

/// Opens a file under a number. RunTimeError: "File not found" (only Input), "Path not found",
/// "Permission denied", "Path/File access error" for what is no plain file, "File already open" for
/// a number in use and for a file that would be written while the other number has it open, "Bad
/// file name or number".
void OpenFile(int number, const std::string& name, OpenMode mode);

/// Closes a file; a number that is not open is no error. RunTimeError "Disk full" or
/// "Device I/O error" when what was buffered cannot be written; the number is free all the same.
void CloseFile(int number);

bool IsFileOpen(int number);

/// Reads up to the size of the span and returns how many bytes there were, 0 only at the end of the
/// file. RunTimeError "Bad file name or number", "Bad file mode" on a file opened for output,
/// "Device I/O error". Nothing is buffered: ask for large blocks.
std::size_t ReadFile(int number, std::span<std::byte> bytes);

/// Writes bytes. RunTimeError "Disk full", "Device I/O error", "Bad file name or number", "Bad file mode" on
/// a file opened for input. Small writes are collected, so a full disk may show later, at a seek, at
/// FileLength or at CloseFile; the bytes concerned are then given up and the failure is reported once.
void WriteFile(int number, std::span<const std::byte> bytes);

/// Moves to a byte counted from 0; RunTimeError "Invalid procedure call or argument" below 0.
void SeekFile(int number, std::int64_t position);

/// The byte, counted from 0, at which the next read or write of an open file begins; nothing when the number
/// is not open.
std::optional<std::int64_t> FilePosition(int number);

/// Bytes of the open file as the operating system reports them: 0 for files that it generates as they are
/// read (/proc), and other programs may write to a file that is open. Good for a share of the work done, not
/// for the size of a buffer.
std::int64_t FileLength(int number);

/// What tells one state of a file from another. Two files with the same stamp hold the same bytes.
struct FileStamp {
    std::uint64_t device = 0, file = 0;   ///< where it lies, whatever its name
    std::int64_t bytes = 0;               ///< its length
    std::int64_t written = 0, status = 0; ///< when its bytes and its entry were changed last, nanoseconds
    bool operator==(const FileStamp&) const = default;
};

/// The stamp of an open file. None where the operating system has none, and none for a file that was changed
/// in the last two seconds: its times are too coarse to tell the next change.
std::optional<FileStamp> StampOfFile(int number);

/// What a file number reads and writes: by default a plain file. Tests put a device of
/// their own under the numbers, one that fails after so many bytes, say.
class FileDevice {
public:
    virtual ~FileDevice() = default;
    virtual std::size_t Read(std::span<std::byte> bytes) = 0;
    virtual void Write(std::span<const std::byte> bytes) = 0;
    virtual void Seek(std::int64_t position) = 0;
    virtual std::int64_t Length() = 0;
    /// As StampOfFile; none unless the device says otherwise.
    virtual std::optional<FileStamp> Stamp() { return std::nullopt; }
    /// Flushes and closes; afterwards only the destructor is called.
    virtual void Close() = 0;
};
using FileDeviceMaker = std::unique_ptr<FileDevice> (*)(const std::string& name, OpenMode mode);

/// Replaces the maker of devices; nullptr goes back to plain files.
void SetFileDeviceMaker(FileDeviceMaker maker);

} // namespace quelmont
