#pragma once

#include <optional>
#include <string>

#include "formats/boundary_file.h"

namespace crownlab {

struct Services;

/// The grid on whose map points are to be digitised.
struct MapOfGrid {
    std::string Folder;  ///< with its separator
    std::string Base;    ///< name without extension
};

/// Lets a person digitise one area to be blanked. The points go to the copy `Base`blnpts.dat, the closed ring, its flag
/// a text item, to `Base`blnpts.bln. `sense` is 1 to blank inside, 0 outside. Returns the outline's path; nothing if
/// the box was cancelled. Throws what ReadDigitisedPoints and writing files throw.
std::optional<std::string> DigitiseArea(Services& app, const MapOfGrid& grid, int sense);

/// Lets a person digitise several areas whose insides are to be blanked, a line -1 between them. The lines go to the
/// copy `Base`blnmpts.dat, a closed ring for each area that has points to `Base`blnmpts.bln, its flag the number 1.
/// Returns the outlines' path; nothing if the box was cancelled. SubscriptOutOfRange for a file without a line and for
/// more than 1000 areas, InputPastEnd or TypeMismatch for a line without two numbers, and what files throw.
std::optional<std::string> DigitiseAreas(Services& app, const MapOfGrid& grid);

/// Two opposite corners as digitised.
struct DigitisedBox {
    PlanePoint LowerLeft;
    PlanePoint UpperRight;
};

/// Lets a person digitise the lower left and the upper right corner of the part to keep; the copy is
/// `Base`extpts.dat. Nothing if the box was cancelled. Whether the corners are in order is the caller's to see.
std::optional<DigitisedBox> DigitiseBox(Services& app, const MapOfGrid& grid);

}  // namespace crownlab
