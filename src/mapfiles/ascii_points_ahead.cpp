#include "mapfiles/ascii_points_ahead.h"

#include "core/file_numbers.h"
#include "mapfiles/ascii_points.h"
#include "mapfiles/byte_reader.h"

#include <algorithm>
#include <new>
#include <system_error>

namespace quelmont {

AsciiPointsAhead::AsciiPointsAhead() {
    try {
        decoder = std::jthread([this] { Decode(); });
    } catch (const std::system_error&) {
        throw RunTimeError(ErrorOutOfMemory);
    }
}

AsciiPointsAhead::~AsciiPointsAhead() {
    const std::lock_guard guard(lock);
    stopped = true;
    decoderWakes.notify_one();
}

// ---- The thread that walks.

bool AsciiPointsAhead::NextBlock() {
    while (next == current.points.size()) {
        if (current.failure) {
            throw RunTimeError(*current.failure);
        }
        if (current.last) {
            return false;
        }
        Recycle();
        current = WaitForPoints();
        next = 0;
    }
    return true;
}

void AsciiPointsAhead::Recycle() {
    current.points.clear();
    current.labels.clear();
    const std::lock_guard guard(lock);
    usedPoints.push_back(std::move(current.points));
}

AsciiPointsAhead::Points AsciiPointsAhead::WaitForPoints() {
    std::unique_lock guard(lock);
    for (;;) {
        walkerWakes.wait(
            guard, [this] { return !pointsAhead.empty() || (!fileRead && bytesAhead.size() < MostBlocks); });
        if (fileRead || bytesAhead.size() >= MostBlocks) {
            Points block = std::move(pointsAhead.front());
            pointsAhead.pop_front();
            decoderWakes.notify_one();
            return block;
        }
        std::vector<std::byte> room;
        if (!usedBytes.empty()) {
            room = std::move(usedBytes.back());
            usedBytes.pop_back();
        }
        guard.unlock();
        Bytes bytes = ReadBytes(std::move(room));
        fileRead = bytes.failure || bytes.bytes.empty();
        guard.lock();
        bytesAhead.push_back(std::move(bytes));
        decoderWakes.notify_one();
    }
}

AsciiPointsAhead::Bytes AsciiPointsAhead::ReadBytes(std::vector<std::byte> room) const {
    Bytes read{std::move(room), {}};
    try {
        read.bytes.resize(BytesPerBlock);
        read.bytes.resize(ReadFile(InputFileNumber, read.bytes));
    } catch (const RunTimeError& error) {
        read.failure = error;
    } catch (const std::bad_alloc&) {
        read.failure = RunTimeError(ErrorOutOfMemory);
    }
    return read;
}

// ---- The second thread.

void AsciiPointsAhead::Decode() {
    try {
        Points block;
        try {
            DecodeFile(block);
        } catch (const RunTimeError& error) {
            block.failure = error;
        } catch (const std::bad_alloc&) {
            block.failure = RunTimeError(ErrorOutOfMemory);
        }
        block.last = true;
        HandOn(std::move(block));
    } catch (const Stopped&) {
        return;
    }
}

void AsciiPointsAhead::DecodeFile(Points& block) {
    ByteReader bytes([this](std::span<std::byte> room) { return TakeBytes(room); });
    for (AsciiPoints points(bytes); points.Find();) {
        AsciiMapPoint point = points.Take();
        if (!point.Label.empty()) {
            point.Label = block.labels.emplace_back(point.Label);
        }
        block.points.push_back(point);
        if (block.points.size() == PointsPerBlock) {
            HandOn(std::exchange(block, FreshBlock()));
        }
    }
}

std::size_t AsciiPointsAhead::TakeBytes(std::span<std::byte> room) {
    if (decodedTo == decoded.bytes.size()) {
        std::unique_lock guard(lock);
        if (!decoded.bytes.empty()) {
            usedBytes.push_back(std::move(decoded.bytes));
        }
        decoderWakes.wait(guard, [this] { return stopped || !bytesAhead.empty(); });
        if (stopped) {
            throw Stopped{};
        }
        decoded = std::move(bytesAhead.front());
        bytesAhead.pop_front();
        decodedTo = 0;
        walkerWakes.notify_one();
        if (decoded.failure) {
            throw RunTimeError(*decoded.failure);
        }
    }
    const std::size_t count = std::min(room.size(), decoded.bytes.size() - decodedTo);
    std::copy_n(decoded.bytes.begin() + static_cast<std::ptrdiff_t>(decodedTo), count, room.begin());
    decodedTo += count;
    return count;
}

void AsciiPointsAhead::HandOn(Points block) {
    std::unique_lock guard(lock);
    decoderWakes.wait(guard, [this] { return stopped || pointsAhead.size() < MostBlocks; });
    if (stopped) {
        throw Stopped{};
    }
    pointsAhead.push_back(std::move(block));
    walkerWakes.notify_one();
}

AsciiPointsAhead::Points AsciiPointsAhead::FreshBlock() {
    Points block;
    const std::lock_guard guard(lock);
    if (!usedPoints.empty()) {
        block.points = std::move(usedPoints.back());
        usedPoints.pop_back();
    }
    block.points.reserve(PointsPerBlock);
    return block;
}

} // namespace quelmont
