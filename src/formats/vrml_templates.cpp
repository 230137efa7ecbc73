#include "formats/vrml_templates.h"

#include "basis/number_text.h"
#include "basis/result_file.h"
#include "basis/rounding.h"

namespace crownlab::vrml {
namespace {

std::string Joined(std::initializer_list<std::string_view> parts) {
    std::string text;
    for (const std::string_view part : parts) text += part;
    return text;
}

}  // namespace

void WriteHeader(ResultFile& file, std::string_view subject) {
    file.Line("#VRML V2.0 utf8");
    file.Line(Joined({"# VRML of ", subject}));
    file.Line();
}

void WriteNavigation(ResultFile& file, std::string_view first, std::string_view second) {
    file.Line("NavigationInfo {");
    file.Line(Joined({"  type [ \"", first, "\","}));
    file.Line(Joined({"    \"", second, "\" ]"}));
    file.Line("}");
}

void WriteBackground(ResultFile& file) {
    file.Line("Background {");
    file.Line("  skyColor [ 1 1 1, 1 1 1, 1 1 1 ]");
    file.Line("  skyAngle [ 1.309, 1.571 ]");
    file.Line("  groundColor [ 1 1 1, 1 1 1 ]");
    file.Line("  groundAngle 1.57 }");
}

void WriteDirectionalLight(ResultFile& file, std::string_view direction, std::string_view intensity) {
    file.Line("DirectionalLight {");
    file.Line(Joined({"  direction ", direction}));
    file.Line(Joined({"  intensity ", intensity, " }"}));
}

void WriteViewpoint(ResultFile& file, std::string_view name, const Vector& position, std::string_view orientation) {
    file.Line("Viewpoint {");
    file.Line(Joined({"  description \"", name, "\""}));
    file.Line(Joined({"  position ", position.A, " ", position.B, " ", position.C}));
    file.Line(Joined({"  orientation ", orientation, " }"}));
}

void WriteTransformStart(ResultFile& file, std::string_view scale) {
    file.Line("Transform {");
    file.Line(Joined({"  scale ", scale, " ", scale, " ", scale}));
    file.Line("  children [");
}

void WriteShapeStart(ResultFile& file) {
    file.Line("    Shape {");
    file.Line("      appearance Appearance {");
    file.Line("        material Material {");
    file.Line("          diffuseColor 0 0.25 1.0");
    file.Line("          shininess 0.2 }");
    file.Line("      }");
}

void WriteElevationGridStart(ResultFile& file, int xDimension, int zDimension, std::string_view xSpacing,
                             std::string_view zSpacing) {
    file.Line("      geometry ElevationGrid {");
    file.Line(Joined({"        xDimension ", std::to_string(xDimension)}));
    file.Line(Joined({"        zDimension ", std::to_string(zDimension)}));
    file.Line(Joined({"        xSpacing ", xSpacing}));
    file.Line(Joined({"        zSpacing ", zSpacing}));
    file.Line("        solid FALSE");
    file.Line("        creaseAngle 30");
    file.Line("        height [");
}

void WriteElevationGridEnd(ResultFile& file) {
    file.Line("        ]");
    file.Line("      }");
    file.Line("    }");
}

void WriteTransformEnd(ResultFile& file) {
    file.Line("  ]");
    file.Line("}");
}

std::string Number(double value, int decimals) { return GeneralText(RoundDecimals(value, decimals)); }

}  // namespace crownlab::vrml
