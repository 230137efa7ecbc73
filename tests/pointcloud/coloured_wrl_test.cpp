#include "pointcloud/coloured_wrl.h"

#include <gmock/gmock.h>

#include "basis/result_file.h"
#include "support/expect_failure.h"
#include "support/temp_folder.h"

namespace crownlab {
namespace {

/// A square of two triangles, of which the corner 3 has no point; points in another order than vertices.
class ColouredWrlTest : public ::testing::Test {
protected:
    ColouredWrlTest() {
        model_.HeadLines = {"#VRML V2.0 utf8", "  color NULL", "  solid TRUE", "point ["};
        model_.Points = {{0, 0, 0.5}, {1, 0, 0}, {0, 1, 0}, {1, 1, 0}};
        model_.MidLines = {"}", "colorIndex [ ]", "coordIndex ["};
        model_.Faces = {{0, 1, 2}, {1, 2, 3}};
        model_.TailLines = {"  solid TRUE", "colorPerVertex FALSE", "}"};
        match_ = MatchVertices(points_, model_.Points, kMatchTolerance, [](std::size_t) {});
    }
    std::string Write(const ColourScale* scale, bool pointsAsVertices) {
        FileTable files;
        WriteColouredWrl(files, folder_ / "out.wrl",
                         {.Model = model_,
                          .Points = points_,
                          .Match = match_,
                          .Scale = scale,
                          .PointsAsVertices = pointsAsVertices});
        return FileBytes(folder_ / "out.wrl");
    }

    TempFolder folder_;
    WrlPolygons model_;
    PointCloud points_{{9, 9, 9}, {0, 1, 0}, {1, 0, 0}, {0, 0, 0.5}};
    VertexMatch match_;
};

TEST_F(ColouredWrlTest, VerticesOfTheModel) {
    const ColourScale scale = MakeColourScale({0.1, 0.25, 0.15, 0.25});
    EXPECT_EQ(Write(&scale, false),
              "#VRML V2.0 utf8\r\n  solid TRUE\r\npoint [\r\n0 0 0.5,\r\n1 0 0,\r\n0 1 0,\r\n1 1 0,\r\n          ]\r\n"
              "}\r\ncoordIndex [\r\n0,1,2,-1\r\n        ]\r\n        color Color { color [ \r\n0 1 0.5,\r\n1 0 1,\r\n"
              "          ]\r\n        }\r\n        colorPerVertex TRUE\r\n        colorIndex [ \r\n1,0,1,-1\r\n"
              "        ]\r\n        solid FALSE\r\ncolorPerVertex FALSE\r\n}\r\n");
}

TEST_F(ColouredWrlTest, PointsAsVertices) {
    const ColourScale scale = MakeColourScale({0.25, 0.25, 0.25, 0.25});
    EXPECT_EQ(Write(&scale, true),
              "#VRML V2.0 utf8\r\n  solid TRUE\r\npoint [\r\n9 9 9,\r\n0 1 0,\r\n1 0 0,\r\n0 0 0.5,\r\n          ]\r\n"
              "}\r\ncoordIndex [\r\n3,2,1,-1\r\n        ]\r\n        color Color { color [ \r\n1 0 1,\r\n"
              "          ]\r\n        }\r\n        colorPerVertex TRUE\r\n        colorIndex [ \r\n0,0,0,-1\r\n"
              "        ]\r\n        solid FALSE\r\ncolorPerVertex FALSE\r\n}\r\n");
}

TEST_F(ColouredWrlTest, WithoutColoursTheModelKeepsItsOwn) {
    EXPECT_EQ(Write(nullptr, true),
              "#VRML V2.0 utf8\r\n  color NULL\r\n  solid TRUE\r\npoint [\r\n9 9 9,\r\n0 1 0,\r\n1 0 0,\r\n0 0 0.5,\r\n"
              "          ]\r\n}\r\ncolorIndex [ ]\r\ncoordIndex [\r\n3,2,1,-1\r\n        ]\r\n        solid FALSE\r\n"
              "colorPerVertex FALSE\r\n}\r\n");
}

TEST_F(ColouredWrlTest, CornersThatAreNoVertices) {
    for (const PolyFace face : {PolyFace{3, 0, 4}, PolyFace{-1, 0, 1}, PolyFace{0, 2147483647, 1}}) {
        model_.Faces = {face};
        EXPECT_TRUE(FailsWith(
            FailureKind::SubscriptOutOfRange, [&] { Write(nullptr, false); }, "corner"));
        EXPECT_EQ(folder_.EntryCount(), 0u);
    }
}

}  // namespace
}  // namespace crownlab
