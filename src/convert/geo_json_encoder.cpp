#include "convert/geo_json_encoder.h"

#include <array>
#include <charconv>
#include <string_view>

namespace quelmont {

namespace {

/// A string of JSON; null for an empty one.
std::string JsonText(std::string_view text) {
    if (text.empty()) {
        return "null";
    }
    constexpr std::string_view digits = "0123456789abcdef";
    std::string json = "\"";
    for (const char c : text) {
        const auto byte = static_cast<unsigned char>(c);
        if (c == '"' || c == '\\') {
            json += '\\';
            json += c;
        } else if (byte < ' ') {
            json += "\\u00";
            json += digits[byte / 16U];
            json += digits[byte % 16U];
        } else {
            json += c;
        }
    }
    return json + '"';
}

void AppendCoordinate(std::string& json, double value) {
    std::array<char, 32> text;
    const auto result = std::to_chars(text.data(), text.data() + text.size(), value);
    json.append(text.data(), result.ptr);
}

void AppendPoint(std::string& json, const LonLat& point) {
    json += '[';
    AppendCoordinate(json, point.Lon);
    json += ',';
    AppendCoordinate(json, point.Lat);
    json += ']';
}

class GeoJsonEncoder : public LineEncoder {
public:
    GeoJsonEncoder(bool hasLabels_, ConvertTally& tally_) : hasLabels(hasLabels_), tally(tally_) {}

    void Begin(bool /*isEmpty*/, ByteSink& bytes) override {
        bytes.Append(std::string_view(R"({"type":"FeatureCollection","features":[)"));
    }

    void Encode(const TargetFeature& feature, MapLine& line, ByteSink& bytes) override {
        std::string json = begun ? ",\n" : "\n";
        begun = true;
        json += R"({"type":"Feature","properties":{"feature":)" + std::to_string(feature.Number) +
                R"(,"name":)" + JsonText(feature.Name);
        if (hasLabels) {
            json += R"(,"label":)" + JsonText(feature.Label);
        }
        json += R"(},"geometry":{"type":")";
        json += line.size() == 1 ? R"(Point","coordinates":)" : R"(LineString","coordinates":[)";
        AppendPoint(json, line.front());
        for (std::size_t i = 1; i < line.size(); ++i) {
            json += ',';
            AppendPoint(json, line[i]);
            bytes.Append(json);
            json.clear();
        }
        json += line.size() == 1 ? "}}" : "]}}";
        bytes.Append(json);
        tally.Count(feature.Number, feature.Name, 1, static_cast<std::int64_t>(line.size()));
    }

    void End(ByteSink& bytes) override { bytes.Append(std::string_view("\n]}\n")); }

private:
    bool hasLabels;
    bool begun = false; ///< a feature stands before the next one
    ConvertTally& tally;
};

} // namespace

std::unique_ptr<LineEncoder> NewGeoJsonEncoder(bool hasLabels, ConvertTally& tally) {
    return std::make_unique<GeoJsonEncoder>(hasLabels, tally);
}

} // namespace quelmont
