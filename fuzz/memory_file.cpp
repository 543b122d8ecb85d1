#include "memory_file.h"

#include "core/file_numbers.h"

#include <algorithm>
#include <cstring>

namespace quelmont {

namespace {

std::span<const std::uint8_t> Contents;

class MemoryFile final : public FileDevice {
public:
    std::size_t Read(std::span<std::byte> bytes) override {
        const std::size_t count =
            place < Contents.size() ? std::min(bytes.size(), Contents.size() - place) : 0;
        if (count > 0) {
            std::memcpy(bytes.data(), Contents.data() + place, count);
        }
        place += count;
        return count;
    }
    void Write(std::span<const std::byte> /*bytes*/) override {}
    void Seek(std::int64_t position) override { place = static_cast<std::size_t>(position); }
    std::int64_t Length() override { return static_cast<std::int64_t>(Contents.size()); }
    void Close() override {}

private:
    std::size_t place = 0;
};

} // namespace

void SetMemoryFile(std::span<const std::uint8_t> contents) {
    Contents = contents;
    SetFileDeviceMaker([](const std::string& /*name*/, OpenMode /*mode*/) -> std::unique_ptr<FileDevice> {
        return std::make_unique<MemoryFile>();
    });
}

} // namespace quelmont
