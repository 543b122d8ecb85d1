#include "convert/file_target.h"

#include "convert/map_file_source.h"
#include "core/file_numbers.h"
#include "core/run_time_error.h"
#include "mapfiles/fixed_record_file.h"

#include <filesystem>
#include <fstream>
#include <system_error>
#include <utility>

namespace quelmont {

namespace {

/// Runs a body and turns its run-time error into a ConvertError that names the file.
template <typename Body>
auto OfFile(const std::string& name, Body&& body) {
    try {
        return body();
    } catch (const RunTimeError& error) {
        throw ConvertError(name + ": " + error.Description());
    }
}

/// Takes lines and does nothing with them.
class Nobody : public LineReceiver {
public:
    void BeginFeature(const OGRFeature& /*feature*/) override {}
    void TakeLine(MapLine& /*line*/) override {}
};

/// What has to stand between the records of a file and those that are added.
std::string BetweenRecords(const MapFormat& format, std::int64_t length, char last) {
    switch (format.form) {
    case MapFileForm::FixedRecords:
    case MapFileForm::LineGraphText: {
        constexpr auto size = static_cast<std::int64_t>(FixedRecordSize);
        return std::string(static_cast<std::size_t>((size - length % size) % size), ' ');
    }
    case MapFileForm::WorldText:
    case MapFileForm::AsciiDegrees:
    case MapFileForm::AsciiMetres:
        return last == '\n' || last == '\r' ? "" : "\r\n";
    default:
        return "";
    }
}

char LastByte(const std::string& file) {
    std::ifstream stream(file, std::ios::binary);
    stream.seekg(-1, std::ios::end);
    return static_cast<char>(stream.get());
}

} // namespace

FileTarget::FileTarget(const std::string& name_, std::unique_ptr<LineEncoder> encoder_,
                       const MapFormat* addTo, const std::function<void()>& waiting)
    : name(name_), replaced(OfFile(name_, [&] { return ReplacedFileName(name_); })),
      lock(addTo != nullptr ? std::optional<AppendLock>(std::in_place, replaced, waiting) : std::nullopt),
      file(replaced), bytes([](std::span<const std::byte> block) { WriteFile(OutputFileNumber, block); }),
      encoder(std::move(encoder_)) {
    if (addTo != nullptr && std::filesystem::exists(replaced)) {
        CopyEarlier(*addTo);
    }
    OfFile(name, [&] {
        OpenFile(OutputFileNumber, file.Name(), addTo != nullptr ? OpenMode::Append : OpenMode::Output);
        encoder->Begin(FileLength(OutputFileNumber) == 0, bytes);
    });
}

FileTarget::~FileTarget() {
    try {
        CloseFile(OutputFileNumber);
    } catch (const RunTimeError&) {
        // The file is given up; the first failure has been reported.
    }
}

void FileTarget::CopyEarlier(const MapFormat& format) {
    // Degrees or metres: the points are not used.
    MapFileSource earlier(name, format, std::nullopt, nullptr);
    Nobody nobody;
    earlier.Read(nobody);
    const std::int64_t length = earlier.WholeBytes();
    try {
        std::filesystem::copy_file(replaced, file.Name());
        std::filesystem::resize_file(file.Name(), static_cast<std::uintmax_t>(length));
        if (length > 0) {
            std::ofstream stream(file.Name(), std::ios::binary | std::ios::app);
            stream << BetweenRecords(format, length, LastByte(file.Name())) << std::flush;
            if (!stream) {
                throw ConvertError(name + ": " + RunTimeError(ErrorDiskFull).Description());
            }
        }
    } catch (const std::filesystem::filesystem_error& error) {
        throw ConvertError(name + ": " + error.code().message());
    }
}

void FileTarget::Write(const TargetFeature& feature, MapLine& line) {
    OfFile(name, [&] { encoder->Encode(feature, line, bytes); });
}

void FileTarget::Finish() {
    OfFile(name, [&] {
        encoder->End(bytes);
        bytes.Flush();
        CloseFile(OutputFileNumber);
        file.MoveTo(replaced);
    });
}

} // namespace quelmont
