#pragma once

#include <cstdint>

namespace quelmont {

/// Places in the plotting of map files where a pen is made or deleted, by the numbers that the
/// messages of a failure show.
struct PenSites {
    int deleteObject;
    int createPen;
};

// clang-format off
constexpr int SiteEndOfMap = 1;
constexpr int SiteMinuteGridEnd = 2;
constexpr PenSites SitesMinuteGridLine = {3, 1};
constexpr int SitePackedEnd = 4;
constexpr PenSites SitesPackedFeature = {5, 2};
constexpr PenSites SitesWorldText = {6, 3};
constexpr int SiteWorldTextEnd = 7;
constexpr PenSites SitesFixedRecord = {8, 4};
constexpr PenSites SitesLineGraphFeature = {9, 5};
constexpr int SiteFixedRecordEnd = 10;
constexpr PenSites SitesWorldBinary = {11, 6};
constexpr int SiteWorldBinaryEnd = 12;
constexpr PenSites SitesAscii = {13, 7};
constexpr int SiteAsciiEnd = 14;
constexpr int SiteAfterError = 15;
constexpr PenSites SitesCircles = {16, 8};
constexpr int SiteCirclesEnd = 17;
// clang-format on

/// Replaces the pen by one in the style of a feature, and sets the symbol sizes.
///
/// Feature is a row of the file's styles, FileIndex counts the files from 1.
/// Reads   CurrentSymbolType, TwipsPerPixelY, and as SetSymbolSize.
/// Writes  PenColor, PenWidth (device pixels: the width of lines, dots and filled symbols, the
///         outline of the others), and as SetSymbolSize.
/// A pen that cannot be made or deleted shows its message box and the plot goes on. RunTimeError as
/// SetSymbolSize.
void TakeFeaturePen(std::int16_t Feature, std::int32_t FileIndex, PenSites sites);

/// Deletes the pen in use, if there is one.
void DeleteMapPen(int site);

} // namespace quelmont
