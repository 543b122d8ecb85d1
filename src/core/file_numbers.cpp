#include "core/file_numbers.h"

#include "core/run_time_error.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <ctime>
#include <filesystem>
#include <system_error>
#include <utility>
#include <vector>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace quelmont {

namespace {

/// The run-time error of a failed read, write, seek or close.
int ErrorOfTransfer(int number) {
    switch (number) {
    case ENOSPC:
    case EDQUOT:
    case EFBIG:
        return ErrorDiskFull;
    case ENOMEM:
        return ErrorOutOfMemory;
    default:
        return ErrorDeviceIo;
    }
}

/// The run-time error of a failed open. A missing file and a missing folder are different errors.
int ErrorOfOpen(int number, const std::string& name, OpenMode mode) {
    switch (number) {
    case ENOENT: {
        const std::filesystem::path folder = std::filesystem::path(name).parent_path();
        std::error_code ignored;
        if (!folder.empty() && !std::filesystem::exists(folder, ignored)) {
            return ErrorPathNotFound;
        }
        return mode == OpenMode::Input ? ErrorFileNotFound : ErrorPathFileAccess;
    }
    case ENOTDIR:
        return ErrorPathNotFound;
    case EACCES:
    case EPERM:
    case EROFS:
    case ETXTBSY:
        return ErrorPermissionDenied;
    case EISDIR:
    case ENXIO:
    case ENODEV:
    case ELOOP:
        return ErrorPathFileAccess;
    case ENAMETOOLONG:
    case EINVAL:
        return ErrorBadFileNumber;
    case EMFILE:
    case ENFILE:
        return ErrorTooManyFiles;
    default:
        return ErrorOfTransfer(number);
    }
}

int OpenFlags(OpenMode mode) {
    // A pipe without a partner must not block; it is refused as no plain file.
    constexpr int always = O_CLOEXEC | O_NOCTTY | O_NONBLOCK;
    switch (mode) {
    case OpenMode::Input:
        return always | O_RDONLY;
    case OpenMode::Output:
    case OpenMode::Append:
        return always | O_WRONLY | O_CREAT;
    case OpenMode::Binary:
        break;
    }
    return always | O_RDWR | O_CREAT;
}

/// A plain file. Small writes are collected; reads go straight to the caller, who
/// asks for large blocks.
class SystemFile final : public FileDevice {
public:
    SystemFile(const std::string& name, OpenMode mode)
        : canRead(mode == OpenMode::Input || mode == OpenMode::Binary), canWrite(mode != OpenMode::Input) {
        if (name.find('\0') != std::string::npos) {
            throw RunTimeError(ErrorBadFileNumber);
        }
        do {
            descriptor = open(name.c_str(), OpenFlags(mode), 0666);
        } while (descriptor < 0 && errno == EINTR);
        if (descriptor < 0) {
            throw RunTimeError(ErrorOfOpen(errno, name, mode));
        }
        try {
            Prepare(mode);
        } catch (...) {
            CloseDescriptor();
            throw;
        }
    }

    ~SystemFile() override {
        try {
            if (descriptor >= 0) {
                Flush();
            }
        } catch (const RunTimeError&) {
            // A caller that needs the error calls Close.
        }
        CloseDescriptor();
    }
    SystemFile(const SystemFile&) = delete;
    SystemFile& operator=(const SystemFile&) = delete;

    std::size_t Read(std::span<std::byte> bytes) override {
        if (!canRead) {
            throw RunTimeError(ErrorBadFileMode);
        }
        Flush();
        std::size_t done = 0;
        while (done < bytes.size()) {
            const ssize_t count = read(descriptor, bytes.data() + done, bytes.size() - done);
            if (count < 0 && errno == EINTR) {
                continue;
            }
            if (count < 0) {
                throw RunTimeError(ErrorOfTransfer(errno));
            }
            if (count == 0) {
                break;
            }
            done += static_cast<std::size_t>(count);
        }
        return done;
    }

    void Write(std::span<const std::byte> bytes) override {
        if (!canWrite) {
            throw RunTimeError(ErrorBadFileMode);
        }
        if (waiting.size() + bytes.size() > BufferSize) {
            Flush();
        }
        if (bytes.size() >= BufferSize) {
            WriteThrough(bytes);
        } else {
            waiting.insert(waiting.end(), bytes.begin(), bytes.end());
        }
    }

    void Seek(std::int64_t position) override {
        if (position < 0) {
            throw RunTimeError(ErrorInvalidCall);
        }
        Flush();
        if (lseek(descriptor, position, SEEK_SET) < 0) {
            throw RunTimeError(ErrorOfTransfer(errno));
        }
    }

    std::int64_t Length() override {
        Flush();
        struct stat facts = {};
        if (fstat(descriptor, &facts) != 0) {
            throw RunTimeError(ErrorOfTransfer(errno));
        }
        return facts.st_size;
    }

    std::optional<FileStamp> Stamp() override {
        constexpr std::int64_t second = 1'000'000'000;
        constexpr auto nanoseconds = [](const timespec& time) { return time.tv_sec * second + time.tv_nsec; };
        struct stat facts = {};
        timespec now = {};
        if (fstat(descriptor, &facts) != 0 || clock_gettime(CLOCK_REALTIME, &now) != 0) {
            return std::nullopt;
        }
        const FileStamp stamp{.device = facts.st_dev,
                              .file = facts.st_ino,
                              .bytes = facts.st_size,
                              .written = nanoseconds(facts.st_mtim),
                              .status = nanoseconds(facts.st_ctim)};
        const std::int64_t settled = nanoseconds(now) - 2 * second;
        return stamp.written < settled && stamp.status < settled ? std::optional(stamp) : std::nullopt;
    }

    void Close() override {
        Flush();
        const int closing = std::exchange(descriptor, -1);
        // The number is given back even when close fails, and after EINTR too: never twice.
        if (close(closing) != 0 && errno != EINTR) {
            throw RunTimeError(ErrorOfTransfer(errno));
        }
    }

private:
    static constexpr std::size_t BufferSize = std::size_t{64} * 1024;

    void Prepare(OpenMode mode) {
        struct stat facts = {};
        if (fstat(descriptor, &facts) != 0) {
            throw RunTimeError(ErrorOfTransfer(errno));
        }
        if (!S_ISREG(facts.st_mode)) {
            throw RunTimeError(ErrorPathFileAccess);
        }
        if (mode == OpenMode::Output && ftruncate(descriptor, 0) != 0) {
            throw RunTimeError(ErrorOfTransfer(errno));
        }
        if (mode == OpenMode::Append && lseek(descriptor, 0, SEEK_END) < 0) {
            throw RunTimeError(ErrorOfTransfer(errno));
        }
        if (canWrite) {
            waiting.reserve(BufferSize);
        }
    }

    void Flush() {
        // Bytes that could not be written are given up: the failure was reported, and closing the
        // file after it must not report it again.
        struct Emptied {
            std::vector<std::byte>& bytes;
            ~Emptied() { bytes.clear(); }
        } const emptied{waiting};
        WriteThrough(waiting);
    }

    void WriteThrough(std::span<const std::byte> bytes) const {
        while (!bytes.empty()) {
            const ssize_t count = write(descriptor, bytes.data(), bytes.size());
            if (count < 0 && errno == EINTR) {
                continue;
            }
            if (count < 0) {
                throw RunTimeError(ErrorOfTransfer(errno));
            }
            bytes = bytes.subspan(static_cast<std::size_t>(count));
        }
    }

    void CloseDescriptor() {
        if (descriptor >= 0) {
            close(std::exchange(descriptor, -1));
        }
    }

    int descriptor = -1;
    bool canRead;
    bool canWrite;
    std::vector<std::byte> waiting;
};

std::unique_ptr<FileDevice> MakeSystemFile(const std::string& name, OpenMode mode) {
    return std::make_unique<SystemFile>(name, mode);
}

struct OpenedFile {
    std::unique_ptr<FileDevice> device;
    std::string name;
    OpenMode mode = OpenMode::Input;
    std::int64_t position = 0;
};

std::array<OpenedFile, 3> Files; ///< by number; 0 is never used
FileDeviceMaker Maker = MakeSystemFile;

bool IsFileNumber(int number) { return number == InputFileNumber || number == OutputFileNumber; }

OpenedFile& Opened(int number) {
    if (!IsFileNumber(number) || !Files[static_cast<std::size_t>(number)].device) {
        throw RunTimeError(ErrorBadFileNumber);
    }
    return Files[static_cast<std::size_t>(number)];
}

/// Whether a file that is open for writing, or is to be, is open under another number too: writing
/// would destroy what is being read.
bool Collides(const std::string& name, OpenMode mode) {
    return std::any_of(Files.begin(), Files.end(), [&](const OpenedFile& other) {
        std::error_code ignored;
        return other.device && (mode != OpenMode::Input || other.mode != OpenMode::Input) &&
               (other.name == name || std::filesystem::equivalent(other.name, name, ignored));
    });
}

} // namespace

void OpenFile(int number, const std::string& name, OpenMode mode) {
    if (!IsFileNumber(number)) {
        throw RunTimeError(ErrorBadFileNumber);
    }
    OpenedFile& file = Files[static_cast<std::size_t>(number)];
    if (file.device || Collides(name, mode)) {
        throw RunTimeError(ErrorFileAlreadyOpen);
    }
    std::unique_ptr<FileDevice> device = Maker(name, mode);
    const std::int64_t position = mode == OpenMode::Append ? device->Length() : 0;
    file = OpenedFile{std::move(device), name, mode, position};
}

void CloseFile(int number) {
    if (IsFileOpen(number)) {
        const OpenedFile file = std::exchange(Files[static_cast<std::size_t>(number)], {});
        file.device->Close();
    }
}

bool IsFileOpen(int number) {
    return IsFileNumber(number) && Files[static_cast<std::size_t>(number)].device != nullptr;
}

std::size_t ReadFile(int number, std::span<std::byte> bytes) {
    OpenedFile& file = Opened(number);
    const std::size_t count = file.device->Read(bytes);
    file.position += static_cast<std::int64_t>(count);
    return count;
}

void WriteFile(int number, std::span<const std::byte> bytes) {
    OpenedFile& file = Opened(number);
    file.device->Write(bytes);
    file.position += static_cast<std::int64_t>(bytes.size());
}

void SeekFile(int number, std::int64_t position) {
    OpenedFile& file = Opened(number);
    file.device->Seek(position);
    file.position = position;
}

std::optional<std::int64_t> FilePosition(int number) {
    return IsFileOpen(number) ? std::optional(Files[static_cast<std::size_t>(number)].position)
                              : std::nullopt;
}

std::int64_t FileLength(int number) { return Opened(number).device->Length(); }

std::optional<FileStamp> StampOfFile(int number) { return Opened(number).device->Stamp(); }

void SetFileDeviceMaker(FileDeviceMaker maker) { Maker = maker ? maker : MakeSystemFile; }

} // namespace quelmont
