#pragma once

#include "core/map_file_entry.h"
#include "core/run_time_error.h"

#include <array>
#include <cstddef>
#include <cstdint>

/// The codes of the features of digital line graphs: a number in text files (.grf), a byte in packed
/// ones (.grv).

namespace quelmont {

/// Codes of one row of the features that follow one another in both kinds of files.
struct LineGraphCodes {
    std::int16_t feature; ///< row of the line-graph features
    std::int16_t textFirst, textLast;
    std::int16_t byteFirst, byteLast;
};

// clang-format off
constexpr std::array LineGraphCodeTable = std::to_array<LineGraphCodes>({
    // row  .grf code     .grv byte
    { 1,  3001, 3001,     2,   2},
    { 2,  3002, 3002,     3,   3},
    { 3,  3003, 3004,     4,   5},
    { 4,  3005, 3009,     6,  10},
    { 5,  3010, 3015,    11,  16},
    { 6,  3016, 3016,    17,  17},
    { 7,  3017, 3018,    18,  19},
    { 8,  3019, 3023,    20,  24},
    { 9,  3024, 3029,    25,  30},
    {10,  3030, 3030,    31,  31},
    {11,  3035, 3043,    32,  40},
    {12,  3044, 3047,    41,  44},
    {13,  3048, 3048,    45,  45},
    {14,  3050, 3058,    46,  54},
    {15,  3059, 3059,    55,  55},
    {16,  3060, 3063,    56,  59},
    {17,  3070, 3072,    60,  62},
    {18,  3073, 3075,    63,  65},
    {19,  3076, 3076,    66,  66},
    {20,  3077, 3079,    67,  69},
    {21,  3080, 3082,    70,  72},
    {22,  3083, 3083,    73,  73},
    {23,  3086, 3086,    74,  74},
    {24,  3095, 3095,    75,  75},
    {25,  4000, 4000,    76,  76},
    {26,  4001, 4009,    77,  85},
    {27,  4010, 4013,    86,  89},
    {28,  4014, 4014,    90,  90},
    {29,  4021, 4029,    91,  99},
    {30,  4030, 4033,   100, 103},
    {31,  4034, 4034,   104, 104},
    {32,  4040, 4044,   105, 109},
    {33,  4045, 4045,   110, 110},
    {34,  4050, 4053,   111, 114},
    {35,  4060, 4065,   115, 120},
    {36,  4066, 4066,   121, 121},
    {37,  5001, 5001,   122, 122},
    {38,  5009, 5010,   130, 131},
    {39,  5002, 5004,   123, 125},
    {40,  5013, 5013,   132, 132},
    {40,  5015, 5015,   134, 134},
    {40,  5017, 5017,   136, 136},
    {40,  5019, 5019,   138, 138},
    {41,  5014, 5014,   133, 133},
    {41,  5016, 5016,   135, 135},
    {41,  5018, 5018,   137, 137},
    {41,  5020, 5020,   139, 139},
    {42,  5021, 5024,   140, 143},
    {43,  5028, 5028,   144, 144},
    {44,  5031, 5031,   145, 145},
    {45,  5041, 5041,   146, 146},
    {46,  5061, 5061,   147, 147},
    {47,  5062, 5062,   148, 148},
    {48,  5071, 5072,   149, 150},
    {49,  5073, 5074,   151, 152},
    {50,  5075, 5075,   153, 153},
    {51,  5078, 5078,   154, 154},
    {52,  5079, 5079,   155, 155},
    {53,  6000, 6000,   157, 157},
    {54,  6001, 6001,   158, 158},
    {55,  6002, 6002,   159, 159},
    {56,  6005, 6005,   160, 160},
    {57,  6006, 6006,   161, 161},
    {58,  6009, 6009,   162, 162},
    {59,  6010, 6010,   163, 163},
    {60,  6011, 6011,   164, 164},
    {61,  6012, 6012,   165, 165},
    {62,  6014, 6014,   166, 166},
    {63,  6021, 6024,   167, 170},
    {63,  6026, 6029,   172, 175},
    {63,  6031, 6034,   177, 180},
    {63,  6036, 6039,   182, 185},
    {63,  6041, 6044,   187, 190},
    {63,  6051, 6054,   192, 195},
    {63,  6056, 6059,   197, 200},
    {63,  6061, 6064,   202, 205},
    {64,  6025, 6025,   171, 171},
    {64,  6030, 6030,   176, 176},
    {64,  6035, 6035,   181, 181},
    {64,  6040, 6040,   186, 186},
    {64,  6045, 6045,   191, 191},
    {64,  6055, 6055,   196, 196},
    {64,  6060, 6060,   201, 201},
    {64,  6065, 6065,   206, 206},
    {65,  6087, 6094,   214, 221},
    {66,  6066, 6069,   207, 210},
    {67,  6070, 6070,   211, 211},
    {68,  6095, 6095,   222, 222},
    {69,  6081, 6081,   212, 212},
    {70,  6082, 6082,   213, 213},
    {71,  6097, 6097,   223, 223},
    {72,  7020, 7020,   226, 226},
});
// clang-format on

static_assert(
    [] {
        std::int16_t row = 0;
        for (const LineGraphCodes& codes : LineGraphCodeTable) {
            if (codes.feature != row && codes.feature != ++row) {
                return false;
            }
            if (codes.textLast < codes.textFirst ||
                codes.textLast - codes.textFirst != codes.byteLast - codes.byteFirst) {
                return false;
            }
            for (const LineGraphCodes& other : LineGraphCodeTable) {
                const bool same = other.textFirst == codes.textFirst;
                const bool apart = other.textLast < codes.textFirst || codes.textLast < other.textFirst;
                const bool bytesApart = other.byteLast < codes.byteFirst || codes.byteLast < other.byteFirst;
                if (!same && !(apart && bytesApart)) {
                    return false;
                }
            }
        }
        return row == MaxFeatureRows;
    }(),
    "each row has codes, in order, and no code stands twice");

/// Feature by the byte of a packed file; 0 for a byte without one.
constexpr auto LineGraphFeatureOfByte = [] {
    std::array<std::int16_t, 256> features = {};
    for (const LineGraphCodes& codes : LineGraphCodeTable) {
        for (std::int16_t byte = codes.byteFirst; byte <= codes.byteLast; ++byte) {
            features[static_cast<std::size_t>(byte)] = codes.feature;
        }
    }
    return features;
}();

/// Feature by the code of a text file; 0 for a code without one.
constexpr std::int16_t LineGraphFeatureOfCode(std::int32_t code) {
    for (const LineGraphCodes& codes : LineGraphCodeTable) {
        if (codes.textFirst <= code && code <= codes.textLast) {
            return codes.feature;
        }
    }
    return 0;
}

/// The first codes of a feature, 1 to 72: what a file that is written has. RunTimeError "Subscript out
/// of range" for any other.
constexpr const LineGraphCodes& LineGraphCodesOf(std::int16_t feature) {
    for (const LineGraphCodes& codes : LineGraphCodeTable) {
        if (codes.feature == feature) {
            return codes;
        }
    }
    throw RunTimeError(ErrorSubscript);
}

} // namespace quelmont
