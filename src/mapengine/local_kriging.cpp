#include "mapengine/local_kriging.h"

#include <algorithm>
#include <cmath>

#include "basis/dispatch.h"
#include "mapengine/linear_system.h"

// With distances D between the points and d to the place, the weights w solve D w + m = d, sum of w = 1. The system is
// symmetric but not definite. A constant K larger than a bound on D makes C = K - D positive definite, and as the
// weights add up to 1 it changes only m: C w - m = c with c = K - d. So, C = L L' being Cholesky's factors,
//
//   m' = (1' C^-1 c - 1) / (1' C^-1 1),   z = z' C^-1 c - m' z' C^-1 1.
//
// All four products come out of one elimination: c, 1 and z are three more rows below C, and what elimination leaves
// in their corner, minus, are these products.
//
// How large K has to be: C is definite if K is above the largest w' D w of weights that add up to 1, signs free. For
// points in a disc of radius r that is at most pi/2 r (on such energies: R. Alexander and K. B. Stolarsky, "Extremal
// problems of distance geometry related to energy integrals", 1974); all neighbours lie in the disc that reaches from
// the place to the farthest. K = 2 r also keeps all elements of C from being negative.
//
// Elimination runs over columns side by side, every element by the same operations in the same order whatever the
// width of the registers.

namespace crownlab {
namespace {

constexpr std::size_t kPanel = 4;  ///< columns that are eliminated together
constexpr std::size_t kMostRows = Neighbours::kMost + kPanel;
constexpr std::size_t kMostPanels = kMostRows / kPanel;

/// A pivot below this share of K is nothing but rounding: the points stand too close together.
constexpr double kSmallestPivot = 1e-13;

// Rows of the last panel, below C.
constexpr std::size_t kRowC = 0;
constexpr std::size_t kRowOnes = 1;
constexpr std::size_t kRowZ = 2;

/// Elements before a panel: each one's four columns start at its own first row.
constexpr std::size_t PanelStart(std::size_t panel, std::size_t rows) {
    return kPanel * (panel * rows - kPanel * (panel * (panel - 1) / 2));
}

/// The lower triangle of C, filled up with rows of the unit matrix to a multiple of four, and the panel below it.
struct Triangle {
    std::size_t Rows = 0;
    alignas(64) std::array<double, PanelStart(kMostPanels, kMostRows)> Elements;

    std::size_t Panels() const { return Rows / kPanel; }
    std::size_t Height(std::size_t panel) const { return Rows - kPanel * panel; }
    /// The first of a panel's columns, which lie one behind the other.
    double* Panel(std::size_t panel) { return Elements.data() + PanelStart(panel, Rows); }
};

/// Places of the neighbours, with room to fill up the last four.
struct Places {
    alignas(64) std::array<double, Neighbours::kMost> X{};
    alignas(64) std::array<double, Neighbours::kMost> Y{};
};

/// K less the distances between one point and those from `first` on.
CROWNLAB_INLINE void FillDistances(double* __restrict column, const Places& places, std::size_t first,
                                   std::size_t count, std::size_t point, double constant) {
    const double* __restrict const x = places.X.data() + first;
    const double* __restrict const y = places.Y.data() + first;
    const double pointX = places.X[point];
    const double pointY = places.Y[point];
    for (std::size_t i = 0; i < count; ++i) {
        const double dx = x[i] - pointX;
        const double dy = y[i] - pointY;
        column[i] = constant - std::sqrt(dx * dx + dy * dy);
    }
}

CROWNLAB_INLINE void FillColumn(double* column, const Neighbours& found, const Places& places, std::size_t point,
                                std::size_t size, double constant) {
    const std::size_t first = point / kPanel * kPanel;
    double* const below = column + (size - first);
    if (point >= found.Count) {
        std::fill(column, below + kPanel, 0.0);
        column[point - first] = 1;
        return;
    }
    FillDistances(column, places, first, size - first, point, constant);
    std::fill(column + (found.Count - first), below, 0.0);
    below[kRowC] = constant - std::sqrt(found.Squared[point]);
    below[kRowOnes] = 1;
    below[kRowZ] = found.Z[point] - found.Z[0];
    below[kRowZ + 1] = 0;
}

CROWNLAB_INLINE void Fill(Triangle& triangle, const Neighbours& found, double constant) {
    Places places;
    std::copy_n(found.X.begin(), found.Count, places.X.begin());
    std::copy_n(found.Y.begin(), found.Count, places.Y.begin());
    const std::size_t size = (found.Count + kPanel - 1) / kPanel * kPanel;
    triangle.Rows = size + kPanel;
    for (std::size_t point = 0; point < size; ++point) {
        const std::size_t panel = point / kPanel;
        double* const column = triangle.Panel(panel) + point % kPanel * triangle.Height(panel);
        FillColumn(column, found, places, point, size, constant);
    }
    std::fill_n(triangle.Panel(triangle.Panels() - 1), kPanel * kPanel, 0.0);
}

/// The four columns of a panel become columns of L. False if a pivot is too small.
CROWNLAB_INLINE bool FactorPanel(double* panel, std::size_t rows, double smallest) {
    for (std::size_t k = 0; k < kPanel; ++k) {
        double* __restrict const column = panel + k * rows;
        if (!(column[k] > smallest)) return false;
        const double scale = 1 / std::sqrt(column[k]);
        for (std::size_t i = 0; i < rows; ++i) column[i] *= scale;
        for (std::size_t next = k + 1; next < kPanel; ++next) {
            double* __restrict const other = panel + next * rows;
            const double factor = column[next];
            for (std::size_t i = 0; i < rows; ++i) other[i] -= column[i] * factor;
        }
    }
    return true;
}

/// Two columns less multiples of four others. `source` is the first of the four from the targets' first row on, `row`
/// the first target's number from there.
CROWNLAB_INLINE void Subtract(double* __restrict target, std::size_t rows, const double* __restrict source,
                              std::size_t stride, std::size_t row) {
    double* __restrict const second = target + rows;
    const double* const a = source;
    const double* const b = source + stride;
    const double* const c = source + 2 * stride;
    const double* const d = source + 3 * stride;
    const double a0 = a[row];
    const double b0 = b[row];
    const double c0 = c[row];
    const double d0 = d[row];
    const double a1 = a[row + 1];
    const double b1 = b[row + 1];
    const double c1 = c[row + 1];
    const double d1 = d[row + 1];
    for (std::size_t i = 0; i < rows; ++i) {
        target[i] = (((target[i] - a[i] * a0) - b[i] * b0) - c[i] * c0) - d[i] * d0;
        second[i] = (((second[i] - a[i] * a1) - b[i] * b1) - c[i] * c1) - d[i] * d1;
    }
}

CROWNLAB_INLINE bool Eliminate(Triangle& triangle, double smallest) {
    const std::size_t last = triangle.Panels() - 1;
    for (std::size_t panel = 0; panel < last; ++panel) {
        const std::size_t stride = triangle.Height(panel);
        if (!FactorPanel(triangle.Panel(panel), stride, smallest)) return false;
        for (std::size_t next = panel + 1; next <= last; ++next) {
            const std::size_t rows = triangle.Height(next);
            const double* const source = triangle.Panel(panel) + kPanel * (next - panel);
            Subtract(triangle.Panel(next), rows, source, stride, 0);
            Subtract(triangle.Panel(next) + 2 * rows, rows, source, stride, 2);
        }
    }
    return true;
}

/// The height by way of Cholesky's factors; false where they don't exist in 64 bits.
CROWNLAB_WIDE bool ByCholesky(const Neighbours& found, double farthest, double& height) {
    const double constant = 2 * farthest;
    Triangle triangle;
    Fill(triangle, found, constant);
    if (!Eliminate(triangle, kSmallestPivot * constant)) return false;
    const double* const corner = triangle.Panel(triangle.Panels() - 1);
    const double onesByC = -corner[kRowOnes];
    const double zByC = -corner[kRowZ];
    const double onesByOnes = -corner[kPanel + kRowOnes];
    const double zByOnes = -corner[kPanel + kRowZ];
    const double multiplier = (onesByC - 1) / onesByOnes;
    height = found.Z[0] + (zByC - multiplier * zByOnes);
    return true;
}

double Farthest(const Neighbours& found) {
    return std::sqrt(*std::max_element(found.Squared.begin(), found.Squared.begin() + found.Count));
}

}  // namespace

double LocalKriging(const Neighbours& found) {
    double height = 0;
    if (ByCholesky(found, Farthest(found), height)) return height;
    return LocalKrigingByLu(found);
}

double LocalKrigingByLu(const Neighbours& found) {
    const std::size_t count = found.Count;
    const double unit = Farthest(found);
    LinearSystem system(count + 1);
    for (std::size_t i = 0; i < count; ++i) {
        for (std::size_t j = 0; j < count; ++j) {
            const double dx = found.X[j] - found.X[i];
            const double dy = found.Y[j] - found.Y[i];
            system.At(j, i) = std::sqrt(dx * dx + dy * dy) / unit;
        }
        system.At(count, i) = 1;
        system.At(i, count) = 1;
        system.Right[i] = std::sqrt(found.Squared[i]) / unit;
    }
    system.Right[count] = 1;
    const std::vector<double> weights = Solve(system);
    double height = 0;
    for (std::size_t i = 0; i < count; ++i) height += weights[i] * (found.Z[i] - found.Z[0]);
    return found.Z[0] + height;
}

}  // namespace crownlab
