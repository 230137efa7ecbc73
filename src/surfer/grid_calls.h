#pragma once

#include <string>

#include "formats/extract_area.h"

namespace crownlab {

struct Session;

/// Grid operations that several tools ask of `session.SurferApp`, each in the form of the session's version: by
/// position under version 6, by name under version 8 unless told otherwise. Any other version: nothing is called. All
/// throw AutomationFailed.

/// Blanks a grid by a boundary file.
void BlankGrid(const Session& session, const std::string& inGrid, const std::string& blankFile,
               const std::string& outGrid);

/// Writes a grid as x, y, z text; arguments by position under both versions.
void ConvertGridByPosition(const Session& session, const std::string& inGrid, const std::string& outFile);

/// The same with named arguments under version 8.
void ConvertGridByName(const Session& session, const std::string& inGrid, const std::string& outFile);

/// Cuts columns and rows out of a grid, every `step` of both. -1 stands for what isn't given.
void ExtractGrid(const Session& session, const std::string& inGrid, const GridPart& range, double step,
                 const std::string& outGrid);

/// A formula over grids; an empty `inGridB` isn't given.
void GridFormula(const Session& session, const std::string& function, const std::string& inGridA,
                 const std::string& inGridB, const std::string& outGridC);

/// Turns of a grid that keep its limits; version 8 alone has them here.
enum class GridMirror { Columns, Rows };
void MirrorGrid(const Session& session, const std::string& inGrid, GridMirror mirror, const std::string& outGrid);
/// Turns a grid by a multiple of 90 degrees, counter-clockwise positive.
void RotateGrid(const Session& session, const std::string& inGrid, double degrees, const std::string& outGrid);
/// Moves the limits of a grid. Always by name, which version 6 doesn't know: it fails there.
void OffsetGrid(const Session& session, const std::string& inGrid, double x, double y, const std::string& outGrid);

/// Steepest slope of a grid in degrees.
void TerrainSlope(const Session& session, const std::string& inGrid, const std::string& outGrid);
/// Direction of steepest descent in degrees. Under version 8 it is blank where the slope is below `minSlope` radians.
void TerrainAspect(const Session& session, const std::string& inGrid, double minSlope, const std::string& outGrid);

/// Methods of gridding with their number under each version.
enum class GriddingMethod { Kriging, Triangulation };

/// Grids the points of a text, x, y, z in its first three columns, on the limits and counts of `nodes`.
/// Under version 8 `exclude` names the points that are left out, empty for none.
void GridPoints(const Session& session, const std::string& dataFile, const GridShape& nodes, GriddingMethod method,
                const std::string& outGrid, const std::string& exclude = {});

}  // namespace crownlab
