#include "support/wmf_file.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <map>
#include <sstream>
#include <stdexcept>

namespace quelmont {

namespace {

constexpr std::size_t PlaceableBytes = 22;
constexpr std::size_t HeaderBytes = 18;
/// Parameters whose count stands in the first of them.
constexpr int CountedPoints = -1;
/// Bytes whose count stands in the first, and a place.
constexpr int CountedText = -2;
/// A count of outlines, the count of points of each, and the points.
constexpr int CountedOutlines = -4;
/// Five words, eight bytes and a face name of 32 bytes.
constexpr int FontNumbers = -3;
constexpr std::size_t FaceNameBytes = 32;

struct KnownRecord {
    unsigned function;
    const char* name;
    int words; ///< of parameters
};

// clang-format off
constexpr std::array KnownRecords = std::to_array<KnownRecord>({
    {0x0000, "End",             0},
    {0x0102, "SetBkMode",       1},
    {0x0103, "SetMapMode",      1},
    {0x0106, "SetPolyFillMode", 1},
    {0x012D, "SelectObject",    1},
    {0x012E, "SetTextAlign",    1},
    {0x01F0, "DeleteObject",    1},
    {0x0209, "SetTextColor",    2},
    {0x020B, "SetWindowOrg",    2},
    {0x020C, "SetWindowExt",    2},
    {0x02FA, "CreatePen",       5},
    {0x02FB, "CreateFont",      FontNumbers},
    {0x02FC, "CreateBrush",     4},
    {0x0324, "Polygon",         CountedPoints},
    {0x0325, "Polyline",        CountedPoints},
    {0x0418, "Ellipse",         4},
    {0x041B, "Rectangle",       4},
    {0x0521, "TextOut",         CountedText},
    {0x0538, "PolyPolygon",     CountedOutlines},
});
// clang-format on

void Require(bool condition, const std::string& what) {
    if (!condition) {
        throw std::runtime_error(what);
    }
}

void RequireOutlines(const WmfRecord& record) {
    const std::vector<std::int32_t>& numbers = record.numbers;
    const auto words = static_cast<int>(numbers.size());
    Require(words >= 1 && numbers[0] >= 1 && words >= 1 + numbers[0], record.name + " has no outlines");
    int points = 0;
    for (int outline = 1; outline <= numbers[0]; ++outline) {
        points += numbers[static_cast<std::size_t>(outline)];
    }
    Require(words == 1 + numbers[0] + 2 * points, record.name + " has another count of points");
}

class WordReader {
public:
    explicit WordReader(std::string_view bytes_) : bytes(bytes_) {}
    bool AtEnd() const { return bytes.empty(); }
    unsigned Word() {
        Require(bytes.size() >= 2, "the file ends in a word");
        const auto low = static_cast<unsigned char>(bytes[0]);
        const auto high = static_cast<unsigned char>(bytes[1]);
        bytes.remove_prefix(2);
        return low | static_cast<unsigned>(high) << 8U;
    }
    std::uint32_t Long() {
        const unsigned low = Word();
        return low | static_cast<std::uint32_t>(Word()) << 16U;
    }
    std::int32_t Signed() { return static_cast<std::int16_t>(Word()); }

private:
    std::string_view bytes;
};

/// The table of handles while a file is played.
class Handles {
public:
    void Take(const WmfRecord& record) {
        if (record.name == "CreatePen" || record.name == "CreateBrush" || record.name == "CreateFont") {
            Make(record);
        } else if (record.name == "SelectObject") {
            const std::size_t slot = Slot(record);
            selected[slots[slot].front()] = slot;
        } else if (record.name == "DeleteObject") {
            const std::size_t slot = Slot(record);
            const auto held = selected.find(slots[slot].front());
            Require(held == selected.end() || held->second != slot, "a selected object is deleted");
            slots[slot].clear();
        }
    }

    std::size_t Peak() const { return slots.size(); }

    void CheckLeftOver() const {
        for (const std::string& slot : slots) {
            Require(slot.empty() || slot == "Pen 0 0 0 0 0" || slot == "Brush 0 -1 255 0" ||
                        slot == "Brush 1 0 0 0" || slot == "Font 16 7 0 0 700 0 0 0 1 0 0 0 0 'System'",
                    "an object is left over: " + slot);
        }
    }

private:
    void Make(const WmfRecord& record) {
        const auto free = std::find(slots.begin(), slots.end(), "");
        const std::string object = record.Text().substr(std::string_view("Create").size());
        if (free == slots.end()) {
            slots.push_back(object);
        } else {
            *free = object;
        }
    }

    std::size_t Slot(const WmfRecord& record) const {
        const auto slot = static_cast<std::size_t>(record.numbers.at(0));
        Require(slot < slots.size() && !slots[slot].empty(), record.Text() + ": there is no such object");
        return slot;
    }

    std::vector<std::string> slots;       ///< what lies in each, empty when it is free
    std::map<char, std::size_t> selected; ///< slot, by the first letter of the kind
};

std::string BytesOf(const std::vector<std::int32_t>& words) {
    std::string bytes;
    for (const std::int32_t word : words) {
        bytes += static_cast<char>(word & 0xFF);
        bytes += static_cast<char>(word >> 8 & 0xFF);
    }
    return bytes;
}

void TakeFont(WmfRecord& record) {
    constexpr std::size_t plainWords = 5;
    constexpr std::size_t plainBytes = 8;
    const std::string bytes = BytesOf(record.numbers).substr(2 * plainWords);
    Require(bytes.size() == plainBytes + FaceNameBytes, "a font has a length that is not its own");
    record.numbers.resize(plainWords);
    for (const char byte : bytes.substr(0, plainBytes)) {
        record.numbers.push_back(static_cast<unsigned char>(byte));
    }
    const std::size_t end = bytes.find('\0', plainBytes);
    Require(end != std::string::npos, "a face name has no end");
    record.text = bytes.substr(plainBytes, end - plainBytes);
    Require(bytes.find_first_not_of('\0', end) == std::string::npos, "there is more behind a face name");
}

void TakeText(WmfRecord& record) {
    Require(record.numbers.size() >= 3 && record.numbers[0] >= 0, "a text has no count");
    const auto length = static_cast<std::size_t>(record.numbers[0]);
    Require(record.numbers.size() == 3 + (length + 1) / 2, "a text has another count of characters");
    const std::string bytes = BytesOf({record.numbers.begin() + 1, record.numbers.end() - 2});
    record.text = bytes.substr(0, length);
    Require(bytes.size() == length || bytes.back() == '\0', "a text is not padded with zero");
    record.numbers.erase(record.numbers.begin(), record.numbers.end() - 2);
}

WmfRecord ReadRecord(WordReader& reader) {
    constexpr std::uint32_t head = 3;
    WmfRecord record;
    record.words = reader.Long();
    const unsigned function = reader.Word();
    const auto* const known = std::find_if(KnownRecords.begin(), KnownRecords.end(),
                                           [&](const KnownRecord& row) { return row.function == function; });
    Require(known != KnownRecords.end(), "no record has the function " + std::to_string(function));
    record.name = known->name;
    Require(record.words >= head, record.name + " is shorter than a record");
    for (std::uint32_t word = head; word < record.words; ++word) {
        record.numbers.push_back(reader.Signed());
    }
    const auto words = static_cast<int>(record.numbers.size());
    if (known->words == CountedPoints) {
        Require(words >= 1 && words == 1 + 2 * record.numbers[0],
                record.name + " has another count of points");
    } else if (known->words == CountedOutlines) {
        RequireOutlines(record);
    } else if (known->words == FontNumbers) {
        TakeFont(record);
    } else if (known->words == CountedText) {
        TakeText(record);
    } else {
        Require(words == known->words, record.name + " has a length that is not its own");
    }
    return record;
}

void ReadPlaceable(WmfFile& file, std::string_view bytes) {
    Require(bytes.size() > PlaceableBytes + HeaderBytes, "the file is shorter than its headers");
    WordReader reader(bytes.substr(0, PlaceableBytes));
    Require(reader.Long() == 0x9AC6CDD7U, "the key is wrong");
    for (int word = 0; word < 8; ++word) {
        file.placeable.push_back(reader.Signed());
    }
    unsigned checksum = 0;
    WordReader again(bytes.substr(0, PlaceableBytes));
    for (int word = 0; word < 10; ++word) {
        checksum ^= again.Word();
    }
    Require(reader.Word() == checksum, "the checksum is wrong");
}

} // namespace

std::string WmfRecord::Text() const {
    std::ostringstream line;
    line << name;
    for (const std::int32_t number : numbers) {
        line << ' ' << number;
    }
    if (name == "TextOut" || name == "CreateFont") {
        line << " '" << text << '\'';
    }
    return line.str();
}

std::vector<std::string> WmfFile::Texts() const {
    std::vector<std::string> texts;
    for (const WmfRecord& record : records) {
        texts.push_back(record.Text());
    }
    return texts;
}

WmfFile ReadWmf(std::string_view bytes) {
    WmfFile file;
    ReadPlaceable(file, bytes);
    bytes.remove_prefix(PlaceableBytes);
    WordReader reader(bytes);
    Require(reader.Word() == 1, "the type is not 1");
    Require(reader.Word() == HeaderBytes / 2, "the header's size is wrong");
    Require(reader.Word() == 0x0300, "the version is wrong");
    Require(2ULL * reader.Long() == bytes.size(), "the count of words is wrong");
    file.peakSlots = reader.Word();
    const std::uint32_t largest = reader.Long();
    Require(reader.Word() == 0, "the last word of the header is not 0");
    Handles handles;
    std::uint32_t largestFound = 0;
    while (true) {
        WmfRecord record = ReadRecord(reader);
        largestFound = std::max(largestFound, record.words);
        if (record.name == "End") {
            break;
        }
        handles.Take(record);
        file.records.push_back(std::move(record));
    }
    Require(reader.AtEnd(), "records stand behind the end record");
    Require(largest == largestFound, "the largest record is another one");
    Require(file.peakSlots == handles.Peak(), "the count of handles is wrong");
    handles.CheckLeftOver();
    return file;
}

} // namespace quelmont
