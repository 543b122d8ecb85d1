#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace quelmont {

/// Measures what of a JSON text has to be held in memory at once by a reader that takes the elements of
/// the outermost object's "features" one by one, and all else as a whole.
class JsonMeter {
public:
    /// The text goes on with these characters.
    void Take(std::string_view text);
    /// Bytes of the element that is being read, or of all that stands outside "features", whichever is
    /// more.
    std::size_t Held() const { return element > outside ? element : outside; }

private:
    void Count(std::size_t bytes);
    void TakeSpecial(char c);
    void Open(char bracket);
    void Close();

    std::size_t element = 0; ///< bytes since the present element of "features" began
    std::size_t outside = 0; ///< bytes elsewhere
    std::size_t depth = 0;   ///< open brackets of both kinds
    bool inString = false;
    bool escaped = false;    ///< a backslash stands before
    bool inFeatures = false; ///< the array is open
    std::string key;         ///< the last string of the outermost object, its front at least
};

} // namespace quelmont
