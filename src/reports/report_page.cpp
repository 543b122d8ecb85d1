#include "reports/report_page.h"

#include "core/rounding.h"
#include "core/text_encoding.h"
#include "platform/machine.h"

#include <algorithm>
#include <cmath>
#include <cstddef>

namespace quelmont {

namespace {

constexpr std::int32_t TwipsPerPoint = 20;
constexpr std::int32_t BoldWeight = 700, RegularWeight = 400;

/// Two units that differ by less are the same.
constexpr double UnitSlack = 1e-6;

double CharactersOf(std::string_view text) { return static_cast<double>(Characters(text).size()); }

ReportMeasure InCharacters() { return {CharactersOf, 1.0}; }

/// A cell with the blanks that part it from the next one.
std::string WithGap(const std::string& cell) { return cell + (cell.ends_with(':') ? "  " : "    "); }

/// Where the columns of a block begin, from the second one on, in units.
std::vector<double> Columns(const ReportBlock& block, const ReportMeasure& measure) {
    std::vector<double> widths;
    for (const ReportRow& row : block.rows) {
        for (std::size_t i = 0; i + 1 < row.size(); ++i) {
            widths.resize(std::max(widths.size(), i + 1));
            widths[i] = std::max(widths[i], measure.width(WithGap(row[i])));
        }
    }
    double begin = 0.0;
    for (double& width : widths) {
        begin += std::ceil(width / measure.unit - UnitSlack);
        width = begin;
    }
    return widths;
}

void AddBlock(std::vector<PageLine>& lines, const ReportBlock& block, const ReportMeasure& measure) {
    const std::vector<double> columns = Columns(block, measure);
    for (const ReportRow& row : block.rows) {
        PageLine line{row, {}};
        for (std::size_t i = 1; i < row.size(); ++i) {
            line.stops.push_back(RoundToInt32(columns[i - 1] * measure.unit));
        }
        lines.push_back(std::move(line));
    }
}

void AddHeading(std::vector<PageLine>& lines, const std::string& title, const ReportMeasure& measure) {
    const double dash = measure.width("-");
    const double count = dash > 0.0 ? measure.width(title) / dash : CharactersOf(title);
    const PageLine rule{{std::string(static_cast<std::size_t>(RoundToInt32(count)), '-')}, {}};
    lines.push_back(rule);
    lines.push_back({{title}, {}});
    lines.push_back(rule);
}

} // namespace

ReportMeasure InFont(const TextLook& look) {
    const auto width = [look](std::string_view text) {
        const SurfaceFont font{.height = -look.FontSize * TwipsPerPoint,
                               .weight = look.FontBold ? BoldWeight : RegularWeight,
                               .italic = look.FontItalic,
                               .underline = look.FontUnderline,
                               .strikeout = look.FontStrikeout,
                               .faceName = look.FontName};
        const std::optional<TextExtent> extent = Machine().fonts->Extent(font, text);
        return extent ? extent->width : CharactersOf(text) * look.FontSize * TwipsPerPoint / 2.0;
    };
    return {width, std::max(1.0, width("W"))};
}

std::vector<PageLine> LayOutReport(const Report& report, const ReportMeasure& measure) {
    std::vector<PageLine> lines;
    for (const ReportSection& section : report.sections) {
        if (!section.title.empty()) {
            AddHeading(lines, section.title, measure);
        }
        for (const ReportBlock& block : section.blocks) {
            AddBlock(lines, block, measure);
            lines.emplace_back();
        }
    }
    return lines;
}

std::vector<PageLine> LayOutReport(const Report& report) {
    return LayOutReport(report, InFont(Design.Fonts[ReportFontSlot]));
}

double WidthOfPage(const std::vector<PageLine>& lines, const ReportMeasure& measure) {
    double widest = 0.0;
    for (const PageLine& line : lines) {
        if (!line.cells.empty()) {
            const double begin = line.stops.empty() ? 0.0 : line.stops.back();
            widest = std::max(widest, begin + measure.width(line.cells.back()));
        }
    }
    return widest;
}

std::string PlainText(const Report& report) {
    std::string text;
    for (const PageLine& line : LayOutReport(report, InCharacters())) {
        double column = 0.0;
        for (std::size_t i = 0; i < line.cells.size(); ++i) {
            const double begin = i == 0 ? 0.0 : line.stops[i - 1];
            if (!line.cells[i].empty() && begin > column) {
                text.append(static_cast<std::size_t>(begin - column), ' ');
                column = begin;
            }
            text += line.cells[i];
            column += CharactersOf(line.cells[i]);
        }
        text += "\r\n";
    }
    return text;
}

} // namespace quelmont
