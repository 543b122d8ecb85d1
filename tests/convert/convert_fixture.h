#pragma once

#include "convert/map_line.h"
#include "support/temporary_folder.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <iosfwd>
#include <string>
#include <string_view>
#include <vector>

namespace quelmont {

void PrintTo(const LonLat& point, std::ostream* stream);

/// How a run of quelmont-convert ended.
struct Outcome {
    int code = -1;
    std::string output;
    std::string errors;
};

/// A folder with files, in which conversions run. Names of files are those in the folder.
class ConvertTest : public testing::Test {
protected:
    ConvertTest();
    ~ConvertTest() override;

    void Put(const std::string& name, std::string_view contents) const;
    std::string Get(const std::string& name) const;
    bool Has(const std::string& name) const;
    /// What is in the folder, in the order of the alphabet.
    std::vector<std::string> Names() const;

    /// Runs in the folder. No file stays open.
    Outcome Run(std::vector<std::string> arguments) const;
    /// Run, which must end well and in silence.
    void Convert(std::vector<std::string> arguments) const;
    /// Run, which must end well and tell these notes and no others; without the program's name.
    void ConvertWith(const std::vector<std::string>& notes, std::vector<std::string> arguments) const;
    /// Run, which must fail, write nothing to its output, and leave the folder as it was. Gives what it
    /// told, without the program's name and the line end.
    std::string Refusal(std::vector<std::string> arguments) const;

    /// What GDAL reads from a file: a line for each feature, its columns and its geometry, a line or
    /// a point, as "a|b|POINT (1 2)" with nine decimals at most.
    std::vector<std::string> Features(const std::string& name) const;

    TemporaryFolder folder;

private:
    std::filesystem::path earlierFolder;
};

/// A GeoJSON feature collection of the features given, commas between them.
std::string Collection(const std::string& features);
/// One of its features; properties and geometry without their outer braces.
std::string Feature(const std::string& properties, const std::string& geometry);
/// The same of a line and of a point: "[10,50],[11,51]".
std::string LineFeature(const std::string& properties, const std::string& points);
std::string PointFeature(const std::string& properties, const std::string& point);

/// Bytes from hexadecimal pairs, blanks between them.
std::string Bytes(std::string_view pairs);
/// And back.
std::string Pairs(std::string_view bytes);

} // namespace quelmont
