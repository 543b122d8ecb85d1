#pragma once

#include <map>
#include <string>
#include <string_view>
#include <vector>

namespace quelmont {

/// An element of a drawing, and what its groups give it.
struct SvgElement {
    std::string name;
    std::map<std::string, std::string> attributes; ///< those of its groups too, except for their names
    std::string text;                              ///< between its tags, references resolved
    std::string group;                             ///< the names of its groups, "a/b"; empty outside of any

    /// The numbers of an attribute, whatever stands between them. Throws without the attribute.
    std::vector<double> Numbers(const std::string& attribute) const;
    /// An attribute as it stands; empty without one.
    std::string At(const std::string& attribute) const;
};

/// The elements of a drawing in their order, groups and the drawing itself among them. Throws
/// std::runtime_error for what is not well-formed as far as a drawing of a map goes: tags that do not match,
/// attributes without quotes, control characters, names that stand twice.
std::vector<SvgElement> ReadSvg(std::string_view bytes);

/// The elements of that name.
std::vector<SvgElement> SvgElements(std::string_view bytes, const std::string& name);

} // namespace quelmont
