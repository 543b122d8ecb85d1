#pragma once

#include <string>
#include <vector>

namespace quelmont {

/// What stands in a PDF file: the pages of its last table, and what each draws.
struct PdfText {
    int pages = 0;                     ///< by the page tree
    std::vector<std::string> contents; ///< of each page, all its streams one after another
};

/// Follows the tables of a file from its end. Throws std::runtime_error for what is none.
PdfText ReadPdf(const std::string& bytes);

/// How often a text stands in another.
int CountOf(const std::string& text, const std::string& part);

/// How often an operator stands in a content, those of clips left out.
int OperatorsOf(const std::string& content, const std::string& name);

} // namespace quelmont
