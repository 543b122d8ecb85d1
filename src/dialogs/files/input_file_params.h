#pragma once

#include "core/map_file_entry.h"
#include "dialogs/design_dialog.h"

#include <cstddef>
#include <string>
#include <string_view>

namespace quelmont {

enum class MapFileMode { Add, Edit };

/// "Digital Map File Plot Parameters": with which symbol a map file is drawn, and of each of its
/// features whether it is shown, in which colour and how large.
///
/// A choice of another symbol type proposes the sizes anew: in Edit mode those of the entry, where
/// they are not zero, else a line or an outline of one pixel, a radius of three. OK stores the sizes
/// that mean something for the type in twips; the others of the entry stay. Behind it comes the choice of a
/// font for the labels of a file that may have some (label_font.h).
///
/// Reads   TwipsPerPixelY.
/// Writes  the entry, on OK alone; FeatureColor, FeatureColorIndex, ColorPurpose (the colour picker's);
///         DialogCancelled, which is true unless OK was pressed.
class InputFileParams : public DesignDialog {
public:
    /// The name is shown and tells which features the file has. The entry must outlive the dialog.
    InputFileParams(std::string_view name, InputFileEntry& entry, MapFileMode mode);

private:
    void AddSymbolTypes();
    void AddFeatures();
    std::size_t Rows() const;
    GridCell& Cell(std::size_t row, std::size_t column);
    void ShowColor(std::size_t row, ColorValue color);
    void ShowName(std::size_t row, bool shown);
    bool IsShown(std::size_t row) const;
    /// A size of the entry or what is proposed, in pixels of four digits.
    std::string SizeText(std::int16_t twips, double proposedPixels) const;

    void SymbolType1_Click();
    void ShowSizes();
    void GeoFeatures_Click();
    void ShowEveryRow(bool shown);
    void ColorPicBox_Click(std::size_t row);
    void EditSize(std::size_t row, std::size_t column);
    void OK_Click();
    void Store(InputFileEntry& target);

    std::string fileName;
    InputFileEntry& entry;
    MapFileMode mode;
    std::int16_t symbolType;
};

} // namespace quelmont
