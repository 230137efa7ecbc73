#include "surferfns/curvature_grid.h"

#include <filesystem>
#include <system_error>

#include "basis/failure.h"
#include "basis/text.h"
#include "surfer/grid_calls.h"
#include "surfer/session.h"

namespace crownlab {
namespace {

constexpr int kAngleStep = 10;  // degrees
constexpr int kNumAngles = 180 / kAngleStep;

/// Names of the working grids.
struct CurvatureNames {
    std::string Base;

    std::string Angle(int number) const { return Base + std::to_string(number) + ".grd"; }
    std::string Maximum(int number) const { return Base + "m" + std::to_string(number) + ".grd"; }
    std::string Result() const { return Base + "_curv" + std::to_string(kAngleStep) + ".grd"; }
};

void CurvatureAt(const Session& session, const std::string& grid, int angle, const std::string& out) {
    if (session.IsSix()) {
        session.SurferApp.Call("GridCalculus", {grid, 0, 2, angle, Absent{}, Absent{}, Absent{}, Absent{}, out});
    }
    if (!session.IsEight()) return;
    session.SurferApp.Call("GridCalculus", {{"InGrid", grid}, {"Operation", 3}, {"Param1", angle}, {"OutGrid", out}});
}

void TakeMaximum(const Session& session, const CurvatureNames& names) {
    constexpr const char* larger = "C=max(A,B)";
    GridFormula(session, larger, names.Angle(0), names.Angle(1), names.Maximum(0));
    for (int m = 1; m < kNumAngles; ++m) {
        GridFormula(session, larger, names.Angle(m + 1), names.Maximum(m - 1), names.Maximum(m));
    }
}

void Delete(const std::string& path) {
    std::error_code error;
    if (!std::filesystem::remove(path, error)) throw Failure(FailureKind::FileNotFound, path);
}

}  // namespace

void MakeCurvatureGrid(const Session& session, const std::string& grid) {
    constexpr std::size_t extensionLength = 4;
    const CurvatureNames names{LessLast(grid, extensionLength, "grid name")};
    for (int a = 0; a <= kNumAngles; ++a) CurvatureAt(session, grid, a * kAngleStep, names.Angle(a));
    TakeMaximum(session, names);
    GridFormula(session, "C=A", names.Maximum(kNumAngles - 1), {}, names.Result());
    for (int a = 0; a <= kNumAngles; ++a) Delete(names.Angle(a));
    for (int m = 0; m < kNumAngles; ++m) Delete(names.Maximum(m));
}

}  // namespace crownlab
