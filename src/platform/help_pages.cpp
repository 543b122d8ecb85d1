#include "platform/help_pages.h"

#include <algorithm>
#include <array>
#include <cstddef>

namespace quelmont {

namespace {

// clang-format off
constexpr auto Controls = std::to_array<ControlHelp>({
    {"AboutQMNT",         "",               {"help-menu", "about-quelmont"}},
    {"AscOutput",         "",               {"save-ascii", ""}},
    {"AscOutput",         "AscGrid",        {"save-ascii", "files"}},
    {"Colors256",         "",               {"colors", ""}},
    {"ChooseProjection",  "",               {"choose-projection", ""}},
    {"ChooseProjection",  "RegionBounds",   {"choose-projection", "the-region"}},
    {"ChooseProjection",  "RegionWorld",    {"choose-projection", "the-region"}},
    {"ChooseProjection",  "Candidates",     {"choose-projection", "the-answer"}},
    {"Distortion",        "",               {"distortion", ""}},
    {"Distortion",        "NoDistortion",   {"distortion", "show-on-the-map"}},
    {"Distortion",        "Ellipses",       {"distortion", "images-of-equal-circles"}},
    {"Distortion",        "AreaScale",      {"distortion", "shades"}},
    {"Distortion",        "AngleError",     {"distortion", "shades"}},
    {"Distortion",        "Radius",         {"distortion", "images-of-equal-circles"}},
    {"Distortion",        "Spacing",        {"distortion", "images-of-equal-circles"}},
    {"FillLandAndWater",  "",               {"fill-land-and-water", ""}},
    {"FontDialog",        "",               {"fonts", ""}},
    {"FontDialog",        "comFontName",    {"fonts", "truetype-fonts"}},
    {"FontDialog",        "comFontSize",    {"fonts", "size"}},
    {"FontDialog",        "chkBold",        {"fonts", "style"}},
    {"FontDialog",        "chkItalic",      {"fonts", "style"}},
    {"FontDialog",        "chkUnderline",   {"fonts", "style"}},
    {"FontDialog",        "chkStrikethru",  {"fonts", "style"}},
    {"FontDialog",        "ColorSquare",    {"fonts", "color"}},
    {"GCircleEnds",       "",               {"great-circle", ""}},
    {"GCircleEnds",       "LatN",           {"great-circle", "start-and-end"}},
    {"GCircleEnds",       "LonW",           {"great-circle", "start-and-end"}},
    {"GCircleEnds",       "LatS",           {"great-circle", "start-and-end"}},
    {"GCircleEnds",       "LonE",           {"great-circle", "start-and-end"}},
    {"GCircleEnds",       "PickOnMap",      {"great-circle", "start-and-end"}},
    {"GCircleEnds",       "GCircleWidth",   {"great-circle", "great-circle-line-width"}},
    {"GCircleEnds",       "GcColorSpin",    {"great-circle", "great-circle-color"}},
    {"GCircleEnds",       "GcColorPicture", {"great-circle", "great-circle-color"}},
    {"GCircleEnds",       "ShowOnMap",      {"great-circle", "show-on-map"}},
    {"GcReport",          "",               {"reports", "great-circle-report"}},
    {"GridLabelsForm",    "",               {"grid-labels", ""}},
    {"GridLabelsForm",    "GridLabelPlace", {"grid-labels", "place"}},
    {"GridLabelsForm",    "GridLabelStyle", {"grid-labels", "style"}},
    {"GridLabelsForm",    "GridLabelFont",  {"grid-labels", "font-and-color"}},
    {"InputFileChoices",  "",               {"map-files", ""}},
    {"InputFileChoices",  "MoveUp",         {"map-files", "move-up-move-down"}},
    {"InputFileChoices",  "MoveDown",       {"map-files", "move-up-move-down"}},
    {"InputFileChoices",  "InputFileAdd",   {"map-files", "add-digital-map-file"}},
    {"InputFileChoices",  "InputFileEdit",  {"map-files", "edit-digital-map-file"}},
    {"InputFileChoices",  "InputFileDelete", {"map-files", "delete-digital-map-file"}},
    {"InputFileParams",   "",               {"map-file-style", ""}},
    {"InputFileParams",   "SymbolType1",    {"map-file-style", "symbol-type"}},
    {"InputFileParams",   "GeoFeatures",    {"map-file-style", "geographic-features"}},
    {"InputFileParams",   "ShowAll",        {"map-file-style", "geographic-features"}},
    {"InputFileParams",   "HideAll",        {"map-file-style", "geographic-features"}},
    {"LatLonBounds",      "",               {"bounds", ""}},
    {"LatLonBounds",      "LatN",           {"bounds", "northernmost-latitude-of-map-southernmost-latitude-of-map"}},
    {"LatLonBounds",      "LatS",           {"bounds", "northernmost-latitude-of-map-southernmost-latitude-of-map"}},
    {"LatLonBounds",      "LatGr",          {"bounds", "degrees-of-latitude-between-grid-marks"}},
    {"LatLonBounds",      "LonW",           {"bounds", "westernmost-longitude-of-map-easternmost-longitude-of-map"}},
    {"LatLonBounds",      "LonE",           {"bounds", "westernmost-longitude-of-map-easternmost-longitude-of-map"}},
    {"LatLonBounds",      "LonGr",          {"bounds", "degrees-of-longitude-between-grid-marks"}},
    {"LatLonBoundsAz",    "",               {"bounds-azimuthal", ""}},
    {"LatLonBoundsAz",    "LatCentral",     {"bounds-azimuthal", "central-latitude-of-map-central-longitude-of-map"}},
    {"LatLonBoundsAz",    "LonCentral",     {"bounds-azimuthal", "central-latitude-of-map-central-longitude-of-map"}},
    {"LatLonBoundsAz",    "LatGr",          {"bounds-azimuthal", "degrees-of-latitude-between-grid-marks"}},
    {"LatLonBoundsAz",    "LonGr",          {"bounds-azimuthal", "degrees-of-longitude-between-grid-marks"}},
    {"LatLonBoundsAz",    "AzRangeDist",    {"bounds-azimuthal", "range-of-map-in-degrees"}},
    {"LatLonBoundsVp",    "",               {"bounds-perspective", ""}},
    {"LatLonBoundsVp",    "LatCentral",     {"bounds-azimuthal", "central-latitude-of-map-central-longitude-of-map"}},
    {"LatLonBoundsVp",    "LonCentral",     {"bounds-azimuthal", "central-latitude-of-map-central-longitude-of-map"}},
    {"LatLonBoundsVp",    "LatGr",          {"bounds-azimuthal", "degrees-of-latitude-between-grid-marks"}},
    {"LatLonBoundsVp",    "LonGr",          {"bounds-azimuthal", "degrees-of-longitude-between-grid-marks"}},
    {"LatLonBoundsVp",    "VpDistanceKM",   {"bounds-perspective", "distance-above-surface-in-kilometers"}},
    {"LatLonInterrupt",   "",               {"interruptions", "interruption-1-2-3"}},
    {"LatLonInterrupt",   "NumInterrupt(0)", {"interruptions", "number-of-interruptions"}},
    {"LatLonInterrupt",   "NumInterrupt(1)", {"interruptions", "number-of-interruptions"}},
    {"LatLonStdPar",      "",               {"standard-parallels", ""}},
    {"LineWidthScale",    "",               {"line-widths", ""}},
    {"MapFrame",          "",               {"frame-and-scale", ""}},
    {"MapFrame",          "Frame",          {"frame-and-scale", "the-frame"}},
    {"MapFrame",          "OwnLatitude",    {"frame-and-scale", "true-at-a-latitude-of-your-choice"}},
    {"MapFrame",          "Latitude",       {"frame-and-scale", "true-at-a-latitude-of-your-choice"}},
    {"MapReduce",         "",               {"draw-map", ""}},
    {"MapReduce",         "MapReduction",   {"draw-map", "percent-full-screen"}},
    {"PrintMap",          "",               {"print-map", ""}},
    {"PrintMap",          "Portrait",       {"print-map", "portrait-landscape"}},
    {"PrintMap",          "Landscape",      {"print-map", "portrait-landscape"}},
    {"PrintMap",          "Inches",         {"print-map", "inches-centimeters"}},
    {"PrintMap",          "Centimeters",    {"print-map", "inches-centimeters"}},
    {"PrintMap",          "WidthMap",       {"print-map", "width-height"}},
    {"PrintMap",          "HeightMap",      {"print-map", "width-height"}},
    {"PrintMap",          "LeftMap",        {"print-map", "left-top"}},
    {"PrintMap",          "TopMap",         {"print-map", "left-top"}},
    {"PrintMap",          "HorizontalMap",  {"print-map", "horizontally-vertically"}},
    {"PrintMap",          "VerticalMap",    {"print-map", "horizontally-vertically"}},
    {"PrintMap",          "PaperList",      {"save-pdf", "paper"}},
    {"ReportMargins",     "",               {"reports", "print"}},
    {"ReportParam",       "",               {"reports", ""}},
    {"SelectGridType",    "",               {"grid", ""}},
    {"SelectGridType",    "GridTypeList",   {"grid", "grid-type"}},
    {"SelectGridType",    "GridLineWidth",  {"grid", "grid-line-width"}},
    {"SelectGridType",    "GridColor",      {"grid", "grid-color"}},
    {"SelectLabelOption", "",               {"labels", ""}},
    {"SmallCircle",       "",               {"small-circle", ""}},
    {"SmallCircle",       "LatCenter",      {"small-circle", "center"}},
    {"SmallCircle",       "LonCenter",      {"small-circle", "center"}},
    {"SmallCircle",       "PickOnMap",      {"small-circle", "center"}},
    {"SmallCircle",       "RadiusDeg",      {"small-circle", "radius"}},
    {"SmallCircle",       "SCircleWidth",   {"small-circle", "small-circle-line-width"}},
    {"SmallCircle",       "SCircleNum",     {"small-circle", "number-of-concentric-circles"}},
    {"SmallCircle",       "ScColorSpin",    {"small-circle", "small-circle-color"}},
    {"SmallCircle",       "ScColorPicture", {"small-circle", "small-circle-color"}},
    {"SmallCircle",       "ShowOnMap",      {"small-circle", "show-on-map"}},
    {"SymbolSizeSpin",    "",               {"map-file-style", "width-and-radius"}},
    {"TextAdd",           "",               {"texts", ""}},
    {"TextAdd",           "TextStrings",    {"texts", "text"}},
    {"TextAdd",           "TextRotation",   {"texts", "rotation-degrees"}},
    {"TextAdd",           "DeleteText",     {"texts", "delete-text-delete-all-text"}},
    {"TextAdd",           "DeleteAllText",  {"texts", "delete-text-delete-all-text"}},
    {"UtmCoords",         "",               {"utm-zone", "the-bounds"}},
    {"UtmParameters",     "",               {"utm-zone", "the-zone"}},
    {"UtmSpheroid",       "",               {"utm-zone", "spheroid"}},
    {"VectorScale",       "",               {"text-scale", ""}},
});

// The indices are those that the menus' own table gives the items (mainwindow/main_menu.cpp).
constexpr auto MenuItems = std::to_array<MenuHelp>({
    {Menu::mnuBar,            0, {"file-menu", ""}},
    {Menu::mnuBar,            1, {"projections", ""}},
    {Menu::mnuBar,            2, {"design-menu", ""}},
    {Menu::mnuBar,            3, {"draw-map", ""}},
    {Menu::mnuBar,            4, {"help-menu", ""}},
    {Menu::mnuBar,            5, {"draw-map", "stop"}},
    {Menu::mnuBar,            6, {"view-menu", ""}},
    {Menu::mnuBar,            7, {"edit-menu", ""}},
    {Menu::mnuEdit,           0, {"edit-menu", "undo-and-redo"}},
    {Menu::mnuEdit,           1, {"edit-menu", "undo-and-redo"}},
    {Menu::mnuEdit,           3, {"edit-menu", "copying-the-map"}},
    {Menu::mnuInput,          0, {"map-files", ""}},
    {Menu::mnuInput,          2, {"print-map", ""}},
    {Menu::mnuInput,          3, {"print-map", "choosing-the-printer"}},
    {Menu::mnuInput,          5, {"save-bmp", ""}},
    {Menu::mnuInput,          6, {"save-cgm", ""}},
    {Menu::mnuInput,          7, {"save-dxf", ""}},
    {Menu::mnuInput,          8, {"save-wmf", ""}},
    {Menu::mnuInput,         19, {"save-png", ""}},
    {Menu::mnuInput,         20, {"save-svg", ""}},
    {Menu::mnuInput,          9, {"save-ascii", ""}},
    {Menu::mnuInput,         11, {"save-circles", ""}},
    {Menu::mnuInput,         12, {"save-circles", ""}},
    {Menu::mnuInput,         14, {"designs", "save-map-design"}},
    {Menu::mnuInput,         15, {"designs", "recall-map-design"}},
    {Menu::mnuInput,         17, {"window", "closing"}},
    {Menu::mnuInput,         18, {"save-pdf", ""}},
    {Menu::mnuInput,         21, {"designs", "recent-map-designs"}},
    {Menu::mnuProj,           0, {"mercator", ""}},
    {Menu::mnuProj,           1, {"equirectangular", ""}},
    {Menu::mnuProj,           2, {"cylindrical-equal-area", ""}},
    {Menu::mnuProj,           4, {"hammer", ""}},
    {Menu::mnuProj,           5, {"mollweide", ""}},
    {Menu::mnuProj,           6, {"robinson", ""}},
    {Menu::mnuProj,           8, {"equidistant-conic", ""}},
    {Menu::mnuProj,           9, {"conformal-conic", ""}},
    {Menu::mnuProj,          10, {"albers", ""}},
    {Menu::mnuProj,          12, {"gnomonic", ""}},
    {Menu::mnuProj,          13, {"stereographic", ""}},
    {Menu::mnuProj,          14, {"orthographic", ""}},
    {Menu::mnuProj,          15, {"vertical-perspective", ""}},
    {Menu::mnuProj,          16, {"azimuthal-equidistant", ""}},
    {Menu::mnuProj,          17, {"azimuthal-equal-area", ""}},
    {Menu::mnuProj,          19, {"utm", ""}},
    {Menu::mnuProj,          21, {"choose-projection", ""}},
    {Menu::mnuProjMollweide,  0, {"mollweide", ""}},
    {Menu::mnuProjMollweide,  1, {"interrupted-mollweide", ""}},
    {Menu::mnuDesign,         0, {"bounds", ""}},
    {Menu::mnuDesign,         1, {"great-circle", ""}},
    {Menu::mnuDesign,         2, {"small-circle", ""}},
    {Menu::mnuDesign,         4, {"texts", ""}},
    {Menu::mnuDesign,         5, {"labels", ""}},
    {Menu::mnuDesign,         7, {"colors", "background-color"}},
    {Menu::mnuDesign,         8, {"grid", ""}},
    {Menu::mnuDesign,         9, {"line-widths", ""}},
    {Menu::mnuDesign,        10, {"pixel-size", ""}},
    {Menu::mnuDesign,        12, {"reports", ""}},
    {Menu::mnuDesign,        13, {"reports", "great-circle-report"}},
    {Menu::mnuDesign,        15, {"grid-labels", ""}},
    {Menu::mnuDesign,        16, {"frame-and-scale", ""}},
    {Menu::mnuDesign,        17, {"fill-land-and-water", ""}},
    {Menu::mnuView,           0, {"view-menu", "smooth-lines"}},
    {Menu::mnuView,           1, {"view-menu", "status-line"}},
    {Menu::mnuView,           2, {"view-menu", "redraw-by-itself"}},
    {Menu::mnuView,           3, {"view-menu", "draw-again"}},
    {Menu::mnuView,           4, {"view-menu", "move-with-the-mouse"}},
    {Menu::mnuView,           5, {"distortion", ""}},
    {Menu::mnuAbout,          0, {"help-menu", ""}},
    {Menu::mnuAbout,          1, {"help-menu", ""}},
    {Menu::mnuAbout,          3, {"help-menu", "about-quelmont"}},
    {Menu::mnuAbout,          4, {"draw-map", "how-long-it-took"}},
    {Menu::mnuRecent,         0, {"designs", "recent-map-designs"}},
});
// clang-format on

// A context number is the place of a row in the table, from 1; those of menu items begin higher.
constexpr int FirstMenuContext = HelpOfBoxes + 1;
static_assert(Controls.size() < HelpOfBoxes);
constexpr HelpPlace PlaceOfBoxes = {"messages", ""};

template <typename Rows, typename Fits>
int NumberOf(const Rows& rows, int first, const Fits& fits) {
    const auto found = std::find_if(rows.begin(), rows.end(), fits);
    return found == rows.end() ? 0 : first + static_cast<int>(found - rows.begin());
}

} // namespace

std::span<const ControlHelp> HelpOfControls() { return Controls; }
std::span<const MenuHelp> HelpOfMenus() { return MenuItems; }

int HelpContextOf(std::string_view form, std::string_view control) {
    const auto numberOf = [form](std::string_view name) {
        return NumberOf(Controls, 1,
                        [&](const ControlHelp& row) { return row.form == form && row.control == name; });
    };
    const int own = numberOf(control);
    return own != 0 ? own : numberOf("");
}

int HelpContextOf(Menu menu, int index) {
    const int wanted = menu == Menu::mnuRecent ? 0 : index;
    return NumberOf(MenuItems, FirstMenuContext,
                    [&](const MenuHelp& row) { return row.menu == menu && row.index == wanted; });
}

HelpPlace PlaceOfHelp(int context) {
    const auto row = [context](int first) { return static_cast<std::size_t>(context - first); };
    if (context >= FirstMenuContext && row(FirstMenuContext) < MenuItems.size()) {
        return MenuItems.at(row(FirstMenuContext)).place;
    }
    if (context >= 1 && row(1) < Controls.size()) {
        return Controls.at(row(1)).place;
    }
    return context == HelpOfBoxes ? PlaceOfBoxes : HelpPlace{HelpContentsPage, {}};
}

} // namespace quelmont
