#pragma once

#include "platform/draw_surface.h"

#include <cstddef>
#include <cstdint>
#include <initializer_list>
#include <map>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace quelmont {

/// A surface that makes the records of a Windows metafile (format of Windows 3.0), for its owner to take.
/// Numbers are little-endian words of 16 bits; a record is its length in words, its function and
/// parameters.
///
/// Objects have slots: a new one takes the lowest that is free. The pen and the brush that a device
/// context begins with, and stock objects, are made by ordinary records when they are first selected.
/// A coordinate that does not fit a word makes its operation fail.
class MetafileRecorder final : public DrawSurface {
public:
    /// Mapping modes of SetMapMode and modes of SetBkMode.
    static constexpr int MapAnisotropic = 8;
    static constexpr int BackgroundTransparent = 1;

    MetafileRecorder();

    bool SetMapMode(int mode);
    bool SetWindowOrgEx(std::int32_t x, std::int32_t y);
    bool SetWindowExtEx(std::int32_t x, std::int32_t y);
    bool SetBkMode(int mode);

    void MoveToEx(std::int32_t x, std::int32_t y) override;
    void LineTo(std::int32_t x, std::int32_t y) override;
    bool Polyline(std::span<const SurfacePoint> points) override;
    bool Polygon(std::span<const SurfacePoint> points) override;
    bool PolyPolygon(std::span<const SurfacePoint> points, std::span<const std::int32_t> counts) override;
    bool Rectangle(std::int32_t left, std::int32_t top, std::int32_t right, std::int32_t bottom) override;
    bool Ellipse(std::int32_t left, std::int32_t top, std::int32_t right, std::int32_t bottom) override;
    void SetPixel(std::int32_t x, std::int32_t y, std::uint32_t color) override;
    SurfaceHandle CreatePen(int style, std::int32_t width, std::uint32_t color) override;
    SurfaceHandle CreateSolidBrush(std::uint32_t color) override;
    SurfaceHandle GetStockObject(int number) override;
    SurfaceHandle SelectObject(SurfaceHandle object) override;
    bool DeleteObject(SurfaceHandle object) override;
    int SetPolyFillMode(int mode) override;

    /// The face name is recorded in Windows-1252, its first 31 characters.
    SurfaceHandle CreateFontIndirectA(const SurfaceFont& font) override;
    bool SetTextAlign(int mode) override;
    std::uint32_t SetTextColor(std::uint32_t color) override;
    /// The text is recorded in Windows-1252.
    bool TextOutA(std::int32_t x, std::int32_t y, std::string_view utf8) override;

    /// Bytes of the metafile's header.
    static constexpr std::size_t HeaderBytes = 18;

    /// The header of a metafile of all records so far, which are whole with RecordEnd.
    std::string Header() const;
    /// The record that ends a metafile.
    void RecordEnd();

    /// Bytes of the records since the last TakeRecords.
    std::size_t Waiting() const { return records.size(); }
    /// The records since the last call; they are forgotten here, and only counted.
    std::string TakeRecords() { return std::exchange(records, {}); }

private:
    void Record(std::uint16_t function, std::initializer_list<std::int32_t> words);
    void RecordWords(std::uint16_t function, const std::vector<std::uint16_t>& words);
    bool RecordPoints(std::uint16_t function, std::span<const SurfacePoint> points);
    bool RecordBox(std::uint16_t function, std::int32_t left, std::int32_t top, std::int32_t right,
                   std::int32_t bottom);
    std::uint16_t TakeSlot();
    enum class Kind { Pen, Brush, Font };
    SurfaceHandle CreateObject(std::uint16_t function, const std::vector<std::uint16_t>& words, Kind kind);
    /// The slot of a stock object, which is made when it has none.
    std::uint16_t SlotOfStock(SurfaceHandle object);

    struct Object {
        std::uint16_t slot;
        Kind kind;
    };
    std::string records;             ///< since they were last taken
    std::uint32_t recordedWords = 0; ///< of all records
    std::map<SurfaceHandle, Object> objects;
    std::map<SurfaceHandle, std::uint16_t> stockSlots;
    std::vector<bool> takenSlots;
    std::uint32_t largestRecord = 0; ///< words
    SurfaceHandle nextHandle = 1;
    std::map<Kind, SurfaceHandle> selected; ///< of each kind
    std::uint32_t textColor = 0;
    int fillMode = FillAlternate;
};

} // namespace quelmont
