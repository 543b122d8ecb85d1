#include "convert/huge_text.h"

#include "convert/json_meter.h"
#include "convert/map_line.h"

#include <cpl_vsi.h>
#include <gdal_priv.h>

#include <memory>
#include <string_view>

namespace quelmont {

namespace {

struct FileCloser {
    void operator()(VSILFILE* file) const { VSIFCloseL(file); }
};

/// Measures the line that is being read.
class LineMeter {
public:
    void Take(std::string_view text) {
        const std::size_t lineEnd = text.find_last_of("\r\n");
        held = lineEnd == std::string_view::npos ? held + text.size() : text.size() - lineEnd - 1;
    }
    std::size_t Held() const { return held; }

private:
    std::size_t held = 0;
};

template <typename Meter>
bool IsTooMuch(VSILFILE& file, std::string& block) {
    Meter meter;
    while (const std::size_t count = VSIFReadL(block.data(), 1, block.size(), &file)) {
        meter.Take(std::string_view(block).substr(0, count));
        if (meter.Held() > MaxTextFeature) {
            return true;
        }
    }
    return false;
}

bool IsText(VSILFILE& file, std::string& block) {
    const std::size_t count = VSIFReadL(block.data(), 1, block.size(), &file);
    VSIFSeekL(&file, 0, SEEK_SET);
    return std::string_view(block).substr(0, count).find('\0') == std::string_view::npos;
}

/// Whether GDAL takes the features of this file one by one, if it is a collection of them.
bool IsGeoJson(const std::string& name) {
    auto* const driver = GDALIdentifyDriverEx(name.c_str(), GDAL_OF_VECTOR, nullptr, nullptr);
    return driver != nullptr && std::string_view(GDALGetDescription(driver)) == "GeoJSON";
}

} // namespace

void RefuseHugeText(const std::string& name) {
    VSIStatBufL facts;
    if (VSIStatL(name.c_str(), &facts) != 0 || !VSI_ISREG(facts.st_mode) ||
        static_cast<std::size_t>(facts.st_size) <= MaxTextFeature) {
        return;
    }
    const std::unique_ptr<VSILFILE, FileCloser> file(VSIFOpenL(name.c_str(), "rb"));
    constexpr std::size_t blockSize = std::size_t{64} * 1024;
    std::string block(blockSize, ' ');
    if (!file || !IsText(*file, block)) {
        return;
    }
    const std::string most = std::to_string(MaxTextFeature / 1024 / 1024) + " MB";
    if (IsGeoJson(name)) {
        if (IsTooMuch<JsonMeter>(*file, block)) {
            throw ConvertError(name + ": there is a feature of more than " + most +
                               " in it, too much to read at once");
        }
    } else if (IsTooMuch<LineMeter>(*file, block)) {
        throw ConvertError(name + ": there is a line of more than " + most +
                           " in it, too much to read at once");
    }
}

} // namespace quelmont
