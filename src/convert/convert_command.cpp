#include "convert/convert_command.h"

#include "convert/convert_options.h"
#include "convert/convert_tally.h"
#include "convert/feature_choice.h"
#include "convert/file_kind.h"
#include "convert/file_target.h"
#include "convert/gdal_errors.h"
#include "convert/geo_json_encoder.h"
#include "convert/line_pipeline.h"
#include "convert/map_file_source.h"
#include "convert/progress.h"
#include "convert/utm_zone.h"
#include "convert/vector_source.h"
#include "convert/vector_target.h"
#include "core/replaced_file.h"
#include "core/run_time_error.h"
#include "mapfiles/feature_rows.h"
#include "mapfiles/map_formats.h"

#include <filesystem>
#include <memory>
#include <new>
#include <optional>
#include <ostream>
#include <string_view>
#include <variant>

namespace quelmont {

namespace {

constexpr const char* Program = "quelmont-convert: ";

/// One run with two files.
class Conversion {
public:
    Conversion(const ConvertOptions& options_, std::ostream& errors_, bool terminal)
        : options(options_), errors(errors_), from(MapFormatOfEnding(options_.input)),
          to(MapFormatOfEnding(options_.output)), progress(errors_, terminal) {}

    /// The line of statistics.
    std::string Run() {
        OpenSource();
        std::optional<FeatureChoice> choice;
        if (to != nullptr) {
            choice.emplace(options.feature, options.output, source->Columns());
        }
        LinePipeline pipeline(options, *source, choice ? &*choice : nullptr, tally, progress);
        const std::unique_ptr<LineTarget> target = NewTarget(pipeline);
        pipeline.SetTarget(*target);
        source->Read(pipeline);
        target->Finish();
        progress.Clear();
        tally.source = source->losses;
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
            if (IsMetres(from)) {
                sourceZone.emplace(*options.utm, 0.0);
            }
            source = std::make_unique<MapFileSource>(options.input, *from, options.where,
                                                     sourceZone ? &*sourceZone : nullptr);
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

    /// Reads the source once to see what comes.
    void Look(LinePipeline& pipeline, LineLook& look) {
        pipeline.SetTarget(look);
        source->Read(pipeline);
        tally = {};
    }

    void ChooseTargetZone(LinePipeline& pipeline) {
        double northing = 0.0;
        if (!options.utm->Northing) {
            LineLook look;
            Look(pipeline, look);
            onBothSides = look.AnySouth() && look.AnyNorth();
            allSouth = look.AnySouth() && !look.AnyNorth();
            northing = allSouth ? SouthernNorthing : 0.0;
        }
        targetZone.emplace(*options.utm, northing);
    }

    std::unique_ptr<LineTarget> NewTarget(LinePipeline& pipeline) {
        if (to != nullptr) {
            if (IsMetres(to)) {
                ChooseTargetZone(pipeline);
            }
            return std::make_unique<FileTarget>(
                options.output,
                NewMapFileEncoder(options.output, *to, targetZone ? &*targetZone : nullptr, tally),
                options.append ? to : nullptr,
                [this] { Note(options.output + ": waiting for another program that adds to it"); });
        }
        // Which geometries and columns a layer has must be known when it begins.
        LineLook look;
        Look(pipeline, look);
        const VectorFileKind& kind = *VectorFileKindOf(options.output);
        if (kind.driver == nullptr) {
            return std::make_unique<FileTarget>(options.output, NewGeoJsonEncoder(look.mix.labels, tally),
                                                nullptr, [] {});
        }
        return std::make_unique<VectorTarget>(options.output, kind, look.mix, gdalErrors, tally);
    }

    void Note(const std::string& text) const { errors << Program << text << std::endl; }

    void Tell(bool guessedFirst) {
        for (const std::string& warning : gdalErrors.Warnings()) {
            Note(warning);
        }
        if (noReferenceSystem) {
            Note("the coordinates are taken for longitude and latitude, as there is no reference system");
        }
        if (guessedFirst) {
            Note("everything without a row of its own became feature 1, \"" +
                 std::string(FeatureRows(options.output)[0].name) + "\"; --feature chooses another");
        }
        TellNorthings();
        for (const std::string& text : tally.Notes(EndingOfOutput())) {
            Note(text);
        }
    }

    void TellNorthings() const {
        if (!options.utm || options.utm->Northing) {
            return;
        }
        const auto option = [this](const char* northing) {
            return "--utm \"" + NumberWords(options.utm->CentralLon) + "," + options.utm->Spheroid + "," +
                   northing + "\"";
        };
        if (IsMetres(from)) {
            Note("the northings of " + options.input + " are counted from the equator; " +
                 option("10000000") + " is for a zone of the south");
        }
        if (allSouth) {
            Note("the false northing is 10000000 metres, as all lies south of the equator; the map needs "
                 "the same, and " +
                 option("0") + " leaves it out");
        }
        if (onBothSides) {
            Note("northings south of the equator are negative, and no map can show them; " +
                 option("10000000") + " adds a false northing");
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
    std::optional<UtmZone> sourceZone, targetZone; ///< of .utm files
    bool allSouth = false; ///< of the equator; looked for in a zone without a northing
    bool onBothSides = false;
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
