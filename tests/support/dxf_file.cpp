#include "support/dxf_file.h"

#include <cstddef>
#include <stdexcept>

namespace quelmont {

namespace {

/// Takes a line off the front.
std::string_view TakeLine(std::string_view& bytes) {
    const std::size_t end = bytes.find('\n');
    if (end == std::string_view::npos || end == 0 || bytes[end - 1] != '\r') {
        throw std::runtime_error("a line without CR LF: " + std::string(bytes.substr(0, 40)));
    }
    const std::string_view line = bytes.substr(0, end - 1);
    bytes.remove_prefix(end + 1);
    if (line.find('\r') != std::string_view::npos) {
        throw std::runtime_error("a carriage return in a line");
    }
    return line;
}

int CodeOf(std::string_view line) {
    std::size_t blanks = line.find_first_not_of(' ');
    if (line.size() != 3 || blanks == std::string_view::npos ||
        line.find_first_not_of("0123456789", blanks) != std::string_view::npos) {
        throw std::runtime_error("no group code: \"" + std::string(line) + "\"");
    }
    return std::stoi(std::string(line));
}

} // namespace

std::vector<DxfGroup> ReadDxf(std::string_view bytes) {
    std::vector<DxfGroup> groups;
    while (!bytes.empty()) {
        const int code = CodeOf(TakeLine(bytes));
        if (bytes.empty()) {
            throw std::runtime_error("a group code without a value");
        }
        groups.push_back({code, std::string(TakeLine(bytes))});
    }
    if (groups.empty() || groups.back() != DxfGroup{0, "EOF"}) {
        throw std::runtime_error("the file does not end with EOF");
    }
    return groups;
}

std::vector<std::string> DxfEntities(std::string_view bytes) {
    std::vector<std::string> entities;
    bool inside = false;
    for (const DxfGroup& group : ReadDxf(bytes)) {
        if (!inside) {
            inside = group == DxfGroup{2, "ENTITIES"};
        } else if (group == DxfGroup{0, "ENDSEC"}) {
            break;
        } else if (group.code == 0) {
            entities.push_back(group.value);
        } else {
            entities.back() += " " + std::to_string(group.code) + "=" + group.value;
        }
    }
    return entities;
}

} // namespace quelmont
