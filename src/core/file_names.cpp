#include "core/file_names.h"

#include <algorithm>

namespace quelmont {

namespace {
constexpr std::string_view Separators = "\\/:";
} // namespace

std::string Capitals(std::string_view text) {
    std::string result(text);
    std::transform(result.begin(), result.end(), result.begin(),
                   [](char c) { return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c; });
    return result;
}

std::string LastThreeLetters(std::string_view name) {
    return Capitals(name.substr(name.size() - std::min<std::size_t>(name.size(), 3)));
}

FileNameParts ParseFileName(std::string_view FileName) {
    const std::size_t separator = FileName.find_last_of(Separators);
    if (separator == std::string_view::npos) {
        return {"", std::string(FileName)};
    }
    const bool root = separator == 0 && FileName[0] == '/';
    return {std::string(FileName.substr(0, root ? 1 : separator)),
            std::string(FileName.substr(separator + 1))};
}

std::string InFolder(std::string_view folder, std::string_view title) {
    std::string name(folder);
    if (!name.empty() && Separators.find(name.back()) == std::string_view::npos) {
        name += '/';
    }
    name += title;
    return name;
}

} // namespace quelmont
