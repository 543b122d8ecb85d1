#include "mainwindow/profile_file.h"

#include "core/replaced_file.h"
#include "core/run_time_error.h"

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <system_error>
#include <vector>

namespace quelmont {

namespace {

constexpr std::uintmax_t LargestFile = std::uintmax_t{1024} * 1024;

std::string_view Trimmed(std::string_view text) {
    constexpr std::string_view blanks = " \t\r";
    const std::size_t first = text.find_first_not_of(blanks);
    if (first == std::string_view::npos) {
        return {};
    }
    return text.substr(first, text.find_last_not_of(blanks) - first + 1);
}

char Lower(char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; }

bool SameName(std::string_view a, std::string_view b) {
    return std::equal(a.begin(), a.end(), b.begin(), b.end(),
                      [](char x, char y) { return Lower(x) == Lower(y); });
}

std::vector<std::string> LinesOfFile(const std::string& file) {
    std::error_code error;
    if (!std::filesystem::is_regular_file(file, error) ||
        std::filesystem::file_size(file, error) > LargestFile || error) {
        return {};
    }
    std::vector<std::string> lines;
    std::ifstream stream(file, std::ios::binary);
    for (std::string line; std::getline(stream, line);) {
        lines.emplace_back(line.substr(0, line.find_last_not_of('\r') + 1));
    }
    return lines;
}

/// A line without the byte order mark that some editors put before a file in UTF-8.
std::string_view WithoutMark(std::string_view line) {
    constexpr std::string_view mark = "\xEF\xBB\xBF";
    return line.substr(line.starts_with(mark) ? mark.size() : 0);
}

/// A value without one pair of quotes around it, double or single.
std::string_view Unquoted(std::string_view value) {
    const bool quoted =
        value.size() >= 2 && value.front() == value.back() && (value.front() == '"' || value.front() == '\'');
    return quoted ? value.substr(1, value.size() - 2) : value;
}

/// The name between the brackets of a section's line, nothing for any other line.
std::optional<std::string_view> SectionName(std::string_view line) {
    line = Trimmed(line);
    if (line.size() < 2 || line.front() != '[' || line.back() != ']') {
        return std::nullopt;
    }
    return Trimmed(line.substr(1, line.size() - 2));
}

bool IsKey(std::string_view line, std::string_view key) {
    const std::size_t equals = line.find('=');
    return equals != std::string_view::npos && SameName(Trimmed(line.substr(0, equals)), key);
}

/// Where a key stands: its line, or the line before which it is to be put.
struct KeyPlace {
    std::size_t line = 0;
    bool found = false;
    bool sectionFound = false;
};

KeyPlace FindKey(const std::vector<std::string>& lines, std::string_view section, std::string_view key) {
    KeyPlace place{lines.size(), false, false};
    for (std::size_t i = 0; i < lines.size(); ++i) {
        if (const auto name = SectionName(i == 0 ? WithoutMark(lines[i]) : lines[i])) {
            if (place.sectionFound) {
                break;
            }
            place.sectionFound = SameName(*name, section);
            place.line = place.sectionFound ? i + 1 : lines.size();
        } else if (place.sectionFound && IsKey(lines[i], key)) {
            return {i, true, true};
        } else if (place.sectionFound && !Trimmed(lines[i]).empty()) {
            place.line = i + 1;
        }
    }
    return place;
}

/// Beside the target under a temporary name, then renamed.
void Replace(const std::string& file, const std::vector<std::string>& lines) {
    const std::string target = ReplacedFileName(file);
    TemporaryFile temporary(target);
    std::ofstream stream(temporary.Name(), std::ios::binary | std::ios::trunc);
    for (const std::string& line : lines) {
        stream << line << "\r\n";
    }
    stream.close();
    if (!stream) {
        throw RunTimeError(ErrorPathFileAccess);
    }
    temporary.MoveTo(target);
}

} // namespace

std::optional<std::string> ReadProfileString(const std::string& file, std::string_view section,
                                             std::string_view key) {
    const std::vector<std::string> lines = LinesOfFile(file);
    const KeyPlace place = FindKey(lines, section, key);
    if (!place.found) {
        return std::nullopt;
    }
    const std::string_view line = lines[place.line];
    return std::string(Unquoted(Trimmed(line.substr(line.find('=') + 1))));
}

bool WriteProfileString(const std::string& file, std::string_view section, std::string_view key,
                        std::string_view value) {
    std::vector<std::string> lines = LinesOfFile(file);
    const KeyPlace place = FindKey(lines, section, key);
    const std::string line = std::string(key) + "=" + std::string(value);
    if (place.found) {
        lines[place.line] = line;
    } else {
        if (!place.sectionFound) {
            lines.push_back("[" + std::string(section) + "]");
        }
        const std::size_t at = place.sectionFound ? place.line : lines.size();
        lines.insert(lines.begin() + static_cast<std::ptrdiff_t>(at), line);
    }
    try {
        Replace(file, lines);
        return true;
    } catch (const RunTimeError&) {
        return false;
    }
}

} // namespace quelmont
