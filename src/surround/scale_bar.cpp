#include "surround/scale_bar.h"

#include "core/distance_units.h"
#include "core/number_text.h"
#include "surround/label_measure.h"
#include "surround/scale_bar_place.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <string>
#include <utility>

namespace quelmont {

namespace {

// Shares of the height of digits.
constexpr double BarHeight = 0.5;
constexpr double GapAboveBar = 0.45;
constexpr double GapBelowBar = 0.6;
constexpr double EdgeGap = 0.9;
constexpr double GapBetweenNumbers = 0.7;
/// Of the map's width, and heights of digits: how long the bar may be, and at least is.
constexpr double LongestShare = 0.25;
constexpr double LongestHeights = 24.0;
constexpr double ShortestHeights = 4.0;
/// From a round length to the next.
constexpr double LargestStep = 2.5;
/// A bar is not longer than the scale is true along it: to less than half a pixel.
constexpr double LargestMiss = 0.4;
/// Twips: lines of the bar, which are as wide as a pixel of 96 dots per inch, and rows that fill a part of
/// it.
constexpr double LineWidth = 15.0;
constexpr double RowStep = 10.0;

double KmOf(ScaleBarUnit unit) {
    switch (unit) {
    case ScaleBarUnit::StatuteMiles:
        return KilometresPerNauticalMile / StatuteMilesPerNauticalMile;
    case ScaleBarUnit::NauticalMiles:
        return KilometresPerNauticalMile;
    default:
        return 1.0;
    }
}

const char* NameOf(ScaleBarUnit unit) {
    switch (unit) {
    case ScaleBarUnit::StatuteMiles:
        return " mi";
    case ScaleBarUnit::NauticalMiles:
        return " nmi";
    default:
        return " km";
    }
}

std::string NumberText(double value) {
    const std::string text = PlainNumber(value);
    return text.starts_with('.') ? "0" + text : text;
}

struct RoundLength {
    double value = 0.0; ///< in the unit of the choice
    int divisions = 0;
};

/// Round lengths, the longest first, up to a limit.
std::vector<RoundLength> RoundLengths(double limit) {
    constexpr int decades = 3;
    constexpr int smallest = -6;
    constexpr int largest = 9;
    std::vector<RoundLength> lengths;
    if (!(limit > 0.0)) {
        return lengths;
    }
    const int exponent = static_cast<int>(std::floor(std::log10(limit)));
    for (int n = std::min(exponent, largest); n > std::max(exponent - decades, smallest); --n) {
        for (const RoundLength& length : {RoundLength{5.0, 5}, {2.0, 4}, {1.0, 4}}) {
            // A power below 1 would not be exact.
            const double value = n < 0 ? length.value / std::pow(10.0, -n) : length.value * std::pow(10.0, n);
            if (value <= limit) {
                lengths.push_back({value, length.divisions});
            }
        }
    }
    return lengths;
}

/// A number over the bar: where its middle is, as a share of the bar.
struct BarNumber {
    double share;
    std::string text;
    double width;    ///< twips
    double whole;    ///< the same with the unit behind the last one
    std::string all; ///< its text with the unit
    double Left(double length) const { return share * length - width / 2.0; }
    double Right(double length) const { return Left(length) + whole; }
};

/// Every division has its number if there is room; or every second one; or the ends.
std::vector<BarNumber> NumbersOf(const RoundLength& round, double length, double gap, ScaleBarUnit unit) {
    for (const int step : {1, 2, round.divisions}) {
        if (round.divisions % step != 0) {
            continue;
        }
        std::vector<BarNumber> numbers;
        bool fits = true;
        for (int i = 0; i <= round.divisions; i += step) {
            BarNumber number{static_cast<double>(i) / round.divisions,
                             NumberText(round.value * i / round.divisions),
                             0.0,
                             0.0,
                             {}};
            number.all = i == round.divisions ? number.text + NameOf(unit) : number.text;
            const std::optional<LabelMeasure> bare = MeasureOf(number.text);
            const std::optional<LabelMeasure> whole = MeasureOf(number.all);
            if (!bare || !whole) {
                return {};
            }
            number.width = bare->width;
            number.whole = whole->width;
            fits = fits && (numbers.empty() || numbers.back().Right(length) + gap <= number.Left(length));
            numbers.push_back(std::move(number));
        }
        if (fits || step == round.divisions) {
            return numbers;
        }
    }
    return {};
}

/// With its numbers above and its words below it.
double HeightOfBar(double letters, double descent) {
    return letters * (1.0 + GapAboveBar + BarHeight + GapBelowBar + 1.0) + descent;
}

/// The bar without its place: all in twips, x from its left end, y from its upper edge, downward.
class BarShape {
public:
    BarShape(const RoundLength& round_, double length_, const LabelMeasure& measure, std::string words_)
        : round(round_), length(length_), letters(measure.letters), descent(measure.descent),
          words(std::move(words_)),
          numbers(NumbersOf(round_, length_, measure.letters * GapBetweenNumbers, Design.Frame.unit)) {
        if (const std::optional<LabelMeasure> sentence = MeasureOf(words)) {
            wordsWidth = sentence->width;
        }
        left = (length - wordsWidth) / 2.0;
        right = (length + wordsWidth) / 2.0;
        for (const BarNumber& number : numbers) {
            left = std::min(left, number.Left(length));
            right = std::max(right, number.Right(length));
        }
    }

    bool IsWhole() const { return !numbers.empty() && wordsWidth > 0.0; }
    double Width() const { return right - left; }
    double Height() const { return HeightOfBar(letters, descent); }
    /// With its box there.
    ScaleBar At(AreaPoint middle, const AreaFit& fit) const;

private:
    double Top() const { return letters * (1.0 + GapAboveBar); } ///< of the bar, below the numbers
    double Bar() const { return letters * BarHeight; }
    static void Add(ScaleBar& bar, const std::string& text, double x, double y);
    void AddStrokes(ScaleBar& bar, const AreaFit& fit) const;

    RoundLength round;
    double length, letters, descent;
    std::string words;
    double wordsWidth = 0.0;
    std::vector<BarNumber> numbers;
    double left = 0.0, right = 0.0; ///< of the whole
};

/// A text whose letters begin at x and stand on y.
void BarShape::Add(ScaleBar& bar, const std::string& text, double x, double y) {
    if (std::optional<TextItem> item = TextItemAt(text, {x, y}, SurroundInk())) {
        bar.texts.push_back(std::move(*item));
    }
}

void BarShape::AddStrokes(ScaleBar& bar, const AreaFit& fit) const {
    const double top = bar.left.y;
    const double bottom = top + Bar();
    const auto place = [&](double x, double y) { return fit.PlaneOf({x, y}); };
    bar.strokes.push_back({{place(bar.left.x, top), place(bar.right.x, top), place(bar.right.x, bottom),
                            place(bar.left.x, bottom)},
                           true,
                           LineWidth});
    const double part = length / round.divisions;
    for (int i = 0; i < round.divisions; ++i) {
        const double from = bar.left.x + i * part;
        const double to = from + part;
        PlaneStroke stroke{{}, false, LineWidth};
        if (i % 2 == 1) {
            continue; // the outline is enough
        }
        // Rows to and fro fill it on every device.
        bool forth = true;
        double y = top;
        while (y < bottom) {
            stroke.points.push_back(place(forth ? from : to, y));
            stroke.points.push_back(place(forth ? to : from, y));
            forth = !forth;
            y += RowStep;
        }
        stroke.points.push_back(place(forth ? from : to, bottom));
        stroke.points.push_back(place(forth ? to : from, bottom));
        bar.strokes.push_back(std::move(stroke));
    }
}

ScaleBar BarShape::At(AreaPoint middle, const AreaFit& fit) const {
    ScaleBar bar;
    bar.box = {.middle = middle, .halfWidth = Width() / 2.0, .halfHeight = Height() / 2.0};
    const double x = middle.x - Width() / 2.0 - left;
    const double y = middle.y - Height() / 2.0;
    bar.left = {x, y + Top()};
    bar.right = {x + length, y + Top()};
    for (const BarNumber& number : numbers) {
        Add(bar, number.all, x + number.Left(length), y + letters);
    }
    Add(bar, words, x + (length - wordsWidth) / 2.0, y + Top() + Bar() + letters * (GapBelowBar + 1.0));
    bar.value = round.value;
    bar.km = round.value * KmOf(Design.Frame.unit);
    AddStrokes(bar, fit);
    return bar;
}

/// Middles of the box in the order in which they are liked.
std::vector<AreaPoint> Spots(const AreaFit& fit, const MapOnArea& map, const BarShape& shape, double gap) {
    const AreaPoint upper = fit.AreaOf({Design.MapXMin, Design.MapYMax});
    const AreaPoint lower = fit.AreaOf({Design.MapXMax, Design.MapYMin});
    const double halfWidth = shape.Width() / 2.0;
    const double halfHeight = shape.Height() / 2.0;
    const double pageLeft = gap + halfWidth;
    const double pageRight = fit.width - gap - halfWidth;
    const double pageTop = gap + halfHeight;
    const double pageBottom = fit.height - gap - halfHeight;
    // Within the corners of the rectangle about the map, then of the drawing area.
    const double left = std::max(pageLeft, upper.x + halfWidth);
    const double right = std::min(pageRight, lower.x - halfWidth);
    const double top = std::max(pageTop, upper.y + halfHeight);
    const double bottom = std::min(pageBottom, lower.y - halfHeight);
    const double below = lower.y + map.reachY + gap + halfHeight;
    const double above = upper.y - map.reachY - gap - halfHeight;
    const double beforeMap = upper.x - map.reachX - gap - halfWidth;
    const double behindMap = lower.x + map.reachX + gap + halfWidth;
    const double middle = (upper.x + lower.x) / 2.0;
    return {{left, bottom},      {right, bottom},        {left, below},           {middle, below},
            {right, below},      {beforeMap, bottom},    {behindMap, bottom},     {left, pageBottom},
            {right, pageBottom}, {pageLeft, pageBottom}, {pageRight, pageBottom}, {left, top},
            {right, top},        {left, pageTop},        {right, pageTop},        {middle, above},
            {pageLeft, pageTop}, {pageRight, pageTop}};
}

bool IsFree(AreaPoint middle, const BarShape& shape, const AreaFit& fit, const MapOnArea& map,
            const std::vector<TextBox>& texts, double gap) {
    const TextBox box{.middle = middle, .halfWidth = shape.Width() / 2.0, .halfHeight = shape.Height() / 2.0};
    const TextBox wide = Widened(box, gap, gap);
    return middle.x - wide.halfWidth >= 0.0 && middle.x + wide.halfWidth <= fit.width &&
           middle.y - wide.halfHeight >= 0.0 && middle.y + wide.halfHeight <= fit.height &&
           map.IsClearOf(box, gap) &&
           std::none_of(texts.begin(), texts.end(), [&](const TextBox& text) { return Overlap(wide, text); });
}

/// The longest bar within a limit in twips that is true for all of its length.
std::optional<RoundLength> LengthWithin(double most, const ScaleBarPlace& place, const AreaFit& fit,
                                        double letters) {
    const double kmOfUnit = KmOf(Design.Frame.unit);
    const double twipsPerUnit = place.unitsPerKm * fit.scale * kmOfUnit;
    for (const RoundLength& round : RoundLengths(most / twipsPerUnit)) {
        if (round.value * twipsPerUnit < letters * ShortestHeights) {
            break;
        }
        const double km = round.value * kmOfUnit;
        const std::optional<double> there =
            place.sameAlongBar ? std::optional(km) : DistanceUnderBar(place, km);
        if (there && std::fabs(*there - km) * place.unitsPerKm * fit.scale <= LargestMiss * fit.pixel) {
            return round;
        }
    }
    return std::nullopt;
}

/// A share of the map's width is enough for most; a narrow map has as much of its width as the shortest round
/// length needs.
std::optional<RoundLength> LengthAt(const ScaleBarPlace& place, const AreaFit& fit, double letters) {
    const double width = (Design.MapXMax - Design.MapXMin) * fit.scale;
    const double usual = std::min(width * LongestShare, letters * LongestHeights);
    const auto round = LengthWithin(usual, place, fit, letters);
    return round
               ? round
               : LengthWithin(std::min(width, letters * ShortestHeights * LargestStep), place, fit, letters);
}

} // namespace

std::optional<double> HeightBelowMap() {
    const std::optional<LabelMeasure> measure = MeasureOf("0");
    return measure ? std::optional(HeightOfBar(measure->letters, measure->descent) +
                                   2.0 * EdgeGap * measure->letters)
                   : std::nullopt;
}

std::optional<ScaleBar> PlanScaleBar(const AreaFit& fit, const MapOnArea& map,
                                     const std::vector<TextBox>& texts, double slack) {
    if (Design.Frame.unit == ScaleBarUnit::None) {
        return std::nullopt;
    }
    const std::optional<ScaleBarPlace> place = PlaceOfScaleBar(Design.Frame.latitude);
    const std::optional<LabelMeasure> measure = place ? MeasureOf(place->words) : std::nullopt;
    const std::optional<RoundLength> round = measure ? LengthAt(*place, fit, measure->letters) : std::nullopt;
    if (!round) {
        return std::nullopt;
    }
    const double length = round->value * KmOf(Design.Frame.unit) * place->unitsPerKm * fit.scale;
    const BarShape shape(*round, length, *measure, place->words);
    if (!shape.IsWhole()) {
        return std::nullopt;
    }
    const double gap = measure->letters * EdgeGap;
    const std::vector<AreaPoint> spots = Spots(fit, map, shape, gap);
    const auto spot = std::find_if(spots.begin(), spots.end(), [&](AreaPoint middle) {
        return IsFree(middle, shape, fit, map, texts, gap - slack);
    });
    return spot == spots.end() ? std::nullopt : std::optional(shape.At(*spot, fit));
}

} // namespace quelmont
