#include "output/export_file.h"

#include "core/file_numbers.h"
#include "core/map_design.h"
#include "core/replaced_file.h"
#include "core/run_time_error.h"
#include "output/output_state.h"

#include <algorithm>
#include <memory>
#include <span>
#include <unordered_set>
#include <utility>
#include <vector>

namespace quelmont {

namespace {

/// One large write is cheaper than many small ones.
constexpr std::size_t BlockSize = std::size_t{64} * 1024;

ExportState& state = OutputNow.exports;

std::size_t IndexOf(const std::string& target) {
    const auto found = std::find_if(state.files.begin(), state.files.end(),
                                    [&](const BegunFile& file) { return file.target == target; });
    return found == state.files.end() ? ExportState::None
                                      : static_cast<std::size_t>(found - state.files.begin());
}

BegunFile& Open() {
    if (state.open == ExportState::None) {
        throw RunTimeError(ErrorBadFileNumber);
    }
    return state.files[state.open];
}

/// Does something with the file; a failure makes it lost.
template <typename Body>
void OrLose(BegunFile& file, Body&& body) {
    try {
        body();
    } catch (const RunTimeError&) {
        file.lost = true;
        state.collected.clear();
        throw;
    }
}

void WriteCollected() {
    BegunFile& file = Open();
    if (file.lost || state.collected.empty()) {
        state.collected.clear();
        return;
    }
    OrLose(file, [] { WriteFile(OutputFileNumber, std::as_bytes(std::span(state.collected))); });
    state.collected.clear();
}

std::unordered_set<std::string> MapFiles() {
    std::unordered_set<std::string> files;
    for (const InputFileEntry& file : Design.InputFiles) {
        files.insert(FileIdentity(file.MapFileName));
    }
    return files;
}

void TellThatNothingIsSaved(const std::vector<BegunFile>& files) {
    const bool one = files.size() == 1;
    ShowDrawBox("Map Not Saved", files.front().target + "\n\nThe above file" +
                                     (one ? " was" : ", and the others of this map, were") +
                                     " not written, because a part of the map could not be.");
}

} // namespace

void BeginExport(const std::string& target) {
    if (state.files.empty()) {
        state.mapFiles = MapFiles();
    }
    if (state.mapFiles.contains(FileIdentity(target))) {
        throw RunTimeError(ErrorPathFileAccess);
    }
    const std::size_t before = IndexOf(target);
    if (before != ExportState::None) {
        // Removed before the new one, whose temporary file has the same name, is made.
        state.files.erase(state.files.begin() + static_cast<std::ptrdiff_t>(before));
    }
    BegunFile file;
    file.target = target;
    file.place = ReplacedFileName(target);
    file.temporary = std::make_unique<TemporaryFile>(file.place);
    OpenFile(OutputFileNumber, file.temporary->Name(), OpenMode::Output);
    state.files.push_back(std::move(file));
    state.open = state.files.size() - 1;
    state.collected.clear();
}

bool ExportBegun(const std::string& target) { return IndexOf(target) != ExportState::None; }

void ResumeExport(const std::string& target) {
    const std::size_t index = IndexOf(target);
    if (index == ExportState::None) {
        throw RunTimeError(ErrorFileNotFound);
    }
    BegunFile& file = state.files[index];
    OrLose(file, [&] {
        OpenFile(OutputFileNumber, file.temporary->Name(), OpenMode::Binary);
        SeekFile(OutputFileNumber, file.length);
    });
    state.open = index;
    state.collected.clear();
}

void WriteExport(std::string_view bytes) {
    BegunFile& file = Open();
    if (file.lost) {
        return;
    }
    file.length += static_cast<std::int64_t>(bytes.size());
    state.collected += bytes;
    if (state.collected.size() >= BlockSize) {
        WriteCollected();
    }
}

std::int64_t ExportLength() { return Open().length; }

void PatchExport(std::int64_t position, std::string_view bytes) {
    BegunFile& file = Open();
    if (file.lost) {
        return;
    }
    const std::int64_t written = file.length - static_cast<std::int64_t>(state.collected.size());
    if (position >= written) {
        state.collected.replace(static_cast<std::size_t>(position - written), bytes.size(), bytes);
        return;
    }
    WriteCollected();
    OrLose(file, [&] {
        SeekFile(OutputFileNumber, position);
        WriteFile(OutputFileNumber, std::as_bytes(std::span(bytes)));
        SeekFile(OutputFileNumber, file.length);
    });
}

void CloseExport() {
    if (state.open == ExportState::None) {
        return;
    }
    BegunFile& file = Open();
    try {
        WriteCollected();
        OrLose(file, [] { CloseFile(OutputFileNumber); });
    } catch (const RunTimeError&) {
        state.open = ExportState::None;
        try {
            CloseFile(OutputFileNumber);
        } catch (const RunTimeError&) {
            // The first failure is reported.
        }
        throw;
    }
    state.open = ExportState::None;
}

void LoseExport() { state.elementLost = true; }

void FinishExports() {
    const ExportState done = std::exchange(state, ExportState{});
    const auto isLost = [](const BegunFile& file) { return file.lost; };
    if (done.files.empty() || std::any_of(done.files.begin(), done.files.end(), isLost)) {
        return;
    }
    if (done.elementLost) {
        TellThatNothingIsSaved(done.files);
        return;
    }
    std::vector<Replacement> replacements;
    for (const BegunFile& file : done.files) {
        replacements.push_back({file.temporary.get(), file.place});
    }
    MoveTogether(replacements);
}

void DropExports() {
    if (state.open != ExportState::None) {
        try {
            CloseFile(OutputFileNumber);
        } catch (const RunTimeError&) {
            // The file is removed anyway.
        }
    }
    state = ExportState{};
}

} // namespace quelmont
