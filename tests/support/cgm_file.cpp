#include "support/cgm_file.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <sstream>
#include <stdexcept>

namespace quelmont {

namespace {

/// What follows the 16-bit numbers of an element, whose count is that of its row.
enum class Form {
    Numbers,  ///< nothing
    Points,   ///< any count of pairs; the count is the fewest numbers
    Outlines, ///< any count of points with the flag of the edge behind each; the count is the fewest numbers
    String,   ///< a string of a length byte and so many characters
};

struct KnownElement {
    int elementClass;
    int id;
    const char* name;
    std::size_t numbers;
    Form form;
};

// clang-format off
/// ISO/IEC 8632-3, tables 3 to 8.
constexpr std::array KnownElements = std::to_array<KnownElement>({
    {0,  1, "BEGIN METAFILE",                 0, Form::String},
    {0,  2, "END METAFILE",                   0, Form::Numbers},
    {0,  3, "BEGIN PICTURE",                  0, Form::String},
    {0,  4, "BEGIN PICTURE BODY",             0, Form::Numbers},
    {0,  5, "END PICTURE",                    0, Form::Numbers},
    {1,  1, "METAFILE VERSION",               1, Form::Numbers},
    {1,  2, "METAFILE DESCRIPTION",           0, Form::String},
    {1,  3, "VDC TYPE",                       1, Form::Numbers},
    {1,  4, "INTEGER PRECISION",              1, Form::Numbers},
    {1,  5, "REAL PRECISION",                 3, Form::Numbers},
    {1,  6, "INDEX PRECISION",                1, Form::Numbers},
    {1,  7, "COLOUR PRECISION",               1, Form::Numbers},
    {1, 10, "COLOUR VALUE EXTENT",            6, Form::Numbers},
    {1, 11, "METAFILE ELEMENT LIST",          3, Form::Numbers},
    {1, 13, "FONT LIST",                      0, Form::String},
    {2,  1, "SCALING MODE",                   3, Form::Numbers},
    {2,  2, "COLOUR SELECTION MODE",          1, Form::Numbers},
    {2,  3, "LINE WIDTH SPECIFICATION MODE",  1, Form::Numbers},
    {2,  5, "EDGE WIDTH SPECIFICATION MODE",  1, Form::Numbers},
    {2,  6, "VDC EXTENT",                     4, Form::Numbers},
    {2,  7, "BACKGROUND COLOUR",              3, Form::Numbers},
    {4,  1, "POLYLINE",                       2, Form::Points},
    {4,  4, "TEXT",                           3, Form::String},
    {4,  7, "POLYGON",                        6, Form::Points},
    {4,  8, "POLYGON SET",                    9, Form::Outlines},
    {4, 12, "CIRCLE",                         3, Form::Numbers},
    {5,  2, "LINE TYPE",                      1, Form::Numbers},
    {5,  3, "LINE WIDTH",                     1, Form::Numbers},
    {5,  4, "LINE COLOUR",                    3, Form::Numbers},
    {5, 11, "TEXT PRECISION",                 1, Form::Numbers},
    {5, 12, "CHARACTER EXPANSION FACTOR",     2, Form::Numbers},
    {5, 13, "CHARACTER SPACING",              2, Form::Numbers},
    {5, 14, "TEXT COLOUR",                    3, Form::Numbers},
    {5, 15, "CHARACTER HEIGHT",               1, Form::Numbers},
    {5, 16, "CHARACTER ORIENTATION",          4, Form::Numbers},
    {5, 18, "TEXT ALIGNMENT",                 6, Form::Numbers},
    {5, 22, "INTERIOR STYLE",                 1, Form::Numbers},
    {5, 23, "FILL COLOUR",                    3, Form::Numbers},
    {5, 27, "EDGE TYPE",                      1, Form::Numbers},
    {5, 28, "EDGE WIDTH",                     1, Form::Numbers},
    {5, 29, "EDGE COLOUR",                    3, Form::Numbers},
    {5, 30, "EDGE VISIBILITY",                1, Form::Numbers},
});
// clang-format on

/// The order of the delimiters, and the classes that may stand behind each.
struct Delimiter {
    const char* name;
    const char* classes;
};
constexpr std::array Delimiters = std::to_array<Delimiter>({
    {"BEGIN METAFILE", "1"},
    {"BEGIN PICTURE", "2"},
    {"BEGIN PICTURE BODY", "45"},
    {"END PICTURE", ""},
    {"END METAFILE", ""},
});

class CgmReader {
public:
    explicit CgmReader(std::string_view bytes_) : bytes(bytes_) {}

    std::vector<CgmElement> Read() {
        std::vector<CgmElement> elements;
        while (position < bytes.size()) {
            elements.push_back(Element());
        }
        Require(delimiter == Delimiters.size(), "the file ends without END METAFILE");
        return elements;
    }

private:
    void Require(bool condition, const std::string& what) const {
        if (!condition) {
            throw std::runtime_error("byte " + std::to_string(position) + ": " + what);
        }
    }

    unsigned Byte() {
        Require(position < bytes.size(), "the file ends in an element");
        return static_cast<unsigned char>(bytes[position++]);
    }

    unsigned Word() {
        const unsigned high = Byte();
        return high << 8U | Byte();
    }

    std::int32_t Signed() {
        const unsigned word = Word();
        return static_cast<std::int32_t>(word) - (word >= 0x8000U ? 0x10000 : 0);
    }

    /// Delimiters in their order, anything else where its class may stand.
    void CheckOrder(const KnownElement& known) {
        if (known.elementClass == 0) {
            Require(delimiter < Delimiters.size(), "an element behind END METAFILE");
            Require(std::string_view(Delimiters[delimiter].name) == known.name,
                    std::string(known.name) + " out of its order");
            ++delimiter;
            return;
        }
        Require(delimiter > 0 &&
                    std::string_view(Delimiters[delimiter - 1].classes)
                            .find(static_cast<char>('0' + known.elementClass)) != std::string_view::npos,
                std::string(known.name) + " in the wrong part of the file");
    }

    CgmElement Element() {
        CgmElement element;
        element.offset = static_cast<std::int64_t>(position);
        Require(position % 2 == 0, "a header at an odd offset");
        const unsigned header = Word();
        const auto elementClass = static_cast<int>(header >> 12U);
        const auto id = static_cast<int>(header >> 5U & 0x7FU);
        const auto* const known =
            std::find_if(KnownElements.begin(), KnownElements.end(), [&](const KnownElement& row) {
                return row.elementClass == elementClass && row.id == id;
            });
        Require(known != KnownElements.end(),
                "no element is " + std::to_string(elementClass) + "." + std::to_string(id));
        CheckOrder(*known);
        element.name = known->name;
        unsigned length = header & 0x1FU;
        if (length == 31) {
            element.longForm = true;
            length = Word();
            Require((length & 0x8000U) == 0, "the data are in more than one part");
        }
        element.length = length;
        Parameters(element, *known, position + length);
        return element;
    }

    void Parameters(CgmElement& element, const KnownElement& known, std::size_t end) {
        Require(end <= bytes.size(), element.name + " leads out of the file");
        const auto length = static_cast<std::size_t>(element.length);
        if (known.form == Form::Numbers) {
            Require(length == 2 * known.numbers, element.name + " has a length that is not its own");
        } else if (known.form == Form::Points) {
            Require(length % 4 == 0 && length >= 2 * known.numbers, element.name + " has no whole points");
        } else if (known.form == Form::Outlines) {
            Require(length % 6 == 0 && length >= 2 * known.numbers, element.name + " has no whole points");
        }
        const bool fixed = known.form != Form::Points && known.form != Form::Outlines;
        const std::size_t numbers = fixed ? known.numbers : length / 2;
        for (std::size_t i = 0; i < numbers; ++i) {
            element.numbers.push_back(Signed());
        }
        if (known.form == Form::String) {
            const unsigned characters = Byte();
            Require(characters < 255, element.name + " has a long string");
            Require(position + characters == end, element.name + " has a string of another length");
            element.text = bytes.substr(position, characters);
            position += characters;
        }
        Require(position == end, element.name + " has parameters left over");
        if (length % 2 != 0) {
            Require(Byte() == 0, "a padding byte that is not zero");
        }
    }

    std::string_view bytes;
    std::size_t position = 0;
    std::size_t delimiter = 0; ///< how many have come
};

} // namespace

std::string CgmElement::Text() const {
    std::ostringstream line;
    line << name;
    for (const std::int32_t number : numbers) {
        line << ' ' << number;
    }
    if (!text.empty()) {
        line << " '" << text << '\'';
    }
    return line.str();
}

std::vector<CgmElement> ReadCgm(std::string_view bytes) { return CgmReader(bytes).Read(); }

std::vector<std::string> CgmBody(std::string_view bytes) {
    constexpr std::ptrdiff_t attributes = 6;
    const std::vector<CgmElement> elements = ReadCgm(bytes);
    const auto named = [](const char* name) {
        return [name](const CgmElement& element) { return element.name == name; };
    };
    auto element =
        std::find_if(elements.begin(), elements.end(), named("BEGIN PICTURE BODY")) + 1 + attributes;
    const auto end = std::find_if(element, elements.end(), named("END PICTURE"));
    std::vector<std::string> texts;
    for (; element != end; ++element) {
        texts.push_back(element->Text());
    }
    return texts;
}

} // namespace quelmont
