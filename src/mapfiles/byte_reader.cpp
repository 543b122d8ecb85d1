#include "mapfiles/byte_reader.h"

#include "core/file_numbers.h"
#include "core/run_time_error.h"

#include <cstring>
#include <limits>

namespace quelmont {

ByteReader::ByteReader() : block(BlockSize) {
    if (!IsFileOpen(InputFileNumber)) {
        throw RunTimeError(ErrorBadFileNumber);
    }
}

bool ByteReader::Fill(std::size_t count) {
    if (atEnd || count > BlockSize) {
        return false;
    }
    const std::size_t kept = Buffered();
    std::memmove(block.data(), block.data() + next, kept);
    next = 0;
    filled = kept;
    while (filled < count && !atEnd) {
        const std::span<std::byte> room = std::span(block).subspan(filled);
        const std::size_t got = source ? source(room) : ReadFile(InputFileNumber, room);
        filled += got;
        position += static_cast<std::int64_t>(got);
        atEnd = got == 0;
    }
    return filled >= count;
}

void ByteReader::Seek(std::int64_t count) {
    const auto buffered = static_cast<std::int64_t>(Buffered());
    if (source || count < 0 || count - buffered > std::numeric_limits<std::int64_t>::max() - position) {
        throw RunTimeError(ErrorInvalidCall);
    }
    position += count - buffered;
    SeekFile(InputFileNumber, position);
    next = 0;
    filled = 0;
    atEnd = false;
}

void ByteReader::PastEnd() { throw RunTimeError(ErrorInputPastEnd); }

} // namespace quelmont
