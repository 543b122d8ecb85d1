#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

/// A reader of Windows metafiles (16-bit records) of its own, for tests.

namespace quelmont {

struct WmfRecord {
    std::string name;                  ///< "Polyline"
    std::vector<std::int32_t> numbers; ///< 16-bit parameters, signed, as they stand in the file
    std::string text;                  ///< of TextOut; the face of CreateFont
    std::uint32_t words = 0;           ///< of the whole record

    /// "Polyline 2 0 0 25 50"; "TextOut 20 10 'Sea'", y first; of CreateFont five numbers, eight bytes and
    /// the face.
    std::string Text() const;
    bool operator==(const WmfRecord&) const = default;
};

struct WmfFile {
    std::vector<std::int32_t> placeable; ///< the ten signed words behind the key, the checksum left out
    std::uint32_t peakSlots = 0;         ///< handles that were alive at once, by the header
    std::vector<WmfRecord> records;      ///< without the last, which ends the file

    std::vector<std::string> Texts() const;
};

/// A whole file: its placeable header, its header, its records. std::runtime_error for a wrong key or
/// checksum, a header that does not tell the truth (words in all, largest record, handles), a record that
/// nobody knows or whose length is not its own, a handle that is used before it is made or after it was
/// deleted, a selected object that is deleted, an object that is left over, a file that does not end with the
/// end record.
/// Objects that the file makes in place of stock ones may stay: a null brush, and the black pen, white
/// brush and system font that a device begins with.
WmfFile ReadWmf(std::string_view bytes);

} // namespace quelmont
