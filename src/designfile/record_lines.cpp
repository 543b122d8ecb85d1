#include "designfile/record_lines.h"

#include "core/print_layer.h"
#include "core/rounding.h"
#include "core/run_time_error.h"
#include "core/text_encoding.h"

#include <cmath>
#include <limits>
#include <string_view>

namespace quelmont {

namespace {

constexpr const char* LineEnd = "\r\n";

/// Whole numbers without a comma behind them at the end of a line of styles.
constexpr std::size_t StylesWithoutComma = 3;

std::string PrintForm(std::int32_t number) {
    std::string text;
    AddItem(text, number);
    return text;
}

void TestText(std::string_view text) {
    if (!FitsLine(text)) {
        throw RunTimeError(ErrorInvalidCall);
    }
}

// ---- Writing.

/// A value as text, numbers in spaced or in print form.
struct Writer {
    bool spaced;

    std::string Number(std::int32_t number) const { return spaced ? SpacedText(number) : PrintForm(number); }

    std::string operator()(const std::int16_t* value) const { return Number(*value); }
    std::string operator()(const std::int32_t* value) const { return Number(*value); }
    std::string operator()(const ColorValue* value) const { return Number(RoundToInt32(*value)); }
    std::string operator()(const bool* value) const { return Number(*value ? -1 : 0); }
    std::string operator()(const float* value) const { return SpacedText(*value); }
    std::string operator()(const double* value) const { return SpacedText(*value); }
    std::string operator()(const WholeTwips& twips) const { return Number(RoundToInt16(*twips.width)); }
    std::string operator()(const std::string* text) const {
        TestText(*text);
        return ToUtf8(*text); // one text in another encoding would have the whole file read in it
    }
    std::string operator()(const ShownText& shown) const { return (*this)(&shown.text); }
};

/// The values with a separator between them.
std::string Joined(const std::vector<std::string>& values, std::string_view separator) {
    std::string line;
    for (const std::string& value : values) {
        if (&value != &values.front()) {
            line += separator;
        }
        line += value;
    }
    return line;
}

std::string ZonesOf(const std::vector<std::string>& values) {
    std::string line;
    for (const std::string& value : values) {
        if (&value != &values.front()) {
            AddItem(line, NextZone{});
        }
        line += value;
    }
    return line;
}

std::string StylesOf(const std::vector<std::string>& values) {
    std::string line;
    for (std::size_t i = 0; i < values.size(); ++i) {
        line += values[i];
        if (i + StylesWithoutComma < values.size()) {
            line += ',';
        }
    }
    return line;
}

// ---- Reading.

void TestNumber(const Field& field, double number) {
    if (number < field.least || number > field.most ||
        (field.acceptsNumber != nullptr && !field.acceptsNumber(number))) {
        throw RunTimeError(ErrorInvalidCall);
    }
}

/// Takes the text of a value: tests it, and stores it when it is asked to.
struct Taker {
    const Field& field;
    std::string_view item;
    bool store;

    template <typename Type>
    void Whole(Type& place, std::int32_t number) const {
        TestNumber(field, number);
        if (store) {
            place = static_cast<Type>(number);
        }
    }
    void operator()(std::int16_t* place) const { Whole(*place, RoundToInt16(NumberOf(item))); }
    void operator()(std::int32_t* place) const { Whole(*place, RoundToInt32(NumberOf(item))); }
    void operator()(ColorValue* place) const { Whole(*place, RoundToInt32(NumberOf(item))); }
    void operator()(bool* place) const { Whole(*place, RoundToInt16(NumberOf(item)) == 0 ? 0 : 1); }
    void operator()(const WholeTwips& twips) const { Whole(*twips.width, RoundToInt16(NumberOf(item))); }

    void operator()(float* place) const {
        const double number = NumberOf(item);
        if (std::fabs(number) > static_cast<double>(std::numeric_limits<float>::max())) {
            throw RunTimeError(ErrorOverflow);
        }
        TestNumber(field, number);
        if (store) {
            *place = static_cast<float>(number);
        }
    }
    void operator()(double* place) const {
        const double number = NumberOf(item);
        TestNumber(field, number);
        if (store) {
            *place = number;
        }
    }
    void operator()(std::string* place) const {
        TestText(item);
        if (field.acceptsText != nullptr && !field.acceptsText(item)) {
            throw RunTimeError(ErrorInvalidCall);
        }
        if (store) {
            *place = item;
        }
    }
    void operator()(const ShownText& /*shown*/) const {}
};

std::vector<std::string_view> TakeLines(LineReader& lines, std::size_t count) {
    std::vector<std::string_view> taken(count);
    for (std::string_view& line : taken) {
        line = lines.Next();
    }
    return taken;
}

std::vector<std::string_view> TakeItems(LineReader& lines, LineKind kind, std::size_t count) {
    switch (kind) {
    case LineKind::Text:
        return TakeLines(lines, count);
    case LineKind::Quoted:
        return {Unquoted(lines.Next())};
    case LineKind::LeftList:
        return ItemsFromLeft(lines.Next(), count);
    case LineKind::RightList:
        return ItemsFromRight(lines.Next(), count);
    case LineKind::Numbers:
    case LineKind::Spaced:
    case LineKind::Styles:
    case LineKind::Zones:
        break;
    }
    return NumberItems(lines.Next(), count);
}

void TakeAll(const FieldList& fields, const std::vector<std::string_view>& items, bool store) {
    for (std::size_t i = 0; i < fields.size(); ++i) {
        std::visit(Taker{fields[i], items[i], store}, fields[i].place);
    }
}

} // namespace

void WriteRecord(std::string& lines, const Record& record, DesignFile& file, std::size_t index) {
    std::vector<std::string> values;
    for (const Field& field : record.fields(file, index)) {
        values.push_back(std::visit(Writer{record.kind == LineKind::Spaced}, field.place));
    }
    switch (record.kind) {
    case LineKind::Text:
        for (const std::string& value : values) {
            lines += value + LineEnd;
        }
        return;
    case LineKind::Quoted:
        lines += Quoted(values.front());
        break;
    case LineKind::Numbers:
        lines += Joined(values, "");
        break;
    case LineKind::Spaced:
        lines += Joined(values, SpacedGap);
        break;
    case LineKind::LeftList:
    case LineKind::RightList:
        lines += Joined(values, ",");
        break;
    case LineKind::Styles:
        lines += StylesOf(values);
        break;
    case LineKind::Zones:
        lines += ZonesOf(values);
        break;
    }
    lines += LineEnd;
}

void ReadRecord(LineReader& lines, const Record& record, DesignFile& file, std::size_t index) {
    const FieldList fields = record.fields(file, index);
    const std::vector<std::string_view> items = TakeItems(lines, record.kind, fields.size());
    TakeAll(fields, items, false);
    TakeAll(fields, items, true);
}

} // namespace quelmont
