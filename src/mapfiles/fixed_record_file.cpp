#include "mapfiles/fixed_record_file.h"

#include "core/rounding.h"
#include "core/run_time_error.h"
#include "mapfiles/text_items.h"

#include <cstdlib>
#include <string_view>

namespace quelmont {

namespace {

/// The number in positions counted from 1.
double NumberAt(const FixedRecord& record, std::size_t first, std::size_t last) {
    return MapNumberOf(std::string_view(record.data() + first - 1, last - first + 1));
}

FixedRecord Blank() {
    FixedRecord record;
    record.fill(' ');
    return record;
}

void PutNumber(FixedRecord& record, std::size_t first, std::size_t last, std::int32_t number) {
    for (std::size_t position = last; position >= first; --position) {
        record[position - 1] = static_cast<char>('0' + number % 10);
        number /= 10;
    }
    if (number != 0) {
        throw RunTimeError(ErrorOverflow);
    }
}

void PutLineEnd(FixedRecord& record) {
    record[18] = '\r';
    record[19] = '\n';
}

} // namespace

FixedRecordPoint DecodeFixedRecordPoint(const FixedRecord& record) {
    const std::int32_t lat = RoundToInt32(NumberAt(record, 1, 2) * 3600.0 + NumberAt(record, 3, 4) * 60.0 +
                                          NumberAt(record, 5, 6));
    const std::int32_t lon = RoundToInt32(NumberAt(record, 8, 10) * 3600.0 + NumberAt(record, 11, 12) * 60.0 +
                                          NumberAt(record, 13, 14));
    return {record[6] == 'S' ? -lat : lat, record[14] == 'W' ? -lon : lon};
}

FixedRecord EncodeFixedRecordPoint(const FixedRecordPoint& point) {
    FixedRecord record = Blank();
    const std::int32_t lat = std::abs(point.Lat);
    const std::int32_t lon = std::abs(point.Lon);
    PutNumber(record, 1, 2, lat / 3600);
    PutNumber(record, 3, 4, lat / 60 % 60);
    PutNumber(record, 5, 6, lat % 60);
    record[6] = point.Lat < 0 ? 'S' : 'N';
    PutNumber(record, 8, 10, lon / 3600);
    PutNumber(record, 11, 12, lon / 60 % 60);
    PutNumber(record, 13, 14, lon % 60);
    record[14] = point.Lon < 0 ? 'W' : 'E';
    PutLineEnd(record);
    return record;
}

FixedRecord EncodeFixedRecordBreak() {
    FixedRecord record = Blank();
    PutLineEnd(record);
    return record;
}

LineGraphHeader DecodeLineGraphHeader(const FixedRecord& record) {
    return {RoundToInt32(100.0 * NumberAt(record, 19, 20) + NumberAt(record, 8, 9)),
            RoundToInt32(NumberAt(record, 10, 15))};
}

FixedRecord EncodeLineGraphHeader(const LineGraphHeader& header) {
    if (header.Code < 0 || header.Count < 0) {
        throw RunTimeError(ErrorOverflow);
    }
    FixedRecord record = Blank();
    PutNumber(record, 8, 9, header.Code % 100);
    PutNumber(record, 10, 15, header.Count);
    PutNumber(record, 19, 20, header.Code / 100);
    return record;
}

} // namespace quelmont
