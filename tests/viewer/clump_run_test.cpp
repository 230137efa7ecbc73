// The patch count as the window runs it: source, stages, results and how often it serves other events.

#include <gtest/gtest.h>

#include <string>

#include "basis/rounding.h"
#include "support/expect_failure.h"
#include "support/temp_folder.h"
#include "viewer/slow_clump.h"
#include "viewer/take_surface.h"
#include "viewer/viewer_window.h"

namespace crownlab {
namespace {

/// The stages of the window against those of the slow version.
void ExpectSameStages(const ViewerState& state, const SlowClump& slow) {
    for (int level = 2; level <= 7; ++level) {
        const LabelGrid& found = *state.Stack.Level.at(static_cast<std::size_t>(level));
        const SlowArray& expected = slow.Level.at(static_cast<std::size_t>(level));
        for (int j = 1; j <= found.NumY; ++j) {
            for (int i = 1; i <= found.NumX; ++i) {
                const std::int16_t label = found.Labels[static_cast<std::size_t>((j - 1) * found.NumX + i - 1)];
                ASSERT_EQ(label, expected(i, j)) << "level " << level << ", cell (" << i << ", " << j << ")";
            }
        }
    }
    ASSERT_EQ(state.Clump.ClumpSizes, slow.ClumpSizes);
}

SlowClump SlowRunOf(const ViewerState& state, bool voidHoriz, int minClumpSize) {
    SlowClump slow = SlowClumpOf(state.ProcGrid);
    slow.NumCategories = state.NumCategories;
    slow.HalfSector = state.HalfSector;
    slow.SectorWidth = state.SectorWidth;
    slow.VoidHoriz = voidHoriz;
    slow.MinClumpSize = minClumpSize;
    slow.Run();
    return slow;
}

/// Inner cells and diversity by plain loops.
double SlowDiversity(const SurfaceGrid& work, const std::vector<double>& sizes) {
    double total = 0;
    for (int j = 2; j <= work.NumY - 1; ++j) {
        for (int i = 2; i <= work.NumX - 1; ++i) total += work.z(i, j) != 9999 ? 1 : 0;
    }
    double sum = 0;
    for (const double size : sizes) sum += (size / total) * (size / total);
    return sizes.empty() ? 0 : 1 / sum;
}

TEST(ClumpRun, EqualsTheSlowVersionOnAllSurfaces) {
    SCOPED_TRACE(kRandomSeed);
    const TempFolder folder;
    RandomNumbers numbers;
    ViewerWindow viewer;
    FrmCSVView& form = viewer.Form();
    form.chkClumpSaveImage.Checked = false;
    int contours = 0;
    for (const NamedSurface& surface : SurfaceFamilies(numbers)) {
        const bool contour = surface.Grid.NumX > 2 && surface.Grid.NumY > 2 && numbers.Below(3) == 0;
        SCOPED_TRACE(surface.Name + (contour ? ", contour" : ", orientation"));
        TakeSurface(viewer.Form(), surface.Grid, folder.Path());
        form.optClumpAspectSlope.Selected = !contour;
        form.optClumpContour.Selected = contour;
        form.chkUseMinSlope.Checked = numbers.Below(2) == 0;
        form.chkVoidHoriz.Checked = numbers.Below(2) == 0;
        const char* const categories[] = {"8", "8", "6", "7", "12"};
        form.txtAspectNoCat.Text = categories[numbers.Below(5)];
        form.txtContourScaleZ.Text = numbers.Below(2) == 0 ? "2" : "1.5";
        form.txtMinClumpSize.Text = std::to_string(numbers.Below(4));
        try {
            cmdProcClump_Click(form);
        } catch (const Failure& failure) {
            // One band only, or no cell at all to make bands of.
            ASSERT_TRUE(contour) << failure.what();
            ASSERT_TRUE(failure.Kind() == FailureKind::DivisionByZero || failure.Kind() == FailureKind::Overflow);
            continue;
        }
        contours += contour ? 1 : 0;
        const ViewerState& state = form.State;
        ExpectSameStages(state, SlowRunOf(state, form.chkVoidHoriz.Checked, std::stoi(form.txtMinClumpSize.Text)));
        if (HasFatalFailure()) return;
        EXPECT_EQ(form.lblNoClumps.Caption, std::to_string(state.Clump.ClumpSizes.size()));
        EXPECT_DOUBLE_EQ(state.Clump.PatchDiversity, SlowDiversity(surface.Grid, state.Clump.ClumpSizes));
    }
    EXPECT_GT(contours, 5);
}

/// A grid in which all the places at which other events are served are reached: 30 by 50 and 13 by 137.
SurfaceGrid LargeGrid(int numX, int numY, bool manyLabels, RandomNumbers& numbers) {
    return MakeGrid(numX, numY, [&](int i, int j) {
        return manyLabels && numbers.Below(4) == 0 ? 20 * Share(numbers) : 3 * std::sin(0.1 * i) * std::cos(0.07 * j);
    });
}

int YieldsOfRun(const SurfaceGrid& grid, int& numLabels) {
    const TempFolder folder;
    ViewerWindow viewer;
    FrmCSVView& form = viewer.Form();
    form.chkClumpSaveImage.Checked = false;
    TakeSurface(viewer.Form(), grid, folder.Path());
    cmdProcClump_Click(form);
    numLabels = form.State.NumLabels;
    ExpectSameStages(form.State, SlowRunOf(form.State, false, 2));
    return viewer.Screen.Yields;
}

// Once in the orientation pass (column 30, row 50); in each of the four passes once while equivalences are
// looked for and once while labels are replaced (column 13, row 137), and once in the table at label 406.
TEST(ClumpRun, ServesOtherEventsAtItsPlaces) {
    SCOPED_TRACE(kRandomSeed);
    RandomNumbers numbers;
    int numLabels = 0;
    EXPECT_EQ(YieldsOfRun(LargeGrid(61, 141, true, numbers), numLabels), 1 + 4 * 3);
    EXPECT_GE(numLabels, 406);
    EXPECT_EQ(YieldsOfRun(LargeGrid(61, 141, false, numbers), numLabels), 1 + 4 * 2);
    EXPECT_LT(numLabels, 406);
    EXPECT_EQ(YieldsOfRun(LargeGrid(30, 137, false, numbers), numLabels), 1 + 4 * 2);
    EXPECT_EQ(YieldsOfRun(LargeGrid(29, 137, false, numbers), numLabels), 4 * 2);
    EXPECT_EQ(YieldsOfRun(LargeGrid(13, 137, false, numbers), numLabels), 4 * 2);
    EXPECT_EQ(YieldsOfRun(LargeGrid(12, 137, false, numbers), numLabels), 0);
    EXPECT_EQ(YieldsOfRun(LargeGrid(30, 136, false, numbers), numLabels), 1);
    EXPECT_EQ(YieldsOfRun(LargeGrid(30, 50, false, numbers), numLabels), 1);
    EXPECT_EQ(YieldsOfRun(LargeGrid(30, 49, false, numbers), numLabels), 0);
    EXPECT_EQ(YieldsOfRun(LargeGrid(80, 49, true, numbers), numLabels), 4);
    EXPECT_GE(numLabels, 406);
}

/// The count on `grid` with `act` at the yield of that number. How the outer count ended.
std::string RunWith(const SurfaceGrid& grid, int yield,
                    const std::function<void(FrmCSVView&, const std::string&)>& act) {
    const TempFolder folder;
    ViewerWindow viewer;
    FrmCSVView& form = viewer.Form();
    form.chkClumpSaveImage.Checked = false;
    TakeSurface(viewer.Form(), grid, folder.Path());
    bool acted = false;
    viewer.Screen.AtYield(yield, [&] {
        acted = true;
        Dispatch(viewer.Screen, "nested", [&] { act(form, folder.Path()); });
    });
    EXPECT_EQ(viewer.Screen.Yields, 0);
    try {
        cmdProcClump_Click(form);
    } catch (const Failure& failure) {
        return std::string(FailureName(failure.Kind()));
    }
    EXPECT_TRUE(acted);
    return "done";
}

TEST(ClumpRun, BearsWhateverHappensAtItsYields) {
    RandomNumbers numbers;
    const SurfaceGrid grid = LargeGrid(40, 140, true, numbers);
    const SurfaceGrid smaller = LargeGrid(20, 20, false, numbers);
    const SurfaceGrid larger = LargeGrid(50, 150, false, numbers);
    for (int yield = 1; yield <= 13; ++yield) {
        SCOPED_TRACE(yield);
        const auto press = [](FrmCSVView& f, const std::string&) { cmdProcClump_Click(f); };
        EXPECT_EQ(RunWith(grid, yield, press), "done");
        for (const SurfaceGrid* const other : {&smaller, &larger}) {
            const auto read = [&](FrmCSVView& f, const std::string& folder) { TakeSurface(f, *other, folder); };
            EXPECT_EQ(RunWith(grid, yield, read), "SubscriptOutOfRange");
            // A whole count of another surface in between: whatever comes of it, nothing is touched outside the arrays.
            const auto readAndCount = [&](FrmCSVView& f, const std::string& folder) {
                TakeSurface(f, *other, folder);
                cmdProcClump_Click(f);
            };
            const std::string end = RunWith(grid, yield, readAndCount);
            EXPECT_TRUE(end == "done" || end == "SubscriptOutOfRange") << end;
        }
        const auto slopes = [](FrmCSVView& f, const std::string&) {
            f.chkAspectSlopeSaveImage.Checked = false;
            cmdProcAspectSlope_Click(f);
        };
        EXPECT_EQ(RunWith(grid, yield, slopes), "done");
        const auto copy = [](FrmCSVView& f, const std::string&) { CopyPicBoxProc(f, -1, 2); };
        EXPECT_EQ(RunWith(grid, yield, copy), "done");
    }
}

// Another surface of the same size is read and counted while pass one looks for equivalences: the rest of that pass and
// all that follows go by the labels that the inner count left, with a table that it left empty.
TEST(ClumpRun, GoesOnWithWhatAnInnerCountLeft) {
    SCOPED_TRACE(kRandomSeed);
    const TempFolder folder;
    RandomNumbers numbers;
    const SurfaceGrid grid = LargeGrid(40, 200, false, numbers);
    const SurfaceGrid other = LargeGrid(40, 200, true, numbers);
    ViewerWindow viewer;
    FrmCSVView& form = viewer.Form();
    form.chkClumpSaveImage.Checked = false;
    TakeSurface(form, grid, folder.Path());
    viewer.Screen.AtYield(2, [&] {
        TakeSurface(form, other, folder.Path());
        cmdProcClump_Click(form);
    });
    cmdProcClump_Click(form);

    SlowClump slow = SlowRunOf(form.State, false, 2);
    for (int row = 137; row <= 200; ++row) {
        for (int column = row == 137 ? 13 : 1; column <= 40; ++column) slow.FindEquiv(2, column, row);
    }
    slow.Shorten();
    slow.FixEquiv(2);
    slow.EquivTable.assign(slow.EquivTable.size(), 0);
    for (int pass = 2; pass <= 4; ++pass) slow.DoPass(pass);
    slow.ClumpSizes.clear();
    slow.Count();
    ExpectSameStages(form.State, slow);
}

// Pressing the button in the middle of its own run leaves the same files as one run does.
TEST(ClumpRun, NestedInItselfGivesTheSameCount) {
    RandomNumbers numbers;
    const SurfaceGrid grid = LargeGrid(40, 140, true, numbers);
    const TempFolder folder;
    const auto bytes = [&](int yield) {
        ViewerWindow viewer;
        viewer.Form().chkClumpSaveImage.Checked = false;
        TakeSurface(viewer.Form(), grid, folder.Path());
        viewer.Screen.AtYield(yield, [&] { cmdProcClump_Click(viewer.Form()); });
        cmdProcClump_Click(viewer.Form());
        return FileBytes(folder / "cl_asp8_2/surface-cl_asp8_2.csv");
    };
    const std::string alone = bytes(0);
    EXPECT_GT(alone.size(), 1000u);
    // In the orientation pass nothing of the count is there yet.
    EXPECT_EQ(bytes(1), alone);
}

TEST(ClumpRun, CurrentViewBeforeAnyRunDividesByZero) {
    const TempFolder folder;
    RandomNumbers numbers;
    ViewerWindow viewer;
    TakeSurface(viewer.Form(), LargeGrid(9, 9, false, numbers), folder.Path());
    viewer.Form().optClumpAspectSlope.Selected = false;
    viewer.Form().optClumpCurrentView.Selected = true;
    EXPECT_TRUE(FailsWith(FailureKind::DivisionByZero, [&] { cmdProcClump_Click(viewer.Form()); }));
    EXPECT_EQ(viewer.Form().MousePointer, kPointerHourglass);
}

}  // namespace
}  // namespace crownlab
