#pragma once

#include "core/run_time_error.h"
#include "mapfiles/ascii_map_file.h"

#include <condition_variable>
#include <cstddef>
#include <deque>
#include <mutex>
#include <optional>
#include <span>
#include <string>
#include <thread>
#include <utility>
#include <vector>

namespace quelmont {

/// Walks the points of the ASCII map file that is open under file number 1 as AsciiPoints does, and has a
/// second thread read their numbers meanwhile: that takes as long as drawing them.
///
/// The thread that walks reads the file. The second one knows nothing but the bytes that it is handed and the
/// points, or the failure, that it hands back, all in their order; both lie in queues of a few blocks. A
/// failure comes behind the points before it, as without the second thread.
class AsciiPointsAhead {
public:
    AsciiPointsAhead();
    /// Ends the second thread, wherever that is.
    ~AsciiPointsAhead();
    AsciiPointsAhead(const AsciiPointsAhead&) = delete;
    AsciiPointsAhead& operator=(const AsciiPointsAhead&) = delete;

    /// Whether there is another point. RunTimeError as AsciiPoints::Find and AsciiPoints::Take, and "Out of
    /// memory".
    bool Find() { return next < current.points.size() || NextBlock(); }
    /// Takes the point that was found. Its label stays valid until the next Find.
    const AsciiMapPoint& Take() { return current.points[next++]; }

private:
    static constexpr std::size_t BytesPerBlock = std::size_t{128} * 1024;
    static constexpr std::size_t PointsPerBlock = 4096;
    static constexpr std::size_t MostBlocks = 8; ///< of each kind

    struct Bytes {
        std::vector<std::byte> bytes; ///< none: the end of the file
        std::optional<RunTimeError> failure;
    };
    struct Points {
        std::vector<AsciiMapPoint> points;
        std::deque<std::string> labels; ///< to which the points refer
        std::optional<RunTimeError> failure;
        bool last = false;
    };

    // ---- The thread that walks.
    bool NextBlock();
    void Recycle();
    /// Fills the queue of bytes as far as the file goes, and waits for the next points.
    Points WaitForPoints();
    Bytes ReadBytes(std::vector<std::byte> room) const;

    Points current;
    std::size_t next = 0; ///< of the current points
    bool fileRead = false;

    // ---- The second thread.
    void Decode();
    void DecodeFile(Points& block);
    std::size_t TakeBytes(std::span<std::byte> room);
    void HandOn(Points block);
    Points FreshBlock();

    /// Ends the second thread from within: nobody waits for its points any more.
    struct Stopped {};
    Bytes decoded; ///< whose bytes it is at
    std::size_t decodedTo = 0;

    // ---- Both, behind the lock.
    std::mutex lock;
    std::condition_variable walkerWakes, decoderWakes;
    std::deque<Bytes> bytesAhead;
    std::deque<Points> pointsAhead;
    std::vector<std::vector<std::byte>> usedBytes;
    std::vector<std::vector<AsciiMapPoint>> usedPoints;
    bool stopped = false;

    std::jthread decoder; ///< behind all that it works on
};

} // namespace quelmont
