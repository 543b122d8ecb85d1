#include "convert/convert_command.h"

#include "convert/convert_options.h"
#include "convert/convert_tally.h"
#include "convert/feature_choice.h"
#include "convert/file_kind.h"
#include "convert/file_target.h"
#include "convert/gdal_errors.h"
#include "convert/geo_json_encoder.h"
#include "convert/line_steps.h"
#include "convert/map_file_source.h"
#include "convert/progress.h"
#include "convert/utm_zone.h"
#include "convert/vector_source.h"
#include "convert/vector_target.h"
#include "core/run_time_error.h"
#include "core/text_encoding.h"
#include "mapfiles/feature_rows.h"
#include "mapfiles/map_formats.h"

#include <filesystem>
#include <memory>
#include <new>
#include <optional>
#include <ostream>
#include <string_view>
#include <system_error>
#include <variant>

namespace quelmont {

namespace {

constexpr const char* Program = "quelmont-convert: ";

/// The way of lines from a source to a target.
class LineRoad : public LineReceiver {
public:
    LineRoad(const ConvertOptions& options_, LineSource& source_, FeatureChoice* choice_,
             ConvertTally& tally_, Progress& progress_)
        : options(options_), source(source_), choice(choice_), tally(tally_), progress(progress_),
          numberColumn(source_.Columns().GetFieldIndex(FeatureColumn)),
          nameColumn(source_.Columns().GetFieldIndex(NameColumn)),
          labelColumn(options_.label ? ColumnOf(source_.Columns(), *options_.label, "--label")
                                     : OwnLabelColumn()),
          takesLabels(choice_ == nullptr || MapFormatOfEnding(options_.output)->labels) {}

    void SetTarget(LineTarget& to) {
        target = &to;
        progress.Begin();
    }

    void BeginFeature(const OGRFeature& record) override {
        feature = {};
        if (choice != nullptr) {
            feature.Number = choice->RowOf(record);
            if (feature.Number != 0) {
                feature.Name = FeatureRows(options.output)[static_cast<std::size_t>(feature.Number - 1)].name;
            }
        } else {
            feature.Number = static_cast<std::int16_t>(record.GetFieldAsInteger(numberColumn));
            feature.Name = record.GetFieldAsString(nameColumn);
        }
        if (labelColumn >= 0) {
            feature.Label = ToUtf8(record.GetFieldAsString(labelColumn));
        }
    }

    void TakeLine(MapLine& line) override {
        progress.Add(static_cast<std::int64_t>(line.size()), source.Share());
        CheckOnEarth(line);
        if (choice != nullptr && feature.Number == 0) {
            ++tally.unknownLines;
            return;
        }
        SplitAt180(line, [this](MapLine& piece) {
            if (options.bounds) {
                CutToBounds(piece, *options.bounds, [this](MapLine& part) { Write(part); });
            } else {
                Write(piece);
            }
        });
    }

private:
    /// Of a map file that is read; other sources have their labels where they are told to.
    int OwnLabelColumn() const {
        return MapFormatOfEnding(options.input) != nullptr ? source.Columns().GetFieldIndex(LabelColumn) : -1;
    }

    void Write(MapLine& line) {
        if (options.simplify) {
            Simplify(line, *options.simplify);
        }
        tally.Extend(line);
        target->Write(feature, line);
        tally.lostLabels += takesLabels || feature.Label.empty() ? 0 : 1;
        // A label stands once, at the front of what is first written of its feature.
        feature.Label.clear();
    }

    const ConvertOptions& options;
    LineSource& source;
    FeatureChoice* choice; ///< none when the target has no features of its own
    ConvertTally& tally;
    Progress& progress;
    int numberColumn, nameColumn; ///< of a map file
    int labelColumn;              ///< -1 without labels
    bool takesLabels;             ///< the target
    LineTarget* target = nullptr;
    TargetFeature feature;
};

/// Looks which kinds of lines come, and writes nothing.
class LineLook : public LineTarget {
public:
    void Write(const TargetFeature& feature, MapLine& line) override {
        (line.size() == 1 ? mix.points : mix.lines) = true;
        mix.labels = mix.labels || !feature.Label.empty();
    }
    void Finish() override {}
    LineMix mix;
};

bool IsSameFile(const std::string& a, const std::string& b) {
    std::error_code ignored;
    return std::filesystem::equivalent(a, b, ignored);
}

/// One run with two files.
class Conversion {
public:
    Conversion(const ConvertOptions& options_, std::ostream& errors_, bool terminal)
        : options(options_), errors(errors_), from(MapFormatOfEnding(options_.input)),
          to(MapFormatOfEnding(options_.output)), progress(errors_, terminal) {
        if (options.utm) {
            zone.emplace(*options.utm);
        }
    }

    /// The line of statistics.
    std::string Run() {
        OpenSource();
        std::optional<FeatureChoice> choice;
        if (to != nullptr) {
            choice.emplace(options.feature, options.output, source->Columns());
        }
        LineRoad road(options, *source, choice ? &*choice : nullptr, tally, progress);
        const std::unique_ptr<LineTarget> target = NewTarget(road);
        road.SetTarget(*target);
        source->Read(road);
        target->Finish();
        progress.Clear();
        tally.emptyFeatures = source->emptyFeatures;
        Tell(choice && choice->GuessedFirst());
        return tally.StatisticsLine();
    }

private:
    void OpenSource() {
        std::vector<std::string> files{options.input};
        if (from != nullptr) {
            if (options.layer) {
                throw ConvertError(options.input + ": there is no layer \"" + *options.layer +
                                   "\" in it, as a map file has none");
            }
            source =
                std::make_unique<MapFileSource>(options.input, *from, options.where, zone ? &*zone : nullptr);
        } else {
            auto vector =
                std::make_unique<VectorSource>(options.input, options.layer, options.where, gdalErrors);
            noReferenceSystem = vector->HasNoReferenceSystem();
            files = vector->Files();
            source = std::move(vector);
        }
        for (const std::string& file : files) {
            if (IsSameFile(file, options.output)) {
                throw ConvertError(options.output + " would replace what is read");
            }
        }
    }

    std::unique_ptr<LineTarget> NewTarget(LineRoad& road) {
        if (to != nullptr) {
            return std::make_unique<FileTarget>(
                options.output, NewMapFileEncoder(options.output, *to, zone ? &*zone : nullptr, tally),
                options.append ? to : nullptr);
        }
        // Which geometries and columns a layer has must be known when it begins.
        LineLook look;
        road.SetTarget(look);
        source->Read(road);
        tally = {};
        const VectorFileKind& kind = *VectorFileKindOf(options.output);
        if (kind.driver == nullptr) {
            return std::make_unique<FileTarget>(options.output, NewGeoJsonEncoder(look.mix.labels, tally),
                                                nullptr);
        }
        return std::make_unique<VectorTarget>(options.output, kind, look.mix, gdalErrors, tally);
    }

    void Tell(bool guessedFirst) {
        const auto note = [this](const std::string& text) { errors << Program << text << '\n'; };
        for (const std::string& warning : gdalErrors.Warnings()) {
            note(warning);
        }
        if (noReferenceSystem) {
            note("the coordinates are taken for longitude and latitude, as there is no reference system");
        }
        if (guessedFirst) {
            note("everything without a row of its own became feature 1, \"" +
                 std::string(FeatureRows(options.output)[0].name) + "\"; --feature chooses another");
        }
        for (const std::string& text : tally.Notes(EndingOfOutput())) {
            note(text);
        }
    }

    std::string EndingOfOutput() const {
        return to != nullptr ? EndingOf(*to) : std::string(VectorFileKindOf(options.output)->ending);
    }

    const ConvertOptions& options;
    std::ostream& errors;
    const MapFormat* from;
    const MapFormat* to;
    GdalErrors gdalErrors;
    Progress progress;
    ConvertTally tally;
    std::optional<UtmZone> zone;
    std::unique_ptr<LineSource> source;
    bool noReferenceSystem = false;
};

/// Writes what was asked for; a full disk behind the stream must not pass for success.
int Answer(const std::string& text, std::ostream& output, std::ostream& errors) {
    output << text << std::flush;
    if (!output) {
        errors << Program << "The standard output cannot be written.\n";
        return ConvertFailed;
    }
    return ConvertDone;
}

int Run(const std::vector<std::string>& arguments, std::ostream& output, std::ostream& errors,
        bool terminal) {
    const auto read = ReadConvertOptions(arguments);
    if (const auto* text = std::get_if<ConvertAnswer>(&read)) {
        return Answer(text->text, output, errors);
    }
    const auto& options = std::get<ConvertOptions>(read);
    const std::string statistics = Conversion(options, errors, terminal).Run();
    return options.stats ? Answer(statistics, output, errors) : ConvertDone;
}

} // namespace

int ConvertCommand(const std::vector<std::string>& arguments, std::ostream& output, std::ostream& errors,
                   bool terminal) {
    try {
        return Run(arguments, output, errors, terminal);
    } catch (const WrongConvertUsage& wrong) {
        errors << Program << wrong.what() << "\nquelmont-convert --help tells the options.\n";
        return ConvertWrongUsage;
    } catch (const ConvertError& error) {
        errors << Program << error.what() << '\n';
    } catch (const RunTimeError& error) {
        errors << Program << error.Description() << '\n';
    } catch (const std::filesystem::filesystem_error& error) {
        errors << Program << error.path1().string() << ": " << error.code().message() << '\n';
    } catch (const std::bad_alloc&) {
        errors << Program << RunTimeError(ErrorOutOfMemory).Description() << '\n';
    }
    return ConvertFailed;
}

} // namespace quelmont
