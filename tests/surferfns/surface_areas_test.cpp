#include "surferfns/surface_areas.h"

#include <gtest/gtest.h>

#include "basis/result_file.h"
#include "support/temp_folder.h"
#include "surfer/automation.h"

namespace crownlab {
namespace {

/// A program that fills the results of a volume with their own numbers.
class CountingProgram : public AutomationObject {
public:
    Value Invoke(std::string_view, const Arguments& arguments) override {
        for (const Argument& argument : arguments) {
            const NumberArray* const results = std::get_if<NumberArray>(&argument.Content);
            if (results == nullptr) continue;
            for (std::size_t i = 0; i < (*results)->size(); ++i) (*results)->at(i) = static_cast<double>(i + 1);
        }
        return true;
    }
    void Assign(std::string_view, const Value&) override {}
};

TEST(SurfaceAreas, AreTheFifthToTheNinthResult) {
    const LateBound program(std::make_shared<CountingProgram>(), "Application", nullptr);
    const SurfaceAreas areas = MeasureAreas(program, "a.grd");
    EXPECT_EQ(areas.PositivePlanar, 5);
    EXPECT_EQ(areas.NegativePlanar, 6);
    EXPECT_EQ(areas.PositiveSurface, 7);
    EXPECT_EQ(areas.NegativeSurface, 8);
    EXPECT_EQ(areas.BlankedPlanar, 9);
}

TEST(SurfaceAreas, AreRecordsInShortestForm) {
    const TempFolder folder;
    FileTable files;
    PutFile(folder / "t.csv", "old\n");
    WriteAreas(files, folder / "t.csv", "m1, left", {0.5, 1.25, 0, -0.0, 1e20}, true);
    WriteAreas(files, folder / "t.csv", "m2", {1, 2, 3, 4, 5}, false);
    EXPECT_EQ(FileBytes(folder / "t.csv"),
              "\"File\",\"Positive_Planar_Area_[Cut]\",\"Negative_Planar_Area_[Fill]\","
              "\"Positive_Surface_Area_[Cut]\",\"Negative_Surface_Area_[Fill]\",\"Blanked_Planar_Area\"\r\n"
              "\"m1, left\",.5,1.25,0,0,1E+20\r\n\"m2\",1,2,3,4,5\r\n");
}

}  // namespace
}  // namespace crownlab
