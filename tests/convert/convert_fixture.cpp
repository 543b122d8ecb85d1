#include "convert_fixture.h"

#include "convert/convert_command.h"
#include "core/file_numbers.h"
#include "core/number_text.h"

#include <gmock/gmock.h>

#include <ogrsf_frmts.h>

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <sstream>

namespace quelmont {

namespace {

std::string NineDecimals(double value) {
    std::string text = FormatNumber(value, "0.#########");
    return text.ends_with('.') ? text.substr(0, text.size() - 1) : text;
}

/// Of a line or a point, with nine decimals at most.
std::string PlainWkt(const OGRGeometry& geometry) {
    std::string points;
    const auto add = [&](double x, double y) {
        points += (points.empty() ? "" : ",") + NineDecimals(x) + " " + NineDecimals(y);
    };
    if (wkbFlatten(geometry.getGeometryType()) == wkbPoint) {
        add(geometry.toPoint()->getX(), geometry.toPoint()->getY());
    } else if (wkbFlatten(geometry.getGeometryType()) == wkbLineString) {
        for (const OGRPoint& point : *geometry.toLineString()) {
            add(point.getX(), point.getY());
        }
    } else {
        ADD_FAILURE() << "neither line nor point";
    }
    return std::string(geometry.getGeometryName()) + " (" + points + ")";
}

} // namespace

void PrintTo(const LonLat& point, std::ostream* stream) { *stream << point.Lon << ' ' << point.Lat; }

// Messages name files as they are given: with their folder unless that is the current one.
ConvertTest::ConvertTest() : earlierFolder(std::filesystem::current_path()) {
    std::filesystem::current_path(folder.Path());
}

ConvertTest::~ConvertTest() { std::filesystem::current_path(earlierFolder); }

void ConvertTest::Put(const std::string& name, std::string_view contents) const {
    WriteWholeFile(folder / name, contents);
}

std::string ConvertTest::Get(const std::string& name) const { return ReadWholeFile(folder / name); }

bool ConvertTest::Has(const std::string& name) const { return std::filesystem::exists(folder / name); }

std::vector<std::string> ConvertTest::Names() const {
    std::vector<std::string> names = folder.Names();
    std::sort(names.begin(), names.end());
    return names;
}

Outcome ConvertTest::Run(std::vector<std::string> arguments) const {
    std::ostringstream output;
    std::ostringstream errors;
    const int code = ConvertCommand(arguments, output, errors, false);
    EXPECT_FALSE(IsFileOpen(InputFileNumber));
    EXPECT_FALSE(IsFileOpen(OutputFileNumber));
    return {code, output.str(), errors.str()};
}

void ConvertTest::Convert(std::vector<std::string> arguments) const {
    const Outcome outcome = Run(std::move(arguments));
    EXPECT_EQ(outcome.code, ConvertDone);
    EXPECT_EQ(outcome.output, "");
    EXPECT_EQ(outcome.errors, "");
}

void ConvertTest::ConvertWith(const std::vector<std::string>& notes,
                              std::vector<std::string> arguments) const {
    const Outcome outcome = Run(std::move(arguments));
    EXPECT_EQ(outcome.code, ConvertDone);
    EXPECT_EQ(outcome.output, "");
    std::string expected;
    for (const std::string& note : notes) {
        expected += "quelmont-convert: " + note + "\n";
    }
    EXPECT_EQ(outcome.errors, expected);
}

std::string ConvertTest::Refusal(std::vector<std::string> arguments) const {
    const std::vector<std::string> before = Names();
    const Outcome outcome = Run(std::move(arguments));
    EXPECT_EQ(outcome.code, ConvertFailed);
    EXPECT_EQ(outcome.output, "");
    EXPECT_EQ(Names(), before);
    const std::string program = "quelmont-convert: ";
    EXPECT_THAT(outcome.errors, testing::StartsWith(program));
    return outcome.errors.substr(program.size(), outcome.errors.size() - program.size() - 1);
}

std::vector<std::string> ConvertTest::Features(const std::string& name) const {
    GDALAllRegister();
    const GDALDatasetUniquePtr dataset(GDALDataset::Open((folder / name).c_str(), GDAL_OF_VECTOR));
    std::vector<std::string> features;
    if (!dataset) {
        ADD_FAILURE() << "GDAL cannot read " << name;
        return features;
    }
    for (const auto& feature : *dataset->GetLayer(0)) {
        std::string text;
        for (int i = 0; i < feature->GetFieldCount(); ++i) {
            text += std::string(feature->GetFieldAsString(i)) + "|";
        }
        features.push_back(text + PlainWkt(*feature->GetGeometryRef()));
    }
    return features;
}

std::string Collection(const std::string& features) {
    return R"({"type":"FeatureCollection","features":[)" + features + "]}";
}

std::string Feature(const std::string& properties, const std::string& geometry) {
    return R"({"type":"Feature","properties":{)" + properties + R"(},"geometry":{)" + geometry + "}}";
}

std::string LineFeature(const std::string& properties, const std::string& points) {
    return Feature(properties, R"("type":"LineString","coordinates":[)" + points + "]");
}

std::string PointFeature(const std::string& properties, const std::string& point) {
    return Feature(properties, R"("type":"Point","coordinates":)" + point);
}

std::string Bytes(std::string_view pairs) {
    std::string bytes;
    std::istringstream words{std::string(pairs)};
    for (std::string word; words >> word;) {
        bytes += static_cast<char>(std::strtol(word.c_str(), nullptr, 16));
    }
    return bytes;
}

std::string Pairs(std::string_view bytes) {
    constexpr std::string_view digits = "0123456789ABCDEF";
    std::string pairs;
    for (const char c : bytes) {
        const auto byte = static_cast<unsigned char>(c);
        pairs += pairs.empty() ? "" : " ";
        pairs += digits[byte / 16U];
        pairs += digits[byte % 16U];
    }
    return pairs;
}

} // namespace quelmont
