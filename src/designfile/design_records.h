#pragma once

#include "core/map_design.h"

#include <cstddef>
#include <cstdint>
#include <limits>
#include <span>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

/// The records of a map design file in one table, which its writer and its reader walk.

namespace quelmont {

/// The screen and the window for which a design was saved. Sizes in twips unless stated.
struct SavedWindow {
    std::int32_t ScreenPixelsX = 0, ScreenPixelsY = 0;
    float TwipsPerPixelX = 0.0F, TwipsPerPixelY = 0.0F;
    std::int16_t WindowState = 0; ///< 0 normal, 2 maximised
    float Width = 0.0F, Height = 0.0F, Left = 0.0F, Top = 0.0F;
    float AreaWidth = 0.0F, AreaHeight = 0.0F; ///< the drawing area
};

/// What the lines of a file stand for: the design, and what is beside it in the file.
struct DesignFile {
    MapDesign& design;
    SavedWindow window = {};
    std::int16_t MapFileCount = 0;
    std::int32_t TextCount = 0;
};

/// A width in twips that stands as a whole number in the file.
struct WholeTwips {
    float* width;
};
/// What is written for whoever reads the file with their own eyes; the program passes it over.
struct ShownText {
    std::string text;
};
using Place = std::variant<std::int16_t*, std::int32_t*, ColorValue*, bool*, float*, double*, std::string*,
                           WholeTwips, ShownText>;

/// One value of a record: where it is kept, and which values the program can work with.
struct Field {
    Place place;
    double least = std::numeric_limits<double>::lowest();
    double most = std::numeric_limits<double>::max();
    bool (*acceptsNumber)(double number) = nullptr;
    bool (*acceptsText)(std::string_view text) = nullptr;
};
using FieldList = std::vector<Field>;

enum class LineKind : std::uint8_t {
    Text,      ///< each field is a line, as it stands
    Quoted,    ///< one text between quotes
    Numbers,   ///< whole numbers in print form, one behind the other
    Spaced,    ///< numbers in spaced form, parted by five blanks
    LeftList,  ///< comma list that is split from the left
    RightList, ///< comma list whose first item may hold commas
    Styles,    ///< whole numbers in print form with commas between; behind the last two is none
    Zones,     ///< whole numbers, each at the beginning of a print zone
};

enum class Repeat : std::uint8_t { Once, PerMapFile, PerTextItem };

struct Record {
    int number; ///< in the order of the file
    LineKind kind;
    Repeat repeat;
    /// Its fields, the index being that of a map file or a text item, which must be there.
    FieldList (*fields)(DesignFile& file, std::size_t index);
};

/// The records behind the line of the version, in their order.
std::span<const Record> DesignRecords();

/// The same of a file of versions 2.00 to 2.99, version in hundredths.
std::vector<Record> OlderDesignRecords(int version);

// Records at which a reader has something to do.
constexpr int RecordCounts = 20;
constexpr int RecordMapFile = 21;
constexpr int RecordFirstBound = 31;
constexpr int RecordLastBound = 45;
constexpr int RecordSpheroidName = 46;
constexpr int RecordTextCount = 53;

} // namespace quelmont
