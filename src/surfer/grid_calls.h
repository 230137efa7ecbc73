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

/// Cuts columns and rows out of a grid, every `step` of both. -1 stands for what isn't given.
void ExtractGrid(const Session& session, const std::string& inGrid, const GridPart& range, double step,
                 const std::string& outGrid);

/// A formula over grids; an empty `inGridB` isn't given.
void GridFormula(const Session& session, const std::string& function, const std::string& inGridA,
                 const std::string& inGridB, const std::string& outGridC);

/// Methods of gridding with their number under each version.
enum class GriddingMethod { Kriging, Triangulation };

/// Grids the points of a text, x, y, z in its first three columns, on the limits and counts of `nodes`.
void GridPoints(const Session& session, const std::string& dataFile, const GridShape& nodes, GriddingMethod method,
                const std::string& outGrid);

}  // namespace crownlab
