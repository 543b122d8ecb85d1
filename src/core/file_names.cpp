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

std::string WithExtension(std::string_view name, std::string_view extension) {
    const std::string ending = "." + std::string(extension);
    const std::string_view last = name.substr(name.size() - std::min(name.size(), ending.size()));
    if (Capitals(last) == Capitals(ending)) {
        return std::string(name);
    }
    return std::string(name) + ending;
}

std::string ExtensionOf(const FileDialogRequest& request, int filterIndex) {
    std::string_view rest = request.extension;
    for (int i = 1; i < filterIndex && rest.find('|') != std::string_view::npos; ++i) {
        rest = rest.substr(rest.find('|') + 1);
    }
    return std::string(rest.substr(0, rest.find('|')));
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

std::string ParseFileName(std::string_view FileName, FileDialogRequest& SetDialog) {
    const FileNameParts parts = ParseFileName(FileName);
    SetDialog.name = parts.title;
    if (!parts.folder.empty()) {
        SetDialog.folder = parts.folder;
    }
    return parts.title;
}

std::string InFolder(std::string_view folder, std::string_view title) {
    std::string name(folder);
    if (!name.empty() && Separators.find(name.back()) == std::string_view::npos) {
        name += '/';
    }
    name += title;
    return name;
}

std::string ElidedName(std::string_view name, const std::function<bool(std::string_view)>& fits) {
    constexpr std::string_view dots = "...";
    const auto continues = [](char c) { return (static_cast<unsigned char>(c) & 0xC0U) == 0x80U; };
    std::string shown(name);
    while (!name.empty() && !fits(shown)) {
        do {
            name.remove_prefix(1);
        } while (!name.empty() && continues(name.front()));
        shown = std::string(dots) += name;
    }
    return shown;
}

} // namespace quelmont
