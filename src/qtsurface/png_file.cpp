#include "core/file_numbers.h"
#include "core/run_time_error.h"
#include "qtsurface/image_surface.h"

#include <QBuffer>
#include <QByteArray>

#include <filesystem>
#include <span>
#include <system_error>

#include <unistd.h>

namespace quelmont {

namespace {

/// Puts a file that was written whole in the place of its target, or removes it.
class TemporaryFile {
public:
    explicit TemporaryFile(const std::string& target)
        : name(target + "." + std::to_string(getpid()) + ".tmp") {}
    ~TemporaryFile() {
        if (!moved) {
            std::error_code ignored;
            std::filesystem::remove(name, ignored);
        }
    }
    TemporaryFile(const TemporaryFile&) = delete;
    TemporaryFile& operator=(const TemporaryFile&) = delete;

    const std::string& Name() const { return name; }
    void MoveTo(const std::string& target) {
        std::error_code failure;
        std::filesystem::rename(name, target, failure);
        if (failure) {
            throw RunTimeError(failure == std::errc::permission_denied ||
                                       failure == std::errc::operation_not_permitted
                                   ? ErrorPermissionDenied
                                   : ErrorPathFileAccess);
        }
        moved = true;
    }

private:
    std::string name;
    bool moved = false;
};

/// The file that a name leads to, links followed, so that a link stays a link.
std::string TargetOf(const std::string& path) {
    std::error_code ignored;
    const std::filesystem::path target = std::filesystem::canonical(path, ignored);
    if (target.empty()) {
        return path;
    }
    if (!std::filesystem::is_regular_file(target, ignored)) {
        throw RunTimeError(ErrorPathFileAccess);
    }
    return target.string();
}

QByteArray Encoded(const QImage& image) {
    if (image.isNull()) {
        throw RunTimeError(ErrorInvalidCall);
    }
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    if (!image.save(&buffer, "PNG")) {
        throw RunTimeError(ErrorOutOfMemory);
    }
    return bytes;
}

void WriteAll(const std::string& name, const QByteArray& bytes) {
    OpenFile(OutputFileNumber, name, OpenMode::Output);
    try {
        WriteFile(OutputFileNumber,
                  std::as_bytes(std::span(bytes.constData(), static_cast<std::size_t>(bytes.size()))));
    } catch (const RunTimeError&) {
        try {
            CloseFile(OutputFileNumber);
        } catch (const RunTimeError&) {
            // The first failure is the one to tell.
        }
        throw;
    }
    CloseFile(OutputFileNumber);
}

} // namespace

void ImageSurface::SavePng(const std::string& path) const {
    const QByteArray bytes = Encoded(Image());
    const std::string target = TargetOf(path);
    TemporaryFile file(target);
    WriteAll(file.Name(), bytes);
    file.MoveTo(target);
}

} // namespace quelmont
