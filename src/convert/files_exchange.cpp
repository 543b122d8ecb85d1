#include "convert/files_exchange.h"

#include "core/replaced_file.h"
#include "core/run_time_error.h"

#include <filesystem>
#include <system_error>

namespace quelmont {

namespace fs = std::filesystem;

FilesExchange::FilesExchange(std::string folder_) : folder(std::move(folder_)) {}

FilesExchange::~FilesExchange() {
    for (auto back = renamed.rbegin(); back != renamed.rend(); ++back) {
        std::error_code ignored; // the first failure is reported
        fs::rename(back->second, back->first, ignored);
    }
}

void FilesExchange::TakeAway(const std::string& place) {
    std::error_code failure;
    fs::create_directory(folder, failure);
    if (failure) {
        throw RunTimeError(ErrorPathFileAccess);
    }
    const std::string kept = (fs::path(folder) / fs::path(place).filename()).string();
    ReplaceFile(kept, place);
    renamed.emplace_back(place, kept);
}

void FilesExchange::Put(const std::string& file, const std::string& place) {
    SyncFile(file);
    ReplaceFile(place, file);
    renamed.emplace_back(file, place);
}

} // namespace quelmont
