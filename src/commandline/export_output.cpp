#include "commandline/export_output.h"

#include "core/color_table.h"
#include "core/file_names.h"
#include "core/map_design.h"
#include "core/replaced_file.h"
#include "output/dxf/dxf_color.h"

#include <algorithm>
#include <array>
#include <unordered_map>
#include <unordered_set>

namespace quelmont {

namespace {

struct Ending {
    const char* letters;
    OutputFormat format;
};

constexpr std::array Endings = std::to_array<Ending>({
    {"PNG", OutputFormat::Png},
    {"CGM", OutputFormat::Cgm},
    {"DXF", OutputFormat::Dxf},
    {"WMF", OutputFormat::Wmf},
    {"SVG", OutputFormat::Svg},
    {"BMP", OutputFormat::Bmp},
    {"PDF", OutputFormat::Pdf},
    {"TXT", OutputFormat::Ascii},
});

/// Strict readers refuse a colour without a number. Those of the picker all have one, and so have other
/// shades.
std::string ColorWithoutNumber(ColorValue color) {
    if (!DxfColor(color).empty()) {
        return "";
    }
    const ColorValue bits = ColorBits(color);
    return "a DXF file cannot have the colour " + ColorDigits(bits) + "; the nearest that it can have is " +
           ColorDigits(NearestTableColor(bits));
}

/// Colours of what will be drawn.
std::string ColorThatDxfLacks() {
    std::string reason = Design.GridTypeCode == 5 ? "" : ColorWithoutNumber(Design.GridColor);
    if (reason.empty() && Design.ScDefined) {
        reason = ColorWithoutNumber(Design.ScColor);
    }
    if (reason.empty() && Design.GcDefined) {
        reason = ColorWithoutNumber(Design.GcColor);
    }
    for (const InputFileEntry& file : Design.InputFiles) {
        for (const FeatureStyle& style : file.Features) {
            if (reason.empty() && style.Shown) {
                reason = ColorWithoutNumber(style.Color);
            }
        }
    }
    for (const TextItem& text : Design.TextItems) {
        if (reason.empty()) {
            reason = ColorWithoutNumber(text.TextColour);
        }
    }
    return reason;
}

/// Two names of one file.
std::string FilesThatAreTheSame(const std::vector<std::string>& names) {
    std::unordered_map<std::string, std::string> before; // names by their files
    for (const std::string& name : names) {
        const auto [same, isNew] = before.emplace(FileIdentity(name), name);
        if (!isNew) {
            return same->second + " and " + name + " are the same file";
        }
    }
    return "";
}

/// Text files that would not all be there at the end.
std::string TextFilesThatCollide() {
    if (Design.AsciiFileName.empty()) {
        return "there is no grid and there are no map files to be written";
    }
    return FilesThatAreTheSame(Design.AsciiFileName);
}

/// A map file that an output would replace.
std::string MapFileThatIsLost(const std::vector<std::string>& outputs) {
    std::unordered_map<std::string, std::string> maps; // names by their files
    for (const InputFileEntry& file : Design.InputFiles) {
        maps.emplace(FileIdentity(file.MapFileName), file.MapFileName);
    }
    for (const std::string& output : outputs) {
        if (const auto map = maps.find(FileIdentity(output)); map != maps.end()) {
            return "it would replace the map file " + map->second;
        }
    }
    return "";
}

} // namespace

OutputFormat OutputFormatOf(const std::string& name) {
    const bool hasEnding = name.size() >= 4 && name[name.size() - 4] == '.';
    const std::string letters = hasEnding ? LastThreeLetters(name) : "";
    const auto* const found = std::find_if(Endings.begin(), Endings.end(),
                                           [&](const Ending& ending) { return ending.letters == letters; });
    return found == Endings.end() ? OutputFormat::Unknown : found->format;
}

std::string FilesThatCollide(const std::string& output, const FilesBeside& beside) {
    std::vector<std::string> names;
    if (OutputFormatOf(output) == OutputFormat::Ascii) {
        names = Design.AsciiFileName;
    } else if (!output.empty()) {
        names = {output};
    }
    names.insert(names.end(), beside.tables.begin(), beside.tables.end());
    std::vector<std::string> replacing = beside.tables;
    if (beside.savedDesign) {
        names.push_back(*beside.savedDesign);
        replacing.push_back(*beside.savedDesign);
    }
    if (std::string reason = FilesThatAreTheSame(names); !reason.empty()) {
        return reason;
    }
    for (const std::string& table : beside.tables) {
        if (beside.recalledDesign && FileIdentity(table) == FileIdentity(*beside.recalledDesign)) {
            return table + ": it would replace the map design " + *beside.recalledDesign;
        }
    }
    for (const std::string& file : replacing) {
        if (const std::string reason = MapFileThatIsLost({file}); !reason.empty()) {
            std::string named = file;
            return named.append(": ").append(reason);
        }
    }
    return "";
}

std::vector<std::string> AsciiOutputs(const std::string& output) {
    const std::string stem = output.substr(0, output.size() - 4);
    const std::string ending = output.substr(output.size() - 4);
    std::vector<std::string> names;
    if (Design.GridTypeCode == 1) {
        names = {stem + "-grid-points" + ending, stem + "-grid-lines" + ending};
    } else if (Design.GridOutputCount > 0) {
        names = {stem + "-grid" + ending};
    }
    std::unordered_set<std::string> taken(names.begin(), names.end());
    std::unordered_map<std::string, int> numbers; // the last one of each name
    for (const InputFileEntry& file : Design.InputFiles) {
        const std::string name = stem + "-" + ParseFileName(file.MapFileName).title;
        std::string free = name + ending;
        int& number = numbers.emplace(name, 1).first->second;
        while (!taken.insert(free).second) {
            free = name;
            free.append("-").append(std::to_string(++number)).append(ending);
        }
        names.push_back(free);
    }
    return names;
}

std::string ArmExport(const std::string& output) {
    const OutputFormat format = OutputFormatOf(output);
    std::vector<std::string> outputs{output};
    std::string reason;
    switch (format) {
    case OutputFormat::Cgm:
        Design.CgmFileName = output;
        break;
    case OutputFormat::Dxf:
        Design.DxfFileName = output;
        reason = ColorThatDxfLacks();
        break;
    case OutputFormat::Wmf:
        Design.WmfFileName = output;
        break;
    case OutputFormat::Svg:
        Design.SvgFileName = output;
        break;
    case OutputFormat::Ascii:
        outputs = Design.AsciiFileName = AsciiOutputs(output);
        reason = TextFilesThatCollide();
        break;
    default:
        break;
    }
    if (reason.empty()) {
        reason = MapFileThatIsLost(outputs);
    }
    if (!reason.empty()) {
        return reason;
    }
    Design.OutputCgm = format == OutputFormat::Cgm;
    Design.OutputDxf = format == OutputFormat::Dxf;
    Design.OutputWmf = format == OutputFormat::Wmf;
    Design.OutputSvg = format == OutputFormat::Svg;
    Design.OutputAscii = format == OutputFormat::Ascii;
    return "";
}

} // namespace quelmont
