#include "platform/masked_text.h"

#include "platform/characters.h"

#include <algorithm>
#include <iterator>
#include <vector>

namespace quelmont {

namespace {

std::string DigitsOf(std::string_view text) {
    std::string digits;
    std::copy_if(text.begin(), text.end(), std::back_inserter(digits), IsDigit);
    return digits;
}

/// Splits a text into runs of digits and runs of letters; any other character separates them.
std::vector<std::string> GroupsOf(std::string_view text) {
    std::vector<std::string> groups;
    char before = ' ';
    for (const char c : text) {
        if (IsDigit(c) || IsLetter(c)) {
            if (IsDigit(c) ? IsDigit(before) : IsLetter(before)) {
                groups.back() += c;
            } else {
                groups.emplace_back(1, c);
            }
        }
        before = c;
    }
    return groups;
}

} // namespace

MaskedText::MaskedText(std::string_view mask_) : mask(mask_), text(mask_) {
    std::replace(text.begin(), text.end(), '%', '0');
    std::replace(text.begin(), text.end(), '?', ' ');
}

std::string MaskedText::BareDigits() const { return DigitsOf(text); }

bool MaskedText::HasColumnsOf(std::string_view newText) const {
    if (newText.size() < mask.size()) {
        return false;
    }
    for (std::size_t column = 0; column < mask.size(); ++column) {
        const char c = newText[column];
        if (mask[column] == '%'   ? !IsDigit(c)
            : mask[column] == '?' ? !IsLetter(c) && c != ' '
                                  : c != mask[column]) {
            return false;
        }
    }
    return true;
}

void MaskedText::TakeDigits(std::string_view digits, std::size_t first, std::size_t last, bool alignLeft) {
    std::vector<std::size_t> places;
    for (std::size_t column = first; column < last; ++column) {
        if (mask[column] == '%') {
            places.push_back(column);
        }
    }
    const std::size_t count = std::min(places.size(), digits.size());
    for (std::size_t k = 0; k < count; ++k) {
        if (alignLeft) {
            text[places[k]] = digits[k];
        } else {
            text[places[places.size() - 1 - k]] = digits[digits.size() - 1 - k];
        }
    }
}

void MaskedText::SetText(std::string_view newText) {
    if (HasColumnsOf(newText)) {
        text = newText.substr(0, mask.size());
        return;
    }
    text = MaskedText(mask).text;
    if (IsAngle() && TakeGroups(newText)) {
        return;
    }
    const std::size_t point = mask.find('.');
    if (point == std::string::npos) {
        TakeDigits(DigitsOf(newText), 0, mask.size(), false);
    } else {
        const std::size_t newPoint = std::min(newText.find('.'), newText.size());
        TakeDigits(DigitsOf(newText.substr(0, newPoint)), 0, point, false);
        TakeDigits(DigitsOf(newText.substr(newPoint)), point, mask.size(), true);
    }
    const std::size_t place = mask.find('?');
    const auto letter = std::find_if(newText.rbegin(), newText.rend(), IsLetter);
    if (place != std::string::npos && letter != newText.rend()) {
        text[place] = Capital(*letter);
    }
}

std::size_t MaskedText::PlaceFrom(std::size_t column) const {
    while (column < mask.size() && !IsPlace(column)) {
        ++column;
    }
    return std::min(column, mask.size());
}

std::size_t MaskedText::PlaceBefore(std::size_t column) const {
    std::size_t place = std::min(column, mask.size());
    while (place > 0) {
        if (IsPlace(--place)) {
            return place;
        }
    }
    return 0;
}

bool MaskedText::Type(std::size_t& cursor, char character) {
    std::size_t place = PlaceFrom(cursor);
    if (character == ' ' || character == '.' || character == ',') {
        if (place > 0 && !IsPlace(place - 1)) {
            return true; // the last digit of the group before has moved the cursor on
        }
        while (place < mask.size() && IsPlace(place)) {
            ++place;
        }
        cursor = PlaceFrom(place);
        return true;
    }
    if (IsLetter(character)) {
        place = mask.find('?');
    } else if (!IsDigit(character) || place == mask.size() || mask[place] != '%') {
        return false;
    }
    if (place >= mask.size()) {
        return false;
    }
    text[place] = Capital(character);
    cursor = PlaceFrom(place + 1);
    return true;
}

void MaskedText::Erase(std::size_t first, std::size_t last) {
    for (std::size_t column = first; column < std::min(last, mask.size()); ++column) {
        if (mask[column] == '%') {
            text[column] = '0';
        }
    }
}

bool MaskedText::TakeGroups(std::string_view newText) {
    const std::vector<std::string> groups = GroupsOf(newText);
    std::string result = text;
    std::size_t next = 0;
    for (std::size_t column = PlaceFrom(0); column < mask.size(); column = PlaceFrom(column)) {
        const std::size_t begin = column;
        while (column < mask.size() && mask[column] == mask[begin]) {
            ++column;
        }
        if (next == groups.size() || groups[next].size() > column - begin ||
            IsDigit(groups[next].front()) != (mask[begin] == '%')) {
            return false;
        }
        std::string group = groups[next++];
        group.insert(0, column - begin - group.size(), '0');
        std::transform(group.begin(), group.end(), group.begin(), Capital);
        result.replace(begin, group.size(), group);
    }
    if (next != groups.size()) {
        return false;
    }
    text = result;
    return true;
}

} // namespace quelmont
