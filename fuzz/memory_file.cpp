#include "memory_file.h"

#include "core/file_numbers.h"

#include <algorithm>
#include <array>
#include <cstring>

namespace quelmont {

namespace {

std::span<const std::uint8_t> Contents;
MemoryFileHabits Habits;

class MemoryFile final : public FileDevice {
public:
    std::size_t Read(std::span<std::byte> bytes) override {
        const std::size_t count =
            place < size ? std::min({bytes.size(), size - place, Habits.mostPerRead}) : 0;
        if (count > 0) {
            std::memcpy(bytes.data(), Contents.data() + place, count);
        }
        place += count;
        Change();
        return count;
    }
    void Write(std::span<const std::byte> /*bytes*/) override {}
    void Seek(std::int64_t position) override { place = static_cast<std::size_t>(position); }
    std::int64_t Length() override {
        return Habits.tellsTrueLength ? static_cast<std::int64_t>(size) : Habits.toldLength;
    }
    void Close() override {}

private:
    void Change() {
        const auto changed = static_cast<std::ptrdiff_t>(size) + Habits.changePerRead;
        size = static_cast<std::size_t>(
            std::clamp(changed, std::ptrdiff_t{0}, static_cast<std::ptrdiff_t>(Contents.size())));
    }

    std::size_t place = 0;
    std::size_t size = std::min(Contents.size(), Habits.sizeAtOpening);
};

} // namespace

MemoryFileHabits HabitsOf(std::uint8_t choice) {
    constexpr std::array<std::size_t, 4> pieces = {std::numeric_limits<std::size_t>::max(), 1, 7, 4096};
    constexpr std::array<std::int64_t, 4> lengths = {0, 0, 5, 1'000'000};
    struct Change {
        std::size_t sizeAtOpening;
        std::ptrdiff_t perRead;
    };
    constexpr std::size_t all = std::numeric_limits<std::size_t>::max();
    constexpr std::array<Change, 8> changes = {
        {{all, 0}, {0, 4096}, {0, 1}, {5, 13}, {100, 100}, {all, -1}, {all, -13}, {all, -4096}}};

    MemoryFileHabits habits;
    habits.mostPerRead = pieces[choice % 4U];
    habits.tellsTrueLength = choice / 4U % 4U == 0;
    habits.toldLength = lengths[choice / 4U % 4U];
    habits.sizeAtOpening = changes[choice / 16U % 8U].sizeAtOpening;
    habits.changePerRead = changes[choice / 16U % 8U].perRead;
    return habits;
}

void SetMemoryFile(std::span<const std::uint8_t> contents, const MemoryFileHabits& habits) {
    Contents = contents;
    Habits = habits;
    SetFileDeviceMaker([](const std::string& /*name*/, OpenMode /*mode*/) -> std::unique_ptr<FileDevice> {
        return std::make_unique<MemoryFile>();
    });
}

} // namespace quelmont
