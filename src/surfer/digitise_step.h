#pragma once

#include <optional>
#include <string>
#include <vector>

#include "formats/boundary_file.h"

namespace crownlab {

struct Services;

/// What is written from digitised points: nothing, an area's closed outline, or a line as it was drawn.
enum class BoundaryKind { None, Ring, Line };

/// One request to a person to digitise points on the map of a grid and to save them beside it.
struct DigitiseStep {
    std::string Folder;               ///< the grid's, with its separator
    std::string Base;                 ///< the grid's name without extension
    std::vector<std::string> Prompt;  ///< first lines of the box
    std::string File = "digit.dat";   ///< name under which the points are to be saved, in `Folder`
    std::string CopySuffix;           ///< the working copy is `Folder` `Base` and this
    BoundaryKind Boundary = BoundaryKind::None;
    std::string BoundarySuffix = {};  ///< `Folder` `Base` and this is the boundary file
    BoundaryFlag Flag = {};           ///< what its head line says
    int Points = 0;                   ///< points that are wanted, further ones being left; 0 for all there are
    std::string Extension = ".grd";   ///< the grid's, for the map that the box offers

    std::string DigitPath() const { return Folder + File; }
    std::string CopyPath() const { return Folder + Base + CopySuffix; }
    std::string BoundaryPath() const { return Folder + Base + BoundarySuffix; }
};

/// Shows the box "Digitise map" and waits. False if it was cancelled; nothing has changed then.
bool AskToDigitise(Services& app, const DigitiseStep& step);

/// Copies the digitised points to the working copy, from which they are read. What is there counts as digitised:
/// nothing looks whether it is new. Throws what reading and writing files throw.
void CopyDigitised(Services& app, const DigitiseStep& step);

/// The whole step: asks, copies, reads the points and writes them as the boundary that is wanted. Nothing if
/// the person cancelled. Throws what reading points and writing files throw; a missing point file is FileNotFound.
std::optional<std::vector<PlanePoint>> Digitise(Services& app, const DigitiseStep& step);

}  // namespace crownlab
