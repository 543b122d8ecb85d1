#pragma once

#include "convert/line_source.h"
#include "convert/utm_zone.h"
#include "mapfiles/map_formats.h"

#include <ogr_feature.h>
#include <ogrsf_frmts.h>

#include <cstdint>
#include <memory>
#include <optional>
#include <string>

namespace quelmont {

class ByteReader;

/// One of the program's own map files: a feature for each line, with the columns feature and name, and
/// label in a file that has labels. It is read under file number 1.
///
/// A label that stands behind the first point of a line becomes a feature of its own, a single point.
/// Lines of a rank or code that means nothing are left out.
class MapFileSource : public LineSource {
public:
    /// The zone is that of a .utm file. ConvertError when the file cannot be opened or the expression is
    /// none.
    MapFileSource(std::string name, const MapFormat& format, const std::optional<std::string>& where,
                  const UtmZone* zone);

    OGRFeatureDefn& Columns() override { return *columns; }
    /// ConvertError with the place in the file where it fails: an end within a record, a number that is too
    /// large, a label without an end.
    void Read(LineReceiver& receiver) override;
    double Share() const override;

    /// Bytes up to the end of the last whole record, after Read; more may follow it where a reader takes
    /// that for the end of the file.
    std::int64_t WholeBytes() const { return wholeBytes; }

private:
    class LineCollector;
    struct Release {
        void operator()(OGRFeatureDefn* defn) const { defn->Release(); }
    };

    template <typename Records>
    bool Next(Records& records, const ByteReader& bytes);
    void ReadMinuteGrid(ByteReader& bytes, LineCollector& lines);
    void ReadPacked(ByteReader& bytes, LineCollector& lines);
    void ReadFixedRecords(ByteReader& bytes, LineCollector& lines);
    void ReadWorldText(ByteReader& bytes, LineCollector& lines);
    void ReadWorldFloats(ByteReader& bytes, LineCollector& lines);
    void ReadAscii(ByteReader& bytes, LineCollector& lines);
    void ReadRecords(ByteReader& bytes, LineCollector& lines);

    std::string name;
    const MapFormat& format;
    const UtmZone* zone;
    std::unique_ptr<OGRFeatureDefn, Release> columns;
    std::unique_ptr<OGRFeatureQuery> filter; ///< none for all
    std::int64_t size = 0;
    std::int64_t wholeBytes = 0;
    std::int64_t recordAt = 0; ///< of the record that is read
};

} // namespace quelmont
