#pragma once

#include <string>

#include "mapengine/grid.h"

namespace crownlab {

class CallArguments;
class FileTable;
enum class EngineVersion;

/// Forms of a grid file.
enum class GridFormat {
    Binary32,   ///< "DSBB": columns and rows in 16 bits, z in 32
    Binary64,   ///< "DSRB": tagged sections, rows and columns in 32 bits, z in 64
    AsciiGrid,  ///< "DSAA"
    NodeText,   ///< x, y, z, a node a line
};

/// Reads any of the three grid formats, told apart by the first four bytes. AutomationFailed with a sentence for what
/// is missing, damaged or refused; OutOfMemory.
Grid ReadGrid(const std::string& path);

/// Writes the grid whole or not at all. AutomationFailed where a count doesn't fit the format, and what writing a file
/// throws.
void WriteGrid(FileTable& files, const std::string& path, const Grid& grid, GridFormat format);

/// The format that a class writes where the call names none, and what its `OutFmt` stands for; AutomationFailed for a
/// number that stands for nothing.
GridFormat DefaultFormat(EngineVersion version);
GridFormat FormatOfNumber(EngineVersion version, int number);

/// The format that a call's `OutFmt` asks for, or its class's own.
GridFormat OutputFormat(EngineVersion version, const CallArguments& arguments);

}  // namespace crownlab
