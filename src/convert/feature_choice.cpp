#include "convert/feature_choice.h"

#include "convert/line_source.h"
#include "core/file_names.h"
#include "mapfiles/feature_rows.h"

#include <charconv>
#include <cmath>
#include <cstddef>
#include <span>

namespace quelmont {

namespace {

/// Capitals, single blanks between words.
std::string NormalizedName(std::string_view name) {
    std::string plain;
    for (const char c : Capitals(name)) {
        const bool blank = c == ' ' || c == '\t';
        if (!blank) {
            plain += c;
        } else if (!plain.empty() && plain.back() != ' ') {
            plain += ' ';
        }
    }
    if (plain.ends_with(' ')) {
        plain.pop_back();
    }
    return plain;
}

std::string RowList(const std::string& mapFile) {
    std::string list = "the features of " + ParseFileName(mapFile).title + " are";
    int row = 0;
    for (const FeatureRow& each : FeatureRows(mapFile)) {
        list += "\n  " + std::to_string(++row) + "  " + std::string(each.name);
    }
    return list;
}

std::optional<std::int16_t> RowOfNumber(double number, const std::string& mapFile) {
    const auto rows = static_cast<double>(FeatureRows(mapFile).size());
    return number >= 1.0 && number <= rows && number == std::floor(number)
               ? std::optional(static_cast<std::int16_t>(number))
               : std::nullopt;
}

/// The row of a text, which is a number or a name.
std::optional<std::int16_t> RowOfText(const std::string& text, const std::string& mapFile) {
    const std::string plain = NormalizedName(text);
    int number = 0;
    const auto [end, error] = std::from_chars(plain.data(), plain.data() + plain.size(), number);
    if (error == std::errc() && end == plain.data() + plain.size()) {
        return RowOfNumber(number, mapFile);
    }
    return RowOfName(text, mapFile);
}

bool IsNumeric(OGRFieldType type) { return type == OFTInteger || type == OFTInteger64 || type == OFTReal; }

} // namespace

std::optional<std::int16_t> RowOfName(std::string_view name, std::string_view mapFile) {
    const std::string wanted = NormalizedName(name);
    std::int16_t row = 0;
    for (const FeatureRow& each : FeatureRows(mapFile)) {
        ++row;
        if (NormalizedName(each.name) == wanted) {
            return row;
        }
    }
    return std::nullopt;
}

int ColumnOf(OGRFeatureDefn& columns, const std::string& name, const std::string& option) {
    const int index = columns.GetFieldIndex(name.c_str());
    if (index >= 0) {
        return index;
    }
    std::string names;
    for (int i = 0; i < columns.GetFieldCount(); ++i) {
        names += (i == 0 ? "" : ", ") + std::string(columns.GetFieldDefn(i)->GetNameRef());
    }
    throw ConvertError(option + ": there is no column \"" + name + "\"; " +
                       (names.empty() ? "there are none" : "there are " + names));
}

bool HasMapFileColumns(OGRFeatureDefn& columns) {
    const int number = columns.GetFieldIndex(FeatureColumn);
    const int name = columns.GetFieldIndex(NameColumn);
    const int expected = columns.GetFieldIndex(LabelColumn) >= 0 ? 3 : 2;
    return number >= 0 && name >= 0 && columns.GetFieldCount() == expected &&
           IsNumeric(columns.GetFieldDefn(number)->GetType()) &&
           columns.GetFieldDefn(name)->GetType() == OFTString;
}

FeatureChoice::FeatureChoice(const std::optional<std::string>& wanted, const std::string& mapFile_,
                             OGRFeatureDefn& columns)
    : mapFile(mapFile_), manyRows(FeatureRows(mapFile_).size() > 1) {
    if (wanted && wanted->starts_with('@')) {
        column = ColumnOf(columns, wanted->substr(1), "--feature");
        return;
    }
    if (wanted) {
        const std::optional<std::int16_t> row = RowOfText(*wanted, mapFile);
        if (!row) {
            throw ConvertError("--feature: there is no \"" + *wanted + "\"; " + RowList(mapFile));
        }
        fixed = *row;
        return;
    }
    if (!manyRows) {
        fixed = 1;
        return;
    }
    const int number = columns.GetFieldIndex(FeatureColumn);
    const int name = columns.GetFieldIndex(NameColumn);
    if (number >= 0 && name >= 0 && IsNumeric(columns.GetFieldDefn(number)->GetType()) &&
        columns.GetFieldDefn(name)->GetType() == OFTString) {
        nameColumn = name;
    }
}

std::int16_t FeatureChoice::RowOf(const OGRFeature& feature) {
    if (fixed != 0) {
        return fixed;
    }
    if (column < 0) {
        return RowByName(feature);
    }
    const std::string title = feature.GetFieldDefnRef(column)->GetNameRef();
    if (!feature.IsFieldSetAndNotNull(column)) {
        throw BadFeature("the column " + title + " is empty and tells no row");
    }
    const std::optional<std::int16_t> row = IsNumeric(feature.GetFieldDefnRef(column)->GetType())
                                                ? RowOfNumber(feature.GetFieldAsDouble(column), mapFile)
                                                : RowOfText(feature.GetFieldAsString(column), mapFile);
    if (!row) {
        throw BadFeature("the column " + title + " tells \"" + feature.GetFieldAsString(column) + "\"; " +
                         RowList(mapFile));
    }
    return *row;
}

std::int16_t FeatureChoice::RowByName(const OGRFeature& feature) {
    if (nameColumn >= 0) {
        if (!feature.IsFieldSetAndNotNull(nameColumn)) {
            return 0;
        }
        const std::string name = feature.GetFieldAsString(nameColumn);
        if (const std::optional<std::int16_t> row = RowOfName(name, mapFile)) {
            return *row;
        }
        if (name != feature_rows::WholeFile[0].name) {
            throw BadFeature("\"" + name + "\" is no feature of " + ParseFileName(mapFile).title +
                             "; --feature chooses one");
        }
    }
    guessed = true;
    return 1;
}

} // namespace quelmont
