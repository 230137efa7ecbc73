#include "desktop/surface_model.h"

#include <Inventor/VRMLnodes/SoVRMLViewpoint.h>
#include <Inventor/nodes/SoBaseColor.h>
#include <Inventor/nodes/SoDirectionalLight.h>
#include <Inventor/nodes/SoDrawStyle.h>
#include <Inventor/nodes/SoFont.h>
#include <Inventor/nodes/SoIndexedFaceSet.h>
#include <Inventor/nodes/SoLightModel.h>
#include <Inventor/nodes/SoLineSet.h>
#include <Inventor/nodes/SoMaterial.h>
#include <Inventor/nodes/SoSeparator.h>
#include <Inventor/nodes/SoShapeHints.h>
#include <Inventor/nodes/SoText2.h>
#include <Inventor/nodes/SoTranslation.h>
#include <Inventor/nodes/SoVertexProperty.h>

#include <algorithm>
#include <cstdint>
#include <string>
#include <vector>

#include "mapengine/axis_ticks.h"

namespace crownlab {
namespace {

constexpr double kSide = 10;  // of the scene, along the longer side of the map
constexpr float kTickLength = 0.18f;
constexpr float kNumberGap = 0.55f;
constexpr int kMostTicks = 7;

/// From map units to the scene: the map's middle is the origin, its lowest height the ground.
struct SceneScale {
    double X0 = 0, Y0 = 0, Z0 = 0;
    double Across = 1, Up = 1;

    SceneScale(const Grid& grid, const HeightRange& range, double heightFactor)
        : X0((grid.Shape.XMin + grid.Shape.XMax) / 2),
          Y0((grid.Shape.YMin + grid.Shape.YMax) / 2),
          Z0(IsBlank(range.Low) ? 0 : range.Low),
          Across(kSide / std::max(grid.Shape.XMax - grid.Shape.XMin, grid.Shape.YMax - grid.Shape.YMin)),
          Up(Across * heightFactor) {}

    SbVec3f At(double x, double y, double z) const {
        return {static_cast<float>((x - X0) * Across), static_cast<float>((y - Y0) * Across),
                static_cast<float>((z - Z0) * Up)};
    }
};

/// The nodes that are kept of one axis: all, or evenly thinned ones with the outermost among them.
std::vector<int> KeptNodes(int count, int longer) {
    const int step = std::max(1, (longer + kMostSurfaceNodes - 1) / kMostSurfaceNodes);
    std::vector<int> kept;
    for (int node = 0; node < count - 1; node += step) kept.push_back(node);
    kept.push_back(count - 1);
    return kept;
}

/// The vertices of the mesh, and for each kept node its number, -1 for a blank one.
struct Mesh {
    std::vector<SbVec3f> Vertices;
    std::vector<SbVec3f> Normals;
    std::vector<std::uint32_t> Colours;  ///< red, green, blue, opacity from the highest byte
    std::vector<std::int32_t> Corners;   ///< three of each triangle and -1
};

void AddTriangle(Mesh& mesh, std::int32_t a, std::int32_t b, std::int32_t c) {
    if (a < 0 || b < 0 || c < 0) return;
    mesh.Corners.insert(mesh.Corners.end(), {a, b, c, -1});
    const auto at = [&mesh](std::int32_t i) { return mesh.Vertices[static_cast<std::size_t>(i)]; };
    // Not normalised: larger triangles count for more in the mean at a corner.
    const SbVec3f normal = (at(b) - at(a)).cross(at(c) - at(a));
    for (const std::int32_t corner : {a, b, c}) mesh.Normals[static_cast<std::size_t>(corner)] += normal;
}

Mesh MakeMesh(const Grid& grid, const HeightRange& range, const SceneScale& scale, MapPalette palette) {
    const GridGeometry& shape = grid.Shape;
    const int longer = std::max(shape.Columns, shape.Rows);
    const std::vector<int> columns = KeptNodes(shape.Columns, longer), rows = KeptNodes(shape.Rows, longer);
    const PaletteTable& colours = PaletteColours(palette);
    Mesh mesh;
    std::vector<std::int32_t> numbers;
    for (const int row : rows) {
        for (const int column : columns) {
            const double z = grid.At(column, row);
            numbers.push_back(IsBlank(z) ? -1 : static_cast<std::int32_t>(mesh.Vertices.size()));
            if (IsBlank(z)) continue;
            const MapColour colour = HeightColour(colours, range, z);
            mesh.Vertices.push_back(scale.At(shape.X(column), shape.Y(row), z));
            mesh.Colours.push_back(std::uint32_t{colour.Red} << 24 | std::uint32_t{colour.Green} << 16 |
                                   std::uint32_t{colour.Blue} << 8 | 0xffu);
        }
    }
    mesh.Normals.assign(mesh.Vertices.size(), SbVec3f(0, 0, 0));
    for (std::size_t row = 0; row + 1 < rows.size(); ++row) {
        for (std::size_t column = 0; column + 1 < columns.size(); ++column) {
            const std::size_t at = row * columns.size() + column;
            const std::int32_t sw = numbers[at], se = numbers[at + 1];
            const std::int32_t nw = numbers[at + columns.size()], ne = numbers[at + columns.size() + 1];
            // The diagonal that leaves a triangle where one corner is blank.
            if (sw < 0 || ne < 0) {
                AddTriangle(mesh, sw, se, nw);
                AddTriangle(mesh, se, ne, nw);
            } else {
                AddTriangle(mesh, sw, se, ne);
                AddTriangle(mesh, sw, ne, nw);
            }
        }
    }
    for (SbVec3f& normal : mesh.Normals) {
        if (normal.length() > 0) normal.normalize();
    }
    return mesh;
}

SoSeparator* MakeSkin(const Mesh& mesh) {
    auto* const skin = new SoSeparator;
    auto* const hints = new SoShapeHints;
    hints->vertexOrdering = SoShapeHints::COUNTERCLOCKWISE;
    hints->shapeType = SoShapeHints::UNKNOWN_SHAPE_TYPE;  // seen from both sides
    skin->addChild(hints);
    auto* const material = new SoMaterial;
    material->specularColor.setValue(0.06f, 0.06f, 0.06f);
    material->shininess = 0.4f;
    skin->addChild(material);
    auto* const vertices = new SoVertexProperty;
    vertices->vertex.setValues(0, static_cast<int>(mesh.Vertices.size()), mesh.Vertices.data());
    vertices->normal.setValues(0, static_cast<int>(mesh.Normals.size()), mesh.Normals.data());
    vertices->orderedRGBA.setValues(0, static_cast<int>(mesh.Colours.size()), mesh.Colours.data());
    vertices->normalBinding = SoVertexProperty::PER_VERTEX_INDEXED;
    vertices->materialBinding = SoVertexProperty::PER_VERTEX_INDEXED;
    auto* const faces = new SoIndexedFaceSet;
    faces->vertexProperty = vertices;
    faces->coordIndex.setValues(0, static_cast<int>(mesh.Corners.size()), mesh.Corners.data());
    skin->addChild(faces);
    return skin;
}

void AddLine(SoSeparator& frame, const std::vector<SbVec3f>& points) {
    auto* const vertices = new SoVertexProperty;
    vertices->vertex.setValues(0, static_cast<int>(points.size()), points.data());
    auto* const line = new SoLineSet;
    line->vertexProperty = vertices;
    line->numVertices = static_cast<int>(points.size());
    frame.addChild(line);
}

void AddNumber(SoSeparator& frame, const SbVec3f& at, const std::string& text) {
    auto* const place = new SoSeparator;
    auto* const shift = new SoTranslation;
    shift->translation = at;
    place->addChild(shift);
    auto* const number = new SoText2;
    number->string = text.c_str();
    number->justification = SoText2::CENTER;
    place->addChild(number);
    frame.addChild(place);
}

/// An unseen rectangle around the frame: the numbers, whose size is of the screen, don't count where the scene is
/// fitted into the view.
void AddRoomForNumbers(SoSeparator& frame, const SbVec3f& low, const SbVec3f& high) {
    auto* const unseen = new SoSeparator;
    auto* const style = new SoDrawStyle;
    style->style = SoDrawStyle::INVISIBLE;
    unseen->addChild(style);
    const SbVec3f room(2 * kNumberGap, 2 * kNumberGap, 0);
    AddLine(*unseen, {low - room, high + room});
    frame.addChild(unseen);
}

/// The rectangle of the limits on the ground, with ticks and numbers along its front and its left side.
SoSeparator* MakeFrame(const GridGeometry& shape, const SceneScale& scale) {
    auto* const frame = new SoSeparator;
    auto* const flat = new SoLightModel;
    flat->model = SoLightModel::BASE_COLOR;
    frame->addChild(flat);
    auto* const ink = new SoBaseColor;
    ink->rgb.setValue(0.25f, 0.25f, 0.27f);
    frame->addChild(ink);
    auto* const font = new SoFont;
    font->size = 13;
    frame->addChild(font);
    const auto ground = [&](double x, double y) { return scale.At(x, y, scale.Z0); };
    AddLine(*frame, {ground(shape.XMin, shape.YMin), ground(shape.XMax, shape.YMin), ground(shape.XMax, shape.YMax),
                     ground(shape.XMin, shape.YMax), ground(shape.XMin, shape.YMin)});
    AddRoomForNumbers(*frame, ground(shape.XMin, shape.YMin), ground(shape.XMax, shape.YMax));
    const AxisTicks across = TicksBetween(shape.XMin, shape.XMax, kMostTicks);
    for (const double x : across.At) {
        const SbVec3f foot = ground(x, shape.YMin);
        AddLine(*frame, {foot, foot - SbVec3f(0, kTickLength, 0)});
        AddNumber(*frame, foot - SbVec3f(0, kNumberGap, 0), TickText(across, x));
    }
    const AxisTicks along = TicksBetween(shape.YMin, shape.YMax, kMostTicks);
    for (const double y : along.At) {
        const SbVec3f foot = ground(shape.XMin, y);
        AddLine(*frame, {foot, foot - SbVec3f(kTickLength, 0, 0)});
        AddNumber(*frame, foot - SbVec3f(kNumberGap, 0, 0), TickText(along, y));
    }
    return frame;
}

}  // namespace

SoSeparator* MakeSurfaceModel(const Grid& grid, MapPalette palette, double heightFactor) {
    SetUpCoin();
    const HeightRange range = Heights(grid);
    const SceneScale scale(grid, range, heightFactor);
    auto* const model = new SoSeparator;
    model->ref();
    auto* const look = new SoVRMLViewpoint;
    constexpr float fromTheFront = 0.85f;  // radians that the eye is turned up from looking straight down
    look->orientation = SbRotation(SbVec3f(1, 0, 0), fromTheFront);
    look->position.setValue(0, -17, 18);
    look->fieldOfView = 0.6f;
    model->addChild(look);
    // A weak light from the other side, so that the shade isn't black.
    auto* const fill = new SoDirectionalLight;
    fill->direction.setValue(-0.7f, 0.3f, -0.6f);
    fill->intensity = 0.35f;
    model->addChild(fill);
    const Mesh mesh = MakeMesh(grid, range, scale, palette);
    if (!mesh.Corners.empty()) model->addChild(MakeSkin(mesh));
    model->addChild(MakeFrame(grid.Shape, scale));
    return model;
}

}  // namespace crownlab
