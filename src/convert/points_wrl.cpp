#include "convert/points_wrl.h"

#include "basis/number_text.h"
#include "basis/result_file.h"
#include "basis/rounding.h"
#include "formats/vrml_templates.h"

namespace crownlab {
namespace {

std::string Decimals(double value, int decimals) { return RecordText(RoundDecimals(value, decimals)); }

void WriteLines(ResultFile& file, std::initializer_list<const char*> lines) {
    for (const char* line : lines) file.Line(line);
}

void WriteModelStart(ResultFile& file, const std::string& scaleLine, int cols, int rows, const std::string& xSpacing,
                     const std::string& ySpacing) {
    file.Line("Transform {");
    file.Line(scaleLine);
    WriteLines(file, {"   children [", "      Shape {", "         appearance Appearance {",
                      "            material Material {", "               diffuseColor 0 0.25 1.0",
                      "               shininess 0.2 } }", "         geometry ElevationGrid {"});
    file.Line("            xDimension " + std::to_string(cols));
    file.Line("            zDimension " + std::to_string(rows));
    file.Line("            xSpacing " + xSpacing);
    file.Line("            zSpacing " + ySpacing);
    WriteLines(file, {"            creaseAngle 30", "            height ["});
}

void WriteSurfaceScene(ResultFile& file, const PointLattice& lattice) {
    constexpr int decimals = 3;
    constexpr double heights = 2.5;
    WriteLines(file, {"NavigationInfo {", R"(  type [    "EXAMINE","ANY" ] })", "",
                      "Background { skyColor [ 1 1 1, 1 1 1, 1 1 1 ]", "  skyAngle [ 1.309, 1.571 ]",
                      "  groundColor [ 1 1 1, 1 1 1 ]", "  groundAngle 1.57 }", ""});
    vrml::WriteDirectionalLight(file, "-1 -1 -1", "0.25");
    file.Line();
    vrml::WriteViewpoint(
        file, "Start",
        {Decimals((lattice.Cols - 1) * lattice.XSpacing / 2, decimals), Decimals(heights * lattice.ZMax, decimals),
         Decimals((lattice.Rows - 1) * lattice.YSpacing / 2, decimals)},
        "0 0.707 0.707 3.141");
    file.Line();
}

}  // namespace

void WriteSurfaceFileWrl(FileTable& files, const std::string& path, const PointLattice& lattice,
                         const std::string& subject) {
    constexpr int decimals = 4;
    ResultFile file(files, path);
    vrml::WriteHeader(file, subject);
    WriteSurfaceScene(file, lattice);
    WriteModelStart(file, "   scale 1 1 1 #um", lattice.Cols, lattice.Rows, Decimals(lattice.XSpacing, decimals),
                    Decimals(lattice.YSpacing, decimals));
    for (int row = 1; row <= lattice.Rows; ++row) {
        for (int column = 1; column <= lattice.Cols; ++column) file.PrintNumber(lattice.At(column, row));
        file.EndLine();
    }
    file.Line("] } } ] }");
    file.Commit();
}

void WriteImageWrl(FileTable& files, const std::string& path, const FileOrderHeights& heights,
                   const std::string& subject) {
    ResultFile file(files, path);
    vrml::WriteHeader(file, subject);
    WriteLines(file, {"NavigationInfo {", "  type [    \"EXAMINE\",", "    \"ANY\" ] }", "", "Background {",
                      "  skyColor [", "    1 1 1,", "    1 1 1,", "    1 1 1 ]", "  skyAngle [", "    1.309, 1.571 ]",
                      "  groundColor [", "    1 1 1,", "    1 1 1 ]", "  groundAngle 1.57 }", ""});
    vrml::WriteDirectionalLight(file, "1 0 0", "0.5");
    file.Line();
    WriteModelStart(file, "   scale 0.01 0.01 0.01", heights.Cols, heights.Rows, RecordText(heights.XSpacing),
                    RecordText(heights.YSpacing));
    std::size_t next = 0;
    for (int row = 0; row < heights.Rows; ++row) {
        for (int column = 0; column < heights.Cols; ++column) {
            file.PrintNumber(heights.Z[next++]);
            file.EndLine();
        }
        file.Line();
    }
    file.Line("            ] } } ] }");
    file.Commit();
}

}  // namespace crownlab
