#pragma once

#include "core/circle_tables.h"
#include "core/coordinates.h"
#include "core/design_values.h"
#include "core/map_extras.h"
#include "core/map_file_entry.h"

#include <array>
#include <cstdint>
#include <string>
#include <vector>

namespace quelmont {

class DrawSurface;

/// What a calculation that refused the design leaves for the open dialog: the control concerned,
/// the controls whose last accepted text is to be put back, and the button pressed in the message box.
struct Refusal {
    std::string Field;                 ///< empty when nothing was refused
    std::vector<std::string> Restored; ///< controls that Cancel writes back
    bool Retry = false;                ///< Retry gives the focus to Field
};

/// The name of a place, which a map file has beside its point.
struct MapLabel {
    std::string LabelText;                 ///< UTF-8
    double LabelLat = 0.0, LabelLon = 0.0; ///< the point, as ProjectSelect takes it
    std::int32_t LabelX = 0, LabelY = 0;   ///< twips, upper left corner of the drawing area at 0
    std::string LabelFont;
    std::int16_t LabelSize = 0; ///< points
    ColorValue LabelColour = 0;
    bool LabelBold = false, LabelItalic = false, LabelUnderline = false, LabelStrikeout = false;
    // Measures of the font, twips.
    std::int16_t LabelWidth = 0; ///< of an average character
    std::int16_t LabelAscent = 0, LabelDescent = 0, LabelCellHeight = 0;
    std::int16_t LabelSymbolIndex = 0; ///< the file whose symbol it stands beside, counted from 1
};

/// Points and seconds of a draw, for whoever wants to report them.
struct DrawStatistics {
    struct MapFile {
        std::string Name;
        double Seconds = 0.0;
        std::int64_t PointsRead = 0;
        std::int64_t PointsPlotted = 0;
    };
    double GridSeconds = 0.0;
    std::int64_t GridPointsPlotted = 0;
    std::vector<MapFile> MapFiles;
};

/// A text that stands on the map. Its place belongs to the window in which it was put there.
struct TextItem {
    std::string TextString;
    std::int16_t TextAngle = 0; ///< whole degrees, counter-clockwise, 0 to 359
    std::string TextFont;
    std::int16_t TextSize = 0; ///< points
    ColorValue TextColour = 0;
    bool TextBold = false, TextItalic = false, TextUnderline = false, TextStrikeout = false;
    std::int32_t TextX = 0, TextY = 0; ///< anchor on the baseline, twips from the upper left corner
    std::int16_t TextWidth = 0;        ///< average width of a character, twips
    std::int16_t TextHeight = 0, TextDescent = 0, TextCellHeight = 0; ///< of the font, twips
    // Where it comes from. A design file does not tell: its items have neither mark.
    bool TextFromLabel = false; ///< made of a label of a map file
    bool TextPlaced = false;    ///< placed by hand
};

/// How a text looks: the choice of a font slot, and what the main window writes with.
struct TextLook {
    std::string FontName;
    std::int32_t FontSize = 0; ///< points
    ColorValue FontColour = 0;
    bool FontBold = false, FontItalic = false, FontUnderline = false, FontStrikeout = false;
    bool operator==(const TextLook&) const = default;
};

/// The font slots, by what is written in their fonts.
enum FontSlotIndex : std::int16_t {
    ReportFontSlot,
    CgmFontSlot,
    LabelFontSlot,
    TextFontSlot,
    GridLabelFontSlot, ///< no design file has it
    FontSlotCount,
};

/// What the map shows, as texts and as the numbers made of them: all that the dialogs of the
/// boundaries change. A copy keeps it while they are open, so that a cancelled dialog leaves no
/// part of its answers behind.
struct DesignBounds {
    /// The projection that the numbers below were made for, 0 before any were; ProjNum when they can
    /// be drawn. Written by ParamSelect, the last step of every acceptance.
    std::int16_t BoundsProjNum = 0;

    // ---- Texts of the design. Written by the boundary dialogs and the design file reader, read by
    // CalcGraticule, CalcGraticuleInterrupt, CalcUtmZone, CalcUtmGrid.
    std::array<std::string, GridTextCount> GridText = {};     ///< by GridTextIndex
    std::array<std::string, StdParTextCount> StdParText = {}; ///< by StdParTextIndex
    std::array<std::string, LobeTextCount> LobeText = {};     ///< by LobeTextIndex
    std::array<std::string, UtmTextCount> UtmText = {};       ///< by UtmTextIndex
    std::string SpheroidName;

    // ---- Bounds and grid. Written by CalcGraticule, CalcGraticuleInterrupt, CalcUtmGrid, read by
    // ParamSelect, PlotGrid, MapPlot. Seconds and degrees; whole metres on UTM.
    std::int32_t LatNorthSec = 0, LatSouthSec = 0, LatGridSec = 0;
    double LatNorth = 0.0, LatSouth = 0.0, LatGrid = 0.0;
    std::string LatNorthText, LatSouthText, LatGridText;
    std::int32_t LatGridCount = 0;               ///< grid spacings between south and north
    std::int32_t LonWestSec = 0, LonEastSec = 0; ///< true longitudes
    double LonWest = 0.0, LonEast = 0.0;
    std::string LonWestText, LonEastText;
    std::int32_t LonZeroSec = 0, LonSpanSec = 0; ///< relative longitudes of the boundaries
    double LonZero = 0.0, LonSpan = 0.0;
    std::int32_t LonGridSec = 0;
    double LonGrid = 0.0;
    std::string LonGridText;
    std::int32_t LonGridCount = 0;
    double LonMiddle = 0.0; ///< true longitude of the middle of the map, degrees

    // ---- Centre of the map. Written by the same routines.
    std::int32_t LatCentralSec = 0, LonCentralSec = 0;                    ///< as typed
    double LatCentral = 0.0;                                              ///< degrees
    double LatCentralRad = 0.0, CosLatCentral = 0.0, SinLatCentral = 0.0; ///< not on UTM
    double LonCentral = 0.0; ///< degrees, relative; the true central longitude on UTM
    std::string LatCentralText, LonCentralText;
    std::int32_t RangeSec = 0; ///< angular radius of an azimuthal map
    double CosRange = 0.0;
    double VpDistanceKm = 0.0; ///< height of the view point above the surface
    Refusal LastRefusal;       ///< of the last CalcGraticule or CalcUtmGrid

    // ---- Standard parallels. Written by ParamStdParallel and its dialog, read by ParamSelect.
    double StdParNorth = 0.0, StdParSouth = 0.0; ///< degrees
    std::string StdParNorthText, StdParSouthText;

    // ---- Working constants of the projections. Written by ParamSelect, read by ProjectSelect.
    double CosStdPar = 0.0;
    double ConeConstant = 0.0; ///< angle on the map per angle of longitude
    double ConicG = 0.0;       ///< degrees
    double ConicF = 0.0, ConicC = 0.0;
    double ConicRho0 = 0.0; ///< radius of the parallel at LatCentral
    double VpP = 0.0;       ///< distance of the view point from the earth's centre, earth radii
    /// By ProjNum - 26: a point is visible if the cosine of its distance from the centre is above.
    std::array<double, 6> HorizonCos = {};

    // ---- Spheroid and zone. Written by CalcUtmZone, read by UtmForward and MapPlot. Metres.
    double SpheroidA = 0.0, SpheroidF = 0.0, SpheroidE2 = 0.0, SpheroidEp2 = 0.0;
    double UtmK0 = 0.0, UtmFalseEasting = 0.0, UtmFalseNorthing = 0.0;
    double UtmMeridianC0 = 0.0, UtmMeridianC1 = 0.0, UtmMeridianC2 = 0.0, UtmMeridianC3 = 0.0;
    double UtmM0 = 0.0; ///< meridian arc at the latitude of origin

    // ---- Lobes of the interrupted projection. Written by its dialog, read by the draw cycle and
    // CalcGraticuleInterrupt.
    std::array<std::string, 10> LobeLonText = {};
    std::array<double, 10> LobeLonDeg = {};
    std::array<double, 10> LobeCentral = {}; ///< x of each lobe, projection units

    // ---- Extent. Written by ParamSelect, read by ScaleScreen and whoever draws.
    double MapXMin = 0.0, MapXMax = 1.0, MapYMin = 0.0, MapYMax = 1.0; ///< projection units
};

/// The state of the whole program: one map design, and what the last draw made of it.
///
/// There is exactly one, Design. Every routine reads and writes its fields by name; nothing passes
/// a design along. What one room alone needs from call to call is in that room's state.
/// Flags stand in files as -1 and 0. Sections follow the flow of the data.
struct MapDesign : DesignBounds {
    // ---- Projection. Written by the projection menu and the design file reader, read everywhere.
    std::int16_t ProjNum = 2;                 ///< sparse number, stored in design files
    std::string ProjName = "Equirectangular"; ///< name in reports
    std::array<bool, 43> ProjGridSet = {};    ///< by ProjNum: GridText was accepted for it
    std::int16_t ProjMenuLast = 0;            ///< last index of the projection menu
    std::int16_t ProjNumPrev = 0;             ///< the projection before the last change

    // ---- The lobe being drawn. Written by the draw cycle.
    double LobeOffsetX = 0.0; ///< its x, projection units, else 0
    bool LobeFirst = false;   ///< first pass of the draw
    bool LobeLast = false;    ///< last pass of the draw

    // ---- Point cell: the calling convention of ProjectSelect.
    double ProjLat = 0.0, ProjLon = 0.0;  ///< in: degrees, relative longitude; metres on UTM
    double ProjX = 0.0, ProjY = 0.0;      ///< out: projection units
    bool ProjOffMap = false;              ///< out: no place on the map. Also set by a validation that refused
    std::int16_t ProjTestMode = TestNone; ///< a ProjTestModeValue
    std::int16_t PointStatus = PointContinues;     ///< a PointStatusValue
    std::int16_t LineStart = LineContinues;        ///< a LineStartValue
    std::int32_t PointLatSec = 0, PointLonSec = 0; ///< point of a reader or circle, relative frame
    std::int32_t PointLatSecPrev = 0, PointLonSecPrev = 0;
    bool UtmPointPath = false; ///< points are seconds that become degrees before they are projected

    // ---- Fit of the map to the drawing area. Written by ScaleScreen.
    double XAxisLength = 1.0; ///< length of the x axis in transformed output
    double AsciiScale = 0.0;
    double MapReduce = 1.0; ///< share of the drawing area that the map fills, 0.1 to 1
    std::int32_t LogicalWidth = 0, LogicalHeight = 0;
    std::int16_t LogicalOriginX = 0, LogicalOriginY = 0;
    std::int32_t LogicalMarginX = 0, LogicalMarginY = 0;
    double LogicalScale = 0.0;                      ///< logical units per projection unit
    std::int32_t ClientWidth = 0, ClientHeight = 0; ///< drawing area less one pixel, twips
    double ScreenOriginX = 0.0, ScreenOriginY = 0.0, ScreenScaleX = 0.0, ScreenScaleY = 0.0;

    // ---- Measures of the screen. Written by ConstantDefs.
    float TwipsPerPixelX = 0.0F, TwipsPerPixelY = 0.0F;
    std::int32_t ScreenPixelsX = 0, ScreenPixelsY = 0;
    std::int32_t FullScreenX = 0, FullScreenY = 0; ///< drawing area of a maximised window, pixels

    // ---- Output. Flags armed by the File menu, cleared at the end of a draw.
    bool OutputCgm = false, OutputDxf = false, OutputWmf = false, OutputSvg = false, OutputAscii = false;
    bool OutputGc = false, OutputSc = false;
    bool PrintingNow = false; ///< the surface is the printer
    std::string CgmFileName, DxfFileName, WmfFileName, BmpFileName, GcFileName, ScFileName, CnfFileName;
    std::string SvgFileName, PngFileName;   ///< not kept in design files
    std::string MapTitle, MapDescription;   ///< in a drawing that is saved; made as its draw begins
    std::string OutputFileName;             ///< file that this draw has open, empty when none
    std::vector<std::string> AsciiFileName; ///< output names: of the grid, then of each map file
    std::int16_t GridOutputCount = 0;       ///< entries of AsciiFileName that the grid takes

    // ---- The device in use. Written by PlotGrid and MapPlot, read by PrintToScreen.
    DrawSurface* Surface = nullptr;
    std::int16_t CurrentSymbolType = SymbolLine;
    ColorValue PenColor = 0;
    std::int32_t PenWidth = 1;                              ///< device pixels
    std::int32_t DotPixels = 1;                             ///< side of a dot, device pixels
    std::int16_t SymbolRadiusFile = 0, BorderWidthFile = 0; ///< logical units
    std::int32_t PointCount = 0;     ///< vertices in the chain that a file writer has open
    bool LineWidthsScaled = false;   ///< widths are a share of the drawing, not device pixels
    std::int16_t MaxChainPoints = 0; ///< most vertices of one polyline in a file
    std::int16_t TextScalePercent = 0;

    // ---- Colours, grid. Written by their dialogs. Of each colour the picker's cell, 0 to 255.
    std::int16_t ColorPurpose = 0; ///< whose colour the picker shows
    std::int16_t BackColorIndex = 0;
    ColorValue BackColor = 0;
    std::int16_t GridColorIndex = 0;
    ColorValue GridColor = 0;
    float GridLineWidth = 0.0F;    ///< twips
    std::int16_t GridTypeCode = 0; ///< 1 to 5
    std::string GridTypeText;

    // ---- Circles. Texts and angles are written by their dialogs and the design file reader, the tables by
    // GcCalc and ScCalc; read by MapPlot, GcSave, ScSave and the reports. Widths in twips.
    std::int16_t GcColorIndex = 0, ScColorIndex = 0;
    ColorValue GcColor = 0, ScColor = 0;
    float GcLineWidth = 0.0F, ScLineWidth = 0.0F;
    std::array<std::string, 4> GcText = {}; ///< latitude and longitude of start, then of end
    double GcStartLat = 0.0, GcStartLon = 0.0, GcEndLat = 0.0, GcEndLon = 0.0; ///< degrees
    bool GcDefined = false;                                                    ///< accepted and shown
    GreatCircleTable GcTable;
    std::array<std::string, 3> ScText = {};      ///< centre's latitude, longitude, radius
    double ScCenterLat = 0.0, ScCenterLon = 0.0; ///< degrees
    double ScRadiusDeg = 0.0;                    ///< of the outer circle
    std::int16_t ScSymbolCount = 0;              ///< number of concentric circles
    bool ScDefined = false;                      ///< accepted and shown
    SmallCircleTable ScTable;

    // ---- Text. Written by the text dialogs and the design file reader. TextCount is the number of
    // TextItems.
    std::vector<TextItem> TextItems;                ///< in the order in which they are drawn
    float TextStep = 0.0F;                          ///< step of an arrow key, twips
    std::array<std::int32_t, 23> FontSizeList = {}; ///< sizes offered, points
    std::int16_t FontSlot = TextFontSlot;           ///< the slot that the font dialog changes
    std::array<TextLook, FontSlotCount> Fonts = {}; ///< by FontSlotIndex

    // ---- Text in hand: what PrintRotatedText writes, and where. Written by whoever prints or places a text.
    std::string CurrentText;                 ///< UTF-8; empty when there is none
    std::string CurrentTextAngle;            ///< digits, whole degrees counter-clockwise
    TextLook CurrentLook;                    ///< font and colour of the main window
    std::int32_t CurrentX = 0, CurrentY = 0; ///< anchor on the baseline, twips from the upper left corner
    std::int32_t TextEditIndex = 0;          ///< the text item being edited, counted from 1
    bool TextIsEdit = false;                 ///< the text in hand replaces that item
    bool TextPending = false;    ///< the text in hand follows the mouse, or lies dropped and not yet fixed
    bool TextToMetafile = false; ///< PrintRotatedText draws on the metafile

    // ---- Digital map files. Written by their dialogs, read by MapPlot. Entry 0 is the first file.
    std::vector<InputFileEntry> InputFiles;
    std::int16_t MapFileCount = 0;
    std::int16_t MapFeatureMax = 0;

    // ---- Labels of the map files. Text, point and style are collected anew by each draw, over all its
    // passes; place and measures are those of LabelPrint. LabelsVisible is written by its dialog.
    std::vector<MapLabel> MapLabels;
    bool LabelsVisible = true; ///< labels are drawn

    // ---- Besides the map. Written by their dialogs, the settings and the command line; read by whoever
    // draws them.
    GridLabelChoice GridLabels;
    FrameChoice Frame;
    FillChoice Fill;
    DistortionChoice Distortion;
    bool SmoothLines = false; ///< lines and symbols of pictures are antialiased

    // ---- Page of a printed map. In units of PrintUnitTwips.
    std::int32_t PrintUnitTwips = 0;
    float PrintLeft = 0.0F, PrintTop = 0.0F, PrintWidth = 0.0F, PrintHeight = 0.0F;
    bool CenterHorizontal = false, CenterVertical = false;
    float ReportLeft = 0.0F, ReportRight = 0.0F, ReportTop = 0.0F,
          ReportBottom = 0.0F;           ///< margins of a report
    std::int16_t PrinterOrientation = 1; ///< 1 portrait, 2 landscape

    // ---- Run state of a draw. Written by the draw cycle and the handler of Escape.
    StopReason PlotStopReason = StopReason::None; ///< why the draw ends before its end
    double PlotSeconds = 0.0;                     ///< at the end of a draw: how long it took
    bool PrintAbort = false;                      ///< Escape was pressed in printing
    bool DialogCancelled = false; ///< left by a dialog's Cancel; the caller reads and clears it
    bool BoundsChanged = false;   ///< a boundary dialog changed what the map shows
    DrawStatistics Statistics;    ///< of the last draw

    // ---- Places. Written at start-up. Folders end in a separator. The map file chosen last is the
    // one with which the next file dialog starts.
    std::string VersionText, AppPath, HelpFile, MapFileDefault;
};

/// The design.
extern MapDesign Design;

constexpr std::int16_t ProjMercator = 1;
constexpr std::int16_t ProjEquirectangular = 2;
constexpr std::int16_t ProjEquidistantConic = 6;
constexpr std::int16_t ProjConformalConic = 7;
constexpr std::int16_t ProjAlbers = 8;
constexpr std::int16_t ProjHammer = 12;
constexpr std::int16_t ProjRobinson = 16;
constexpr std::int16_t ProjUtm = 17;
constexpr std::int16_t ProjGnomonic = 26;
constexpr std::int16_t ProjStereographic = 27;
constexpr std::int16_t ProjOrthographic = 28;
constexpr std::int16_t ProjVerticalPerspective = 29;
constexpr std::int16_t ProjAzimuthalEquidistant = 30;
constexpr std::int16_t ProjAzimuthalEqualArea = 31;
constexpr std::int16_t ProjCylindricalEqualArea = 40;
constexpr std::int16_t ProjMollweide = 41;
constexpr std::int16_t ProjInterruptedMollweide = 42;

} // namespace quelmont
