// Every kind of VRML model that the converters write, read back by a library of others: what it says of the file, how
// many vertices and faces it finds, how large the model is, and how it looks.
#include <Inventor/SbBox3f.h>
#include <Inventor/SoDB.h>
#include <Inventor/SoFullPath.h>
#include <Inventor/SoInput.h>
#include <Inventor/SoInteraction.h>
#include <Inventor/SoPrimitiveVertex.h>
#include <Inventor/VRMLnodes/SoVRMLBackground.h>
#include <Inventor/VRMLnodes/SoVRMLCoordinate.h>
#include <Inventor/VRMLnodes/SoVRMLDirectionalLight.h>
#include <Inventor/VRMLnodes/SoVRMLElevationGrid.h>
#include <Inventor/VRMLnodes/SoVRMLIndexedFaceSet.h>
#include <Inventor/VRMLnodes/SoVRMLViewpoint.h>
#include <Inventor/actions/SoCallbackAction.h>
#include <Inventor/actions/SoSearchAction.h>
#include <Inventor/errors/SoDebugError.h>
#include <Inventor/errors/SoReadError.h>
#include <Inventor/nodes/SoSeparator.h>
#include <gtest/gtest.h>

#include <QGuiApplication>
#include <QImage>
#include <QOffscreenSurface>
#include <QOpenGLContext>
#include <QOpenGLFramebufferObject>
#include <clocale>
#include <filesystem>
#include <stdexcept>
#include <string>
#include <vector>

#include "basis/result_file.h"
#include "convert/grid_wrl.h"
#include "convert/points_wrl.h"
#include "desktop/vrml_scene.h"
#include "support/temp_folder.h"

namespace crownlab {
namespace {

/// The last node of a path, hidden ones counted. The library's own way to it takes the path for an object of another
/// type, which the sanitizer can't know.
__attribute__((no_sanitize("vptr"))) SoNode* TailOf(SoPath* path) { return static_cast<SoFullPath*>(path)->getTail(); }

constexpr double kBlank = 1.70141e38;

std::vector<std::string> complaints;

void Collect(const SoError* error, void*) { complaints.emplace_back(error->getDebugString().getString()); }

/// A model as the library sees it.
class Model {
public:
    explicit Model(const std::string& path) {
        static const bool started = [] {
            SoDB::init();
            SoInteraction::init();
            return true;
        }();
        EXPECT_TRUE(started);
        SoReadError::setHandlerCallback(Collect, nullptr);
        SoDebugError::setHandlerCallback(Collect, nullptr);
        complaints.clear();
        SoInput input;
        EXPECT_TRUE(input.openFile(path.c_str()));
        root_ = SoDB::readAll(&input);
        if (root_ == nullptr) throw std::runtime_error(complaints.empty() ? "no scene" : complaints.front());
        root_->ref();
        EXPECT_TRUE(complaints.empty()) << complaints.front();
    }
    Model(const Model&) = delete;
    Model& operator=(const Model&) = delete;
    ~Model() { root_->unref(); }

    template <typename Node>
    std::vector<Node*> All() const {
        SoSearchAction search;
        search.setType(Node::getClassTypeId());
        search.setInterest(SoSearchAction::ALL);
        search.setSearchingAll(TRUE);
        search.apply(root_);
        std::vector<Node*> nodes;
        nodes.reserve(static_cast<std::size_t>(search.getPaths().getLength()));
        for (int k = 0; k < search.getPaths().getLength(); ++k) {
            nodes.push_back(static_cast<Node*>(TailOf(search.getPaths()[k])));
        }
        return nodes;
    }

    int Triangles() const { return Drawn().Count; }

    /// The extents of what is drawn, in the scene's own unit.
    void ExpectBox(const SbVec3f& low, const SbVec3f& high) const {
        const SbBox3f box = Drawn().Box;
        for (int axis = 0; axis < 3; ++axis) {
            EXPECT_NEAR(box.getMin()[axis], low[axis], 1e-3) << "axis " << axis;
            EXPECT_NEAR(box.getMax()[axis], high[axis], 1e-3) << "axis " << axis;
        }
    }

private:
    struct Extent {
        int Count = 0;
        SbBox3f Box;
    };

    static void Take(void* extent, SoCallbackAction* action, const SoPrimitiveVertex* a, const SoPrimitiveVertex* b,
                     const SoPrimitiveVertex* c) {
        auto& drawn = *static_cast<Extent*>(extent);
        ++drawn.Count;
        for (const SoPrimitiveVertex* const vertex : {a, b, c}) {
            SbVec3f at;
            action->getModelMatrix().multVecMatrix(vertex->getPoint(), at);
            drawn.Box.extendBy(at);
        }
    }

    Extent Drawn() const {
        Extent drawn;
        SoCallbackAction action;
        action.addTriangleCallback(SoNode::getClassTypeId(), Take, &drawn);
        action.apply(root_);
        return drawn;
    }

    SoSeparator* root_ = nullptr;
};

/// Draws a file as the viewer's page does, from its first viewpoint or so that all is seen, keeps the picture with the
/// build and returns the share of pixels in the models' blue.
double Draw(const std::string& path, const std::string& name) {
    static int count = 1;
    static char program[] = "wrl_models_test";
    static char* words[] = {program, nullptr};
    static const QGuiApplication qt(count, words);
    std::setlocale(LC_ALL, "C");
    QOffscreenSurface surface;
    surface.create();
    QOpenGLContext context;
    if (!context.create() || !context.makeCurrent(&surface)) {
        ADD_FAILURE() << "OpenGL is needed here";
        return 0;
    }
    const QSize size(480, 360);
    QOpenGLFramebufferObject target(size, QOpenGLFramebufferObject::CombinedDepthStencil);
    target.bind();
    VrmlScene scene;
    EXPECT_EQ(scene.Read(path), "");
    scene.Fit(size);
    scene.Turn(0.1, 0.15);
    scene.Draw(size, VrmlScene::NewContext());
    QImage picture = target.toImage();
    // What isn't drawn is cleared to a colour without cover; the colour is what people see.
    picture.reinterpretAsFormat(QImage::Format_RGB32);
    std::filesystem::create_directories(CROWNLAB_SCREENSHOTS);
    EXPECT_TRUE(picture.save(QString::fromStdString(std::string(CROWNLAB_SCREENSHOTS) + "/" + name + ".png")));
    int blue = 0;
    for (int y = 0; y < size.height(); ++y) {
        for (int x = 0; x < size.width(); ++x) {
            const QRgb pixel = picture.pixel(x, y);
            if (qBlue(pixel) > qRed(pixel) + 60) ++blue;
        }
    }
    return static_cast<double>(blue) / (size.width() * size.height());
}

/// A hill over 25 by 19 nodes, x from 2 and y from -3 on, with a hole of one node, one of two and a gap at the edge.
Lattice Hill(double spacing) {
    constexpr int cols = 25;
    constexpr int rows = 19;
    Lattice lattice{.Cols = cols, .Rows = rows, .Nodes = {}};
    for (int j = 0; j < rows; ++j) {
        for (int i = 0; i < cols; ++i) {
            const double u = (i - 12) / 12.0;
            const double v = (j - 9) / 9.0;
            lattice.Nodes.push_back({2 + spacing * i, -3 + spacing * j, 4 * spacing * (2 - u * u - v * v)});
        }
    }
    return lattice;
}

Lattice HillWithHoles(double spacing) {
    Lattice lattice = Hill(spacing);
    lattice.At(13, 10).z = kBlank;
    lattice.At(5, 5).z = kBlank;
    lattice.At(6, 5).z = kBlank;
    lattice.At(1, 8).z = kBlank;
    return lattice;
}

class WrlModels : public ::testing::Test {
protected:
    std::string Write(const Lattice& lattice, WrlProduct product, bool flavour = false) {
        WriteGridWrl(Files, Folder / "hill.wrl", lattice,
                     {.Product = product, .Unit = DataUnit::Auto, .MorphoBrowser = flavour, .Subject = "hill.grd"});
        return Folder / "hill.wrl";
    }
    TempFolder Folder;
    FileTable Files;
};

void ExpectScene(const Model& model, bool flavour) {
    EXPECT_EQ(model.All<SoVRMLViewpoint>().size(), 7u);
    EXPECT_EQ(model.All<SoVRMLBackground>().size(), flavour ? 0u : 1u);
    EXPECT_EQ(model.All<SoVRMLDirectionalLight>().size(), flavour ? 0u : 1u);
}

void ExpectFaces(const Model& model, int vertices, int faces) {
    const auto coordinates = model.All<SoVRMLCoordinate>();
    ASSERT_EQ(coordinates.size(), 1u);
    EXPECT_EQ(coordinates[0]->point.getNum(), vertices);
    const auto sets = model.All<SoVRMLIndexedFaceSet>();
    ASSERT_EQ(sets.size(), 1u);
    EXPECT_EQ(sets[0]->coordIndex.getNum(), 4 * faces);
    for (int k = 0; k < sets[0]->coordIndex.getNum(); ++k) {
        const int index = sets[0]->coordIndex[k];
        EXPECT_EQ(index == -1, k % 4 == 3);
        EXPECT_LT(index, vertices);
    }
    EXPECT_EQ(model.Triangles(), faces);
}

TEST_F(WrlModels, ElevationGridOfAGrid) {
    for (const bool flavour : {false, true}) {
        const Model model(Write(Hill(0.5), WrlProduct::ElevationGrid, flavour));
        ExpectScene(model, flavour);
        const auto grids = model.All<SoVRMLElevationGrid>();
        ASSERT_EQ(grids.size(), 1u);
        EXPECT_EQ(grids[0]->xDimension.getValue(), 27);
        EXPECT_EQ(grids[0]->zDimension.getValue(), 21);
        EXPECT_EQ(grids[0]->height.getNum(), 27 * 21);
        EXPECT_EQ(model.Triangles(), 2 * 26 * 20);
        // Tenths of a millimetre: 26 by 20 spacings of 0.5 mm, 0 to 4 mm high.
        model.ExpectBox(SbVec3f(0, 0, 0), SbVec3f(130, 40, 100));
        EXPECT_GT(Draw(Folder / "hill.wrl", flavour ? "wrl_elevation_flavour" : "wrl_elevation"), 0.15);
    }
}

TEST_F(WrlModels, PolygonsOfAGridFillItsHoles) {
    for (const bool flavour : {false, true}) {
        const Model model(Write(HillWithHoles(0.5), WrlProduct::Polygons, flavour));
        ExpectScene(model, flavour);
        ExpectFaces(model, 25 * 19, 2 * 24 * 18);
        model.ExpectBox(SbVec3f(20, 0, -30), SbVec3f(140, 39.861f, 60));
        EXPECT_GT(Draw(Folder / "hill.wrl", flavour ? "wrl_polygons_flavour" : "wrl_polygons"), 0.15);
    }
}

TEST_F(WrlModels, SurfacePolygonsLeaveBlanksOut) {
    for (const bool flavour : {false, true}) {
        const Model model(Write(HillWithHoles(50), WrlProduct::SurfacePolygons, flavour));
        ExpectScene(model, flavour);
        // The hole of one node: four cells lose one of two triangles each, and four stitches lie over it. The hole of
        // two: eight less (two cells lose both, four lose one), six stitches. The edge: two less.
        ExpectFaces(model, 25 * 19 - 4, 2 * 24 * 18 - 4 + 4 - 8 + 6 - 2);
        model.ExpectBox(SbVec3f(0.02f, 0, -0.03f), SbVec3f(12.02f, 3.9861f, 8.97f));
        EXPECT_GT(Draw(Folder / "hill.wrl", flavour ? "wrl_surface_flavour" : "wrl_surface"), 0.15);
    }
}

TEST_F(WrlModels, ElevationGridOfASurfaceFile) {
    const Lattice hill = Hill(0.5);
    PointLattice lattice{.Cols = 25, .Rows = 19, .XSpacing = 0.5, .YSpacing = 0.5, .ZMin = 0, .ZMax = 4, .Z = {}};
    for (const CloudPoint& node : hill.Nodes) lattice.Z.push_back(node.z);
    WriteSurfaceFileWrl(Files, Folder / "hill.wrl", lattice, "hill.csv");
    const Model model(Folder / "hill.wrl");
    EXPECT_EQ(model.All<SoVRMLViewpoint>().size(), 1u);
    ASSERT_EQ(model.All<SoVRMLElevationGrid>().size(), 1u);
    EXPECT_EQ(model.All<SoVRMLElevationGrid>()[0]->height.getNum(), 25 * 19);
    EXPECT_EQ(model.Triangles(), 2 * 24 * 18);
    model.ExpectBox(SbVec3f(0, 0, 0), SbVec3f(12, 4, 9));
    EXPECT_GT(Draw(Folder / "hill.wrl", "wrl_surface_file"), 0.15);
}

TEST_F(WrlModels, ElevationGridOfAnImage) {
    const Lattice hill = Hill(50);
    FileOrderHeights heights{.Cols = 25, .Rows = 19, .XSpacing = 50, .YSpacing = 50, .Z = {}};
    for (const CloudPoint& node : hill.Nodes) heights.Z.push_back(node.z);
    WriteImageWrl(Files, Folder / "hill.wrl", heights, "hill.txt");
    const Model model(Folder / "hill.wrl");
    EXPECT_TRUE(model.All<SoVRMLViewpoint>().empty());
    ASSERT_EQ(model.All<SoVRMLElevationGrid>().size(), 1u);
    EXPECT_EQ(model.All<SoVRMLElevationGrid>()[0]->height.getNum(), 25 * 19);
    EXPECT_EQ(model.Triangles(), 2 * 24 * 18);
    model.ExpectBox(SbVec3f(0, 0, 0), SbVec3f(12, 4, 9));
    EXPECT_GT(Draw(Folder / "hill.wrl", "wrl_image"), 0.15);
}

}  // namespace
}  // namespace crownlab
