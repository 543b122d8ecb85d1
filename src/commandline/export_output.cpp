#include "commandline/export_output.h"

#include "core/file_names.h"
#include "core/map_design.h"
#include "mainwindow/file_writers.h"
#include "output/dxf/dxf_color.h"

#include <algorithm>
#include <array>
#include <cstdio>

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
    {"BMP", OutputFormat::Bmp},
    {"TXT", OutputFormat::Ascii},
});

/// A colour as RRGGBB.
std::string Written(ColorValue color) {
    std::array<char, 8> text = {};
    std::snprintf(text.data(), text.size(), "%02X%02X%02X", color & 0xFFU, color >> 8U & 0xFFU,
                  color >> 16U & 0xFFU);
    return text.data();
}

std::string ColorWithoutNumber(ColorValue color) {
    const ColorValue bits = ColorBits(color);
    if (!DxfColor(bits).empty()) {
        return "";
    }
    return "a DXF file cannot have the colour " + Written(bits) + "; the nearest that it can have is " +
           Written(NearestIndexedColor(bits));
}

/// Colours of what will be drawn.
std::string ColorThatDxfLacks() {
    std::string reason = Design.GridTypeCode == 5 ? "" : ColorWithoutNumber(Design.GridColor);
    for (const InputFileEntry& file : Design.InputFiles) {
        for (const FeatureStyle& style : file.Features) {
            if (reason.empty() && style.Shown) {
                reason = ColorWithoutNumber(style.Color);
            }
        }
    }
    return reason;
}

} // namespace

OutputFormat OutputFormatOf(const std::string& name) {
    const bool hasEnding = name.size() >= 4 && name[name.size() - 4] == '.';
    const std::string letters = hasEnding ? LastThreeLetters(name) : "";
    const auto* const found = std::find_if(Endings.begin(), Endings.end(),
                                           [&](const Ending& ending) { return ending.letters == letters; });
    return found == Endings.end() ? OutputFormat::Unknown : found->format;
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
    for (const InputFileEntry& file : Design.InputFiles) {
        const std::string name = stem + "-" + ParseFileName(file.MapFileName).title;
        std::string free = name + ending;
        for (int number = 2; std::find(names.begin(), names.end(), free) != names.end(); ++number) {
            free = name + "-" + std::to_string(number) + ending;
        }
        names.push_back(free);
    }
    return names;
}

std::string ArmExport(const std::string& output) {
    switch (OutputFormatOf(output)) {
    case OutputFormat::Cgm:
        Design.CgmFileName = output;
        Design.OutputCgm = true;
        break;
    case OutputFormat::Dxf: {
        const std::string reason = ColorThatDxfLacks();
        if (!reason.empty()) {
            return reason;
        }
        Design.DxfFileName = output;
        Design.OutputDxf = true;
        break;
    }
    case OutputFormat::Wmf:
        Design.WmfFileName = output;
        Design.OutputWmf = true;
        ArmMetafile();
        break;
    case OutputFormat::Ascii:
        Design.AsciiFileName = AsciiOutputs(output);
        if (Design.AsciiFileName.empty()) {
            return "there is no grid and there are no map files to be written";
        }
        Design.OutputAscii = true;
        break;
    default:
        break;
    }
    return "";
}

} // namespace quelmont
