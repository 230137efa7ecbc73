#pragma once

#include <span>
#include <string_view>

namespace crownlab {

/// The kinds of file that the conversion window reads, by the words of its first list.
namespace source_type {
inline constexpr const char* kTiffText = "Tiff text file (*.txt)";
inline constexpr const char* kHawkText = "Text file (Hawk) (*.txt)";
inline constexpr const char* kCsv = "CSV file (*.csv,*.dat)";
inline constexpr const char* kSurferGrid = "Surfer grid file (*.grd)";
inline constexpr const char* kPicza = "Picza file (*.pix)";
inline constexpr const char* kVrml = "VRML file (*.wrl)";
inline constexpr const char* kAll = "Show all files (*.*)";
}  // namespace source_type

/// The kinds that it writes, by the words of its second list.
namespace target_type {
inline constexpr const char* kSurferGrid = "Surfer grid file (*.grd)";
inline constexpr const char* kVrml = "VRML file (*.wrl)";
inline constexpr const char* kTiffDem = "Tiff DEM file (*.tif)";
inline constexpr const char* kPicza = "Picza file (*.pix)";
inline constexpr const char* kVrmlElevation = "VRML file ElevationGrid (*.wrl)";
inline constexpr const char* kVrmlPolygons = "VRML file Polygons (*.wrl)";
inline constexpr const char* kVrmlSurface = "VRML file Polygons - surface (*.wrl)";
inline constexpr const char* kDat = "DAT text file (*.dat)";
inline constexpr const char* kXyz = "XYZ text file (*.xyz)";
inline constexpr const char* kDxf = "AutoCAD DXF file (*.dxf)";
inline constexpr const char* kCsv = "CSV file (*.csv,*.dat)";
}  // namespace target_type

/// What choosing a source type does: which files are listed, and what they can become.
struct SourceType {
    std::string_view Name;
    const char* Pattern;
    std::span<const char* const> Targets;  ///< in the order of the list; none for types that are only looked at
};

/// All source types in the order of the list.
std::span<const SourceType> SourceTypes();

/// The type of that name; nullptr if there is none.
const SourceType* FindSourceType(std::string_view name);

}  // namespace crownlab
