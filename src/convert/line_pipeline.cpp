#include "convert/line_pipeline.h"

#include "convert/line_steps.h"
#include "convert/simplify.h"
#include "core/text_encoding.h"
#include "mapfiles/feature_rows.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>

namespace quelmont {

namespace {

/// Longer segments are not cut everywhere where they leave a map.
constexpr double LongestStep = 20.0; // degrees of longitude

/// A map file that is read has its own labels; other sources have them where --label asks for them.
int LabelColumnOf(const ConvertOptions& options, LineSource& source) {
    if (options.label) {
        return ColumnOf(source.Columns(), *options.label, "--label");
    }
    return MapFormatOfEnding(options.input) != nullptr ? source.Columns().GetFieldIndex(LabelColumn) : -1;
}

} // namespace

LinePipeline::LinePipeline(const ConvertOptions& options_, LineSource& source_, FeatureChoice* choice_,
                           ConvertTally& tally_, Progress& progress_)
    : options(options_), source(source_), choice(choice_), tally(tally_), progress(progress_),
      to(MapFormatOfEnding(options_.output)), ofMapFile(HasMapFileColumns(source_.Columns())),
      numberColumn(source_.Columns().GetFieldIndex(FeatureColumn)),
      nameColumn(source_.Columns().GetFieldIndex(NameColumn)), labelColumn(LabelColumnOf(options_, source_)) {
}

void LinePipeline::SetTarget(LineTarget& to_) {
    target = &to_;
    progress.Begin();
}

void LinePipeline::BeginFeature(const OGRFeature& record) {
    feature = {};
    sourceRow = ofMapFile ? record.GetFieldAsString(nameColumn) : "";
    if (choice != nullptr) {
        feature.Number = choice->RowOf(record);
        if (feature.Number != 0) {
            feature.Name = FeatureRows(options.output)[static_cast<std::size_t>(feature.Number - 1)].name;
        }
    } else {
        feature.Number = static_cast<std::int16_t>(record.GetFieldAsInteger(numberColumn));
        feature.Name = record.GetFieldAsString(nameColumn);
    }
    label = labelColumn >= 0 ? ToUtf8(record.GetFieldAsString(labelColumn)) : "";
    lineLabelled = false;
}

void LinePipeline::TakeLine(MapLine& line) {
    progress.Add(static_cast<std::int64_t>(line.size()), source.Share());
    CheckOnEarth(line);
    if (choice != nullptr && feature.Number == 0) {
        ++tally.unknownLines;
        return;
    }
    const bool isPoint = line.size() == 1;
    SplitAt180(line, [&](MapLine& piece) {
        if (options.bounds) {
            CutToBounds(piece, *options.bounds, [&](MapLine& part) { Write(part, isPoint); });
        } else {
            Write(piece, isPoint);
        }
    });
}

/// Whether the feature's label goes with what is written next. Each point has it, but of the lines only
/// the first one: a name at every piece of a coast would be too many.
bool LinePipeline::TakeLabel(bool isPoint) {
    if (label.empty() || (!isPoint && lineLabelled)) {
        return false;
    }
    lineLabelled = lineLabelled || !isPoint;
    if (to != nullptr && !to->labels) {
        ++tally.lostLabels;
        label.clear();
        return false;
    }
    return true;
}

void LinePipeline::Write(MapLine& line, bool isPoint) {
    if (options.simplify) {
        Simplify(line, *options.simplify, [this] { progress.Add(0, source.Share()); });
    }
    if (to != nullptr && !IsPacked(*to)) { // whose steps are shorter by far
        tally.longStepPoints += ShortenSteps(line, LongestStep);
    }
    tally.Extend(line);
    if (choice != nullptr && !sourceRow.empty()) {
        tally.CountRow(feature.Number, sourceRow);
    }
    feature.Label = TakeLabel(isPoint) ? label : "";
    target->Write(feature, line);
}

void LineLook::Write(const TargetFeature& feature, MapLine& line) {
    (line.size() == 1 ? mix.points : mix.lines) = true;
    mix.labels = mix.labels || !feature.Label.empty();
    for (const LonLat& point : line) {
        south = std::min(south, point.Lat);
        north = std::max(north, point.Lat);
    }
}

} // namespace quelmont
