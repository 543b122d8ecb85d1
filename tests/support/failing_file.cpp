#include "support/failing_file.h"

#include "core/run_time_error.h"

#include <algorithm>
#include <cstring>
#include <stdexcept>

namespace quelmont {

namespace {

FailingFiles* Current = nullptr;

void ThrowIf(int error) {
    if (error != 0) {
        throw RunTimeError(error);
    }
}

} // namespace

/// One open file of FailingFiles.
class FailingFile final : public FileDevice {
public:
    FailingFile(FailingFiles& owner_, const std::string& name_, OpenMode mode) : owner(owner_), name(name_) {
        ThrowIf(owner.opening);
        if (mode == OpenMode::Input && !owner.files.contains(name)) {
            throw RunTimeError(ErrorFileNotFound);
        }
        bytes = &owner.files[name];
        if (mode == OpenMode::Output) {
            bytes->clear();
        }
        place = mode == OpenMode::Append ? bytes->size() : 0;
        ++owner.opens;
    }

    std::size_t Read(std::span<std::byte> wanted) override {
        const std::size_t there = place < bytes->size() ? bytes->size() - place : 0;
        const std::size_t count = std::min({there, wanted.size(), owner.mostPerRead.value_or(there)});
        const std::size_t allowed = Allowed(owner.reading, readSoFar, count);
        if (allowed > 0) {
            std::memcpy(wanted.data(), bytes->data() + place, allowed);
        }
        place += allowed;
        readSoFar += allowed;
        owner.bytesRead += static_cast<std::int64_t>(allowed);
        if (allowed < count) {
            throw RunTimeError(owner.reading->error);
        }
        return count;
    }

    void Write(std::span<const std::byte> written) override {
        const std::size_t allowed = Allowed(owner.writing, writtenSoFar, written.size());
        if (place + allowed > bytes->size()) {
            bytes->resize(place + allowed);
        }
        if (allowed > 0) {
            std::memcpy(bytes->data() + place, written.data(), allowed);
        }
        place += allowed;
        writtenSoFar += allowed;
        if (allowed < written.size()) {
            throw RunTimeError(owner.writing->error);
        }
    }

    void Seek(std::int64_t position) override {
        ThrowIf(owner.seeking);
        place = static_cast<std::size_t>(position);
    }

    std::int64_t Length() override {
        return owner.toldLength.value_or(static_cast<std::int64_t>(bytes->size()));
    }

    std::optional<FileStamp> Stamp() override { return owner.stamps[name]; }

    void Close() override {
        ++owner.closes;
        ThrowIf(owner.closing);
    }

private:
    static std::size_t Allowed(const std::optional<FailingFiles::Limit>& limit, std::size_t soFar,
                               std::size_t count) {
        if (!limit) {
            return count;
        }
        const auto most = static_cast<std::size_t>(limit->bytes);
        return most <= soFar ? 0 : std::min(count, most - soFar);
    }

    FailingFiles& owner;
    std::string name;
    std::vector<std::byte>* bytes = nullptr;
    std::size_t place = 0;
    std::size_t readSoFar = 0;
    std::size_t writtenSoFar = 0;
};

FailingFiles::FailingFiles() {
    if (Current != nullptr) {
        throw std::logic_error("two FailingFiles at a time");
    }
    Current = this;
    SetFileDeviceMaker([](const std::string& name, OpenMode mode) -> std::unique_ptr<FileDevice> {
        return std::make_unique<FailingFile>(*Current, name, mode);
    });
}

FailingFiles::~FailingFiles() {
    closing = 0;
    CloseFile(InputFileNumber);
    CloseFile(OutputFileNumber);
    SetFileDeviceMaker(nullptr);
    Current = nullptr;
}

void FailingFiles::Put(const std::string& name, std::string_view contents) {
    Put(name, std::as_bytes(std::span(contents)));
}

void FailingFiles::Put(const std::string& name, std::span<const std::byte> contents) {
    files[name].assign(contents.begin(), contents.end());
}

std::optional<std::string> FailingFiles::Contents(const std::string& name) const {
    const auto found = files.find(name);
    if (found == files.end()) {
        return std::nullopt;
    }
    std::string text(found->second.size(), '\0');
    std::transform(found->second.begin(), found->second.end(), text.begin(),
                   [](std::byte byte) { return static_cast<char>(byte); });
    return text;
}

} // namespace quelmont
