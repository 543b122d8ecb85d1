#pragma once

#include <string>
#include <vector>

namespace quelmont {

/// A line of a report: labels and values, one in each column; empty for an empty line. UTF-8.
using ReportRow = std::vector<std::string>;

/// Lines whose columns stand below each other. Empty lines lie between blocks.
struct ReportBlock {
    std::vector<ReportRow> rows;
};

/// Lines of one text each, below each other.
inline ReportBlock TextLines(const std::vector<std::string>& texts) {
    ReportBlock block;
    for (const std::string& text : texts) {
        block.rows.emplace_back(1, text);
    }
    return block;
}

/// A part of a report under a heading, which may be empty.
struct ReportSection {
    std::string title;
    std::vector<ReportBlock> blocks;
};

/// What a report says, without any layout: dialog, paper and files show the same rows.
struct Report {
    std::vector<ReportSection> sections;
};

} // namespace quelmont
