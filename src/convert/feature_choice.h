#pragma once

#include <ogr_feature.h>

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace quelmont {

/// The row of a map file's features by its name, letters in any case and runs of blanks as one; nothing
/// for a name of no row.
std::optional<std::int16_t> RowOfName(std::string_view name, std::string_view mapFile);

/// Which row of a map file's features each feature of a source becomes.
class FeatureChoice {
public:
    /// wanted is the value of --feature: a number, a name, "@" and a column of the source; without it the
    /// source's own columns of a map file name the row; failing these, all become row 1.
    /// ConvertError for a row or column that is not there.
    FeatureChoice(const std::optional<std::string>& wanted, const std::string& mapFile,
                  OGRFeatureDefn& columns);

    /// 0 for a feature whose row had no name: nothing is known of it. BadFeature when its column names no
    /// row of the map file.
    std::int16_t RowOf(const OGRFeature& feature);

    /// Whether a feature became row 1 only because nothing named its row, where there are others.
    bool GuessedFirst() const { return guessed && manyRows; }

private:
    std::int16_t RowByName(const OGRFeature& feature);

    std::string mapFile;
    bool manyRows = false;
    bool guessed = false;
    std::int16_t fixed = 0; ///< the row of all, or 0
    int column = -1;        ///< holds the number or the name
    int nameColumn = -1;    ///< of a map file
};

/// Whether these are the columns of a map file, or of what was made from one: feature, a number, and
/// name, perhaps label, and no more.
bool HasMapFileColumns(OGRFeatureDefn& columns);

/// The index of a column; ConvertError that lists the columns when it is not there.
int ColumnOf(OGRFeatureDefn& columns, const std::string& name, const std::string& option);

} // namespace quelmont
