#include "mapinput/plot_progress.h"

#include "core/file_numbers.h"
#include "core/map_design.h"
#include "mapinput/map_input_state.h"
#include "platform/machine.h"

#include <algorithm>
#include <filesystem>

namespace quelmont {

namespace {

MapInputState::Progress& Now() { return MapInputNow.progress; }

std::int64_t SizeOf(const std::string& name) {
    std::error_code failure;
    const auto size = std::filesystem::file_size(name, failure);
    return failure ? 0 : static_cast<std::int64_t>(size);
}

void ShowShare() {
    MapInputState::Progress& progress = Now();
    if (progress.bytesOfDraw <= 0.0) {
        return;
    }
    const auto within = static_cast<double>(std::min(progress.position, progress.bytesOfFile));
    const double share = (progress.bytesBefore + within) / progress.bytesOfDraw;
    progress.share = std::max(progress.share, std::min(share, 1.0));
    Machine().window->SetProgress(progress.share);
}

} // namespace

void BeginProgress(std::size_t passes) {
    MapInputState::Progress& progress = Now();
    progress = {};
    const auto listed = static_cast<std::size_t>(std::max<std::int16_t>(Design.MapFileCount, 0));
    for (std::size_t i = 0; i < std::min(listed, Design.InputFiles.size()); ++i) {
        progress.sizes.push_back(SizeOf(Design.InputFiles[i].MapFileName));
        progress.bytesOfDraw += static_cast<double>(progress.sizes.back()) * static_cast<double>(passes);
    }
    ShowShare();
}

void BeginFileProgress(std::int32_t index) {
    MapInputState::Progress& progress = Now();
    progress.bytesBefore += static_cast<double>(progress.bytesOfFile);
    const auto place = static_cast<std::size_t>(index) - 1;
    progress.bytesOfFile = place < progress.sizes.size() ? progress.sizes[place] : 0;
    progress.position = 0;
    ShowShare();
}

void ShowProgress() {
    const auto position = FilePosition(InputFileNumber);
    if (position && *position != Now().position) {
        Now().position = *position;
        ShowShare();
    }
}

void EndProgress() {
    Now() = {};
    Machine().window->SetProgress(std::nullopt);
}

} // namespace quelmont
