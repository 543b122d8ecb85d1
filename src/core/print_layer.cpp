#include "core/print_layer.h"

#include "core/file_numbers.h"

#include <span>

namespace quelmont {

void AddItem(std::string& line, std::int32_t number) {
    if (number >= 0) {
        line += ' ';
    }
    line += std::to_string(number);
    line += ' ';
}

void AddItem(std::string& line, NextZone /*zone*/) {
    constexpr std::size_t zone = 14;
    line.append(zone - line.size() % zone, ' ');
}

void WriteText(std::string_view text) { WriteFile(OutputFileNumber, std::as_bytes(std::span(text))); }

} // namespace quelmont
