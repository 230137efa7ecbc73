#pragma once

#include <array>
#include <cstdint>
#include <memory>
#include <string>
#include <variant>
#include <vector>

#include "viewer/random_teeth.h"
#include "viewer/surface_grid.h"

namespace crownlab {

/// Labels or patch numbers of cells; kNoLabel where a cell has none. The table of labels ends at 10000, and
/// a label that happens to be 9999 counts as none, exactly as an empty cell's z does.
inline constexpr std::int16_t kNoLabel = 9999;
struct LabelGrid {
    int NumX = 0;
    int NumY = 0;
    std::shared_ptr<const std::vector<Place>> Places;
    std::vector<std::int16_t> Labels;
};

/// A result slot: a grid of heights, or a stage of the patch count, which is shared with the count itself.
struct Slot {
    int NumX = 0;
    int NumY = 0;
    double ZMin = 0;
    double ZMax = 0;
    std::variant<std::monostate, SurfaceGrid, std::shared_ptr<const LabelGrid>> Cells;
};

/// Extents of a point list, in the file's units.
struct SurfaceExtents {
    double XMin = 0;
    double XMax = 0;
    double YMin = 0;
    double YMax = 0;
    double ZMin = 0;
    double ZMax = 0;
};

/// Where cells lie: limits of the grid in x and y and its steps.
struct GridLimits {
    double XMin = 0;
    double XMax = 0;
    double YMin = 0;
    double YMax = 0;
};

/// Names made from the chosen file; all output names of the viewer start from Stem.
struct SurfaceNames {
    std::string FileName;  ///< folder and file
    std::string BaseName;  ///< file name less its last four characters
    std::string Dir;       ///< folder with its separator
    std::string Stem;      ///< Dir and BaseName
    std::string OutputFileName;
};

/// Display scale that the read-out under the mouse reckons with.
struct BoxScale {
    bool Drawn = false;  ///< the read-out works
    int Width = 0;       ///< display pixels
    int Height = 0;
    double ZMin = 0;  ///< limits of the grey scale as drawn; equal: all greys are 0
    double ZMax = 0;
};

/// The stages of the patch count. Levels 2 to 6 are labels (first scan, passes one to four), 7 the patches.
struct ClumpStack {
    int NumX = 0;
    int NumY = 0;
    std::vector<double> Category;                           ///< level 1; kEmptyCellZ for no value
    std::array<std::shared_ptr<const LabelGrid>, 8> Level;  ///< entries 2 to 7 are used
};

/// Results of the last patch count.
struct ClumpResult {
    std::vector<double> ClumpSizes;  ///< cells of each patch in order of label
    std::int32_t TotalCells = 0;     ///< inner cells with surface, dropped patches included
    double PatchDiversity = 0;
    std::string ClumpInfo;  ///< identifier of the run; names folder and files
};

/// The teeth of a multi-tooth file, entries from 0 for tooth 1.
struct Tooth {
    SurfaceGrid Grid;  ///< empty for a tooth of too few points
    std::array<double, 11> Params{};
    int NumX = 0;
    int NumY = 0;
    double ZMin = 0;
    double ZMax = 0;
};

/// Table of the statistics of all teeth; a list is empty until its column was checked in a run.
struct ToothTable {
    std::vector<double> MaxHt;
    std::vector<double> SA;
    std::vector<double> Vol;
    std::vector<double> SAVolRat;
};

/// What the viewer window keeps between its handlers. Empty until the first read.
struct ViewerState {
    // The surface as read.
    SurfaceNames Names;
    std::vector<SurfacePoint> PointList;
    SurfaceExtents Data;
    double ZOrigin = 0;
    double StepX = 0;
    double StepY = 0;
    GridLimits Limits;
    int GridSizeMode = 0;  ///< 1: 24 by 24; 2: from the data; 0 until chosen
    int NumX = 0;
    int NumY = 0;
    SurfaceGrid CellGrid;

    // Working copy, latest result, slots 1 to 4 (entry 0 unused).
    SurfaceGrid WorkGrid;
    double WorkZMin = 0;
    double WorkZMax = 0;
    SurfaceGrid ProcGrid;
    double ProcZMin = 0;
    double ProcZMax = 0;
    std::array<Slot, 5> Slots;
    std::vector<std::int32_t> RenderValue;  ///< grey or packed colour as shown, display order from the top row

    // Orientation and slope.
    std::string ProcessKind;
    SurfaceGrid SlopeGrid;
    SurfaceGrid AspectGrid;
    bool OrientationRun = false;
    std::string ImageSuffix;

    // Patch count.
    int NumCategories = 0;
    double HalfSector = 0;
    int SectorWidth = 0;
    ClumpStack Stack;
    std::vector<std::int16_t> EquivTable;  ///< entry 0 unused; 0: no equivalence
    int NumLabels = 0;
    ClumpResult Clump;
    bool ClumpRun = false;
    bool BatchRunning = false;

    // Boxes.
    BoxScale BoxD;
    BoxScale BoxW;
    BoxScale BoxP;
    bool VrmlActive = false;

    // Multi-tooth files.
    std::vector<Tooth>
        Teeth;         ///< as many as are allowed in memory, those behind NumTeeth empty; none before the first read
    int NumTeeth = 0;  ///< teeth of the file
    std::string GridStepDirection;  ///< how x runs in the file (see FindToothSteps); nothing in the window tells it
    double AllZMin = 0;
    double AllZMax = 0;
    int CurrTooth = 0;
    double ViewFirst = 0;
    double ViewLast = 0;
    bool CancelMulti = false;
    ToothTable Table;
    RandomSource Random;
};

}  // namespace crownlab
