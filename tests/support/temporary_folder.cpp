#include "support/temporary_folder.h"

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <stdexcept>
#include <system_error>

namespace quelmont {

TemporaryFolder::TemporaryFolder() {
    path = (std::filesystem::temp_directory_path() / "quelmont-test-XXXXXX").string();
    if (mkdtemp(path.data()) == nullptr) {
        throw std::runtime_error("no temporary folder");
    }
}

TemporaryFolder::~TemporaryFolder() {
    std::error_code ignored;
    std::filesystem::remove_all(path, ignored);
}

std::vector<std::string> TemporaryFolder::Names() const {
    std::vector<std::string> names;
    for (const auto& entry : std::filesystem::directory_iterator(path)) {
        names.push_back(entry.path().filename().string());
    }
    return names;
}

std::string ReadWholeFile(const std::string& name) {
    std::ifstream file(name, std::ios::binary);
    std::ostringstream contents;
    contents << file.rdbuf();
    if (!file) {
        throw std::runtime_error("cannot read " + name);
    }
    return contents.str();
}

void WriteWholeFile(const std::string& name, std::string_view contents) {
    std::ofstream file(name, std::ios::binary);
    file << contents << std::flush;
    if (!file) {
        throw std::runtime_error("cannot write " + name);
    }
}

} // namespace quelmont
