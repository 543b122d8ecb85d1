#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

/// A reader of binary Computer Graphics Metafiles (ISO/IEC 8632-3) of its own, for tests. It knows the
/// elements of a map with integer coordinates of 16 bits and direct colours of 16 bits a part, and takes
/// nothing else.

namespace quelmont {

/// One element.
struct CgmElement {
    std::string name;                  ///< "POLYLINE"
    std::vector<std::int32_t> numbers; ///< 16-bit parameters, signed, in their order
    std::string text;                  ///< of an element that has a string
    std::int64_t offset = 0;           ///< of its header in the file
    std::int64_t length = 0;           ///< of its parameters, bytes
    bool longForm = false;

    /// "POLYLINE 0 0 25 50", "TEXT 10 20 1 'Nuuk'".
    std::string Text() const;
};

/// The elements of a whole file. std::runtime_error, with the offset, for anything that the standard does
/// not let stand there: a header at an odd offset, an element that nobody knows, a length that is not the
/// element's or leads out of the file, a padding byte that is not zero, a delimiter out of its order, bytes
/// behind END METAFILE.
std::vector<CgmElement> ReadCgm(std::string_view bytes);

/// Text of each element behind BEGIN PICTURE BODY and the six elements that a map begins with, as far as
/// END PICTURE.
std::vector<std::string> CgmBody(std::string_view bytes);

} // namespace quelmont
