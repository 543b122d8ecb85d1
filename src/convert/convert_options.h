#pragma once

#include "convert/line_steps.h"

#include <optional>
#include <stdexcept>
#include <string>
#include <variant>
#include <vector>

namespace quelmont {

/// The false northing of the zones south of the equator, metres.
constexpr double SouthernNorthing = 1e7;

/// The zone of a .utm file.
struct UtmZoneChoice {
    double CentralLon = 0.0;              ///< degrees
    std::string Spheroid = "Clarke 1866"; ///< one of the program's
    std::optional<double> Northing;       ///< false northing, metres, 0 to 10000000
};

/// The command line of quelmont-convert.
struct ConvertOptions {
    std::string input, output;
    std::optional<std::string> layer, where;
    std::optional<LonLatBounds> bounds;
    std::optional<std::string> feature; ///< a row's number or name, or "@" and a column
    std::optional<std::string> label;   ///< a column
    std::optional<double> simplify;     ///< seconds of arc, above 0
    std::optional<UtmZoneChoice> utm;
    bool append = false;
    bool stats = false;
};

/// A command line that asks for a text, and what it is: --help, --version.
struct ConvertAnswer {
    std::string text;
};

/// A command line that cannot be understood, and why.
class WrongConvertUsage : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

/// Reads a command line without the program's name. WrongConvertUsage, also for options that do not go
/// with the two files.
std::variant<ConvertOptions, ConvertAnswer> ReadConvertOptions(const std::vector<std::string>& arguments);

} // namespace quelmont
