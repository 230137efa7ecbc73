#include "convert/surface_triangles.h"

#include <array>

namespace crownlab {
namespace {

/// A node, as steps in column and row from the cell's first corner.
struct Step {
    int Column;
    int Row;
};

/// A triangle that is written where all of `Valid` are there and `Blank` isn't.
struct Rule {
    std::array<Step, 4> Valid;
    int ValidCount;
    Step Blank;
    bool HasBlank;
    std::array<Step, 3> Triangle;
};

constexpr Step kOwn{0, 0};
constexpr Step kRight{1, 0};
constexpr Step kLeft{-1, 0};
constexpr Step kUp{0, 1};
constexpr Step kDown{0, -1};
constexpr Step kRightUp{1, 1};
constexpr Step kRightDown{1, -1};
constexpr Step kLeftUp{-1, 1};
constexpr Step kLeftDown{-1, -1};

constexpr Rule Of(std::array<Step, 3> triangle) {
    return {{triangle[0], triangle[1], triangle[2], kOwn}, 3, kOwn, false, triangle};
}

constexpr Rule Of(std::array<Step, 3> triangle, Step blank) {
    return {{triangle[0], triangle[1], triangle[2], kOwn}, 3, blank, true, triangle};
}

constexpr Rule Of(std::array<Step, 4> valid, Step blank, std::array<Step, 3> triangle) {
    return {valid, 4, blank, true, triangle};
}

/// The cell's own triangles. They don't exclude one another.
constexpr std::array<Rule, 4> kCellRules{{
    Of({kRight, kOwn, kUp}),
    Of({kRight, kUp, kRightUp}),
    Of({kOwn, kUp, kRightUp}, kRight),
    Of({kOwn, kRightUp, kRight}, kUp),
}};

/// Stitches round a blank node that has nodes on all sides.
constexpr std::array<Rule, 12> kHoleRules{{
    Of({kLeft, kUp, kRight}),
    Of({kUp, kRight, kDown}),
    Of({kRight, kDown, kLeft}),
    Of({kDown, kLeft, kUp}),
    Of({kRightDown, kRight, kRightUp, kDown}, kUp, {kDown, kRightUp, kRight}),
    Of({kRightDown, kRight, kRightUp, kUp}, kDown, {kUp, kRight, kRightDown}),
    Of({kLeftDown, kLeft, kLeftUp, kDown}, kUp, {kDown, kLeft, kLeftUp}),
    Of({kLeftDown, kLeft, kLeftUp, kUp}, kDown, {kUp, kLeftDown, kLeft}),
    Of({kLeftUp, kUp, kRightUp, kLeft}, kRight, {kUp, kRightUp, kLeft}),
    Of({kLeftUp, kUp, kRightUp, kRight}, kLeft, {kLeftUp, kUp, kRight}),
    Of({kLeftDown, kDown, kRightDown, kLeft}, kRight, {kRightDown, kDown, kLeft}),
    Of({kLeftDown, kDown, kRightDown, kRight}, kLeft, {kDown, kLeftDown, kRight}),
}};

/// Vertex numbers by column and row from 1.
class Vertices {
public:
    Vertices(int cols, const std::vector<std::int16_t>& numbers) : cols_(cols), numbers_(numbers) {}

    int At(int i, int j, Step step) const {
        const auto row = static_cast<std::size_t>(j + step.Row - 1);
        return numbers_[row * static_cast<std::size_t>(cols_) + static_cast<std::size_t>(i + step.Column - 1)];
    }

    bool Fits(const Rule& rule, int i, int j) const {
        for (int k = 0; k < rule.ValidCount; ++k) {
            if (At(i, j, rule.Valid[static_cast<std::size_t>(k)]) < 0) return false;
        }
        return !rule.HasBlank || At(i, j, rule.Blank) < 0;
    }

    template <std::size_t Count>
    void Apply(const std::array<Rule, Count>& rules, int i, int j, const TriangleSink& take) const {
        for (const Rule& rule : rules) {
            if (!Fits(rule, i, j)) continue;
            take(At(i, j, rule.Triangle[0]), At(i, j, rule.Triangle[1]), At(i, j, rule.Triangle[2]));
        }
    }

private:
    int cols_;
    const std::vector<std::int16_t>& numbers_;
};

}  // namespace

void CellTriangles(int cols, int rows, const TriangleSink& take) {
    for (int j = 1; j < rows; ++j) {
        for (int i = 1; i < cols; ++i) {
            const int low = cols * (j - 1) + i;
            const int high = cols * j + i;
            take(low - 1, low, high - 1);
            take(low, high, high - 1);
        }
    }
}

void SurfaceTriangles(int cols, int rows, const std::vector<std::int16_t>& vertex, const TriangleSink& take) {
    const Vertices vertices(cols, vertex);
    for (int j = 1; j < rows; ++j) {
        for (int i = 1; i < cols; ++i) {
            vertices.Apply(kCellRules, i, j, take);
            if (i > 1 && j > 1 && vertices.At(i, j, kOwn) < 0) vertices.Apply(kHoleRules, i, j, take);
        }
    }
}

}  // namespace crownlab
