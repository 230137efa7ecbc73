#include "viewer/clump.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <numeric>

#include "basis/failure.h"
#include "basis/memory_limit.h"
#include "basis/rounding.h"
#include "viewer/aspect_slope.h"

namespace crownlab {
namespace {

constexpr double kFullCircle = 360;

double CategoryOf(double z, const ClassRule& rule) {
    if (z == kEmptyCellZ) return kEmptyCellZ;
    if (z == kBelowMinSlope) return rule.VoidHoriz ? kEmptyCellZ : rule.NumCategories + 1;
    const double c = std::floor((z + rule.HalfSector) / rule.SectorWidth) + 1;
    // The sector around north wraps.
    if (c == rule.NumCategories + 1) return 1;
    if (c == rule.NumCategories + 2) return 2;
    return c;
}

/// Gives out labels in the first scan.
struct LabelSource {
    int Last = 0;
    std::int16_t Next() {
        if (Last == std::numeric_limits<std::int16_t>::max()) throw Failure(FailureKind::Overflow, "NextClumpLabel");
        return static_cast<std::int16_t>(++Last);
    }
};

/// First label of cell (column, row); `at` is its place in the arrays, `numX` the length of a row.
std::int16_t FirstLabel(const std::vector<double>& category, const std::vector<std::int16_t>& labels, std::size_t at,
                        int column, int row, std::size_t numX, LabelSource& source) {
    const double c = category[at];
    if (c == kEmptyCellZ) return kNoLabel;
    if (column == 1 && row == 1) {
        source.Last = 2;
        return 1;
    }
    if (column > 1 && category[at - 1] == c) return labels[at - 1];
    if (row > 1 && category[at - numX] == c) return labels[at - numX];
    return source.Next();
}

/// Enters one pair of unequal labels.
void EnterPair(std::int16_t a, std::int16_t b, std::vector<std::int16_t>& table) {
    const std::int16_t greater = std::max(a, b);
    if (static_cast<std::size_t>(greater) >= table.size())
        throw Failure(FailureKind::SubscriptOutOfRange, "EquivTable");
    table[static_cast<std::size_t>(greater)] = std::min(a, b);
}

/// The arrays of one scan for equivalences.
struct EquivScan {
    const double* Category;
    const std::int16_t* Label;
    std::size_t NumX;
    std::size_t NumY;

    bool Differs(std::size_t a, std::size_t b) const { return (Category[a] == Category[b]) & (Label[a] != Label[b]); }

    /// Enters what the cell at `at` (column and row from 0) has to say, neighbour by neighbour.
    void Enter(std::size_t at, std::vector<std::int16_t>& table) const {
        if (Label[at] == kNoLabel) return;
        const std::size_t column = at % NumX;
        const std::size_t row = at / NumX;
        if (row + 1 < NumY && Differs(at, at + NumX)) EnterPair(Label[at], Label[at + NumX], table);
        if (row > 0 && Differs(at, at - NumX)) EnterPair(Label[at], Label[at - NumX], table);
        if (column + 1 < NumX && Differs(at, at + 1)) EnterPair(Label[at], Label[at + 1], table);
        if (column > 0 && Differs(at, at - 1)) EnterPair(Label[at], Label[at - 1], table);
    }
};

/// True if the row at `start` has a cell whose label differs from that of a neighbour of its category.
bool RowHasPairs(const EquivScan& scan, std::size_t start, bool hasNextRow) {
    unsigned pairs = 0;
    for (std::size_t i = start; i + 1 < start + scan.NumX; ++i) pairs += scan.Differs(i, i + 1);
    if (hasNextRow) {
        for (std::size_t i = start; i < start + scan.NumX; ++i) pairs += scan.Differs(i, i + scan.NumX);
    }
    return pairs != 0;
}

EquivScan ScanOf(const std::vector<double>& category, const LabelGrid& labels) {
    return {category.data(), labels.Labels.data(), static_cast<std::size_t>(labels.NumX),
            static_cast<std::size_t>(labels.NumY)};
}

std::vector<std::size_t> FindCellsWithPairs(const EquivScan& scan) {
    std::vector<std::size_t> cells;
    bool previousRow = false;
    for (std::size_t row = 0; row < scan.NumY; ++row) {
        const std::size_t start = row * scan.NumX;
        const bool thisRow = RowHasPairs(scan, start, row + 1 < scan.NumY);
        if (thisRow || previousRow) {
            for (std::size_t column = 0; column < scan.NumX; ++column) {
                const std::size_t at = start + column;
                const bool pairs = (column + 1 < scan.NumX && scan.Differs(at, at + 1)) ||
                                   (column > 0 && scan.Differs(at, at - 1)) ||
                                   (row + 1 < scan.NumY && scan.Differs(at, at + scan.NumX)) ||
                                   (row > 0 && scan.Differs(at, at - scan.NumX));
                if (pairs) cells.push_back(at);
            }
        }
        previousRow = thisRow;
    }
    return cells;
}

std::size_t PositionOf(Pass pass, std::size_t numX, std::size_t numY, std::size_t column, std::size_t row) {
    switch (pass) {
        case Pass::One: return row * numX + column;
        case Pass::Two: return column * numY + row;
        case Pass::Three: return (numY - 1 - row) * numX + (numX - 1 - column);
        case Pass::Four: return (numX - 1 - column) * numY + (numY - 1 - row);
    }
    return 0;
}

/// Classes of labels with the same entry, as a forest of labels; each class knows the entry that its
/// members share, and each entry the class that has it.
class EntryClasses {
public:
    explicit EntryClasses(const std::vector<std::int16_t>& table)
        : parent_(table.size()), entry_(table.begin(), table.end()), classOf_(table.size(), 0) {
        std::iota(parent_.begin(), parent_.end(), 0);
        for (int label = 1; label < static_cast<int>(table.size()); ++label) {
            if (const int entry = table[Index(label)]; entry != 0) Join(label, entry);
        }
    }

    int EntryOf(int label) { return entry_[Index(Root(label))]; }

    /// Every label whose entry is `from` gets `to` instead.
    void Move(int from, int to) {
        const int root = classOf_[Index(from)];
        classOf_[Index(from)] = 0;
        Join(root, to);
    }

private:
    static std::size_t Index(int label) { return static_cast<std::size_t>(label); }

    int Root(int label) {
        while (parent_[Index(label)] != label) {
            parent_[Index(label)] = parent_[Index(parent_[Index(label)])];
            label = parent_[Index(label)];
        }
        return label;
    }

    /// Puts the class of `root` with those whose entry is `entry`.
    void Join(int root, int entry) {
        int& known = classOf_[Index(entry)];
        if (known != 0) {
            parent_[Index(root)] = known;
        } else {
            known = root;
            entry_[Index(root)] = entry;
        }
    }

    std::vector<int> parent_;
    std::vector<int> entry_;    // of a class, kept at its root
    std::vector<int> classOf_;  // root of the labels with that entry, 0 for none
};

}  // namespace

ClassRule OrientationRule(double numCategories, bool voidHoriz) {
    ClassRule rule;
    rule.NumCategories = ToInt16(numCategories, "NumCategories");
    const double width = Divide(kFullCircle, rule.NumCategories, "NumCategories");
    rule.HalfSector = width / 2;
    rule.SectorWidth = ToInt16(width, "SectorWidth");
    rule.VoidHoriz = voidHoriz;
    return rule;
}

ClassRule ContourRule(double lowest, double highest, bool voidHoriz) {
    return {.NumCategories = ToInt16(highest - lowest + 1, "NumCategories"),
            .HalfSector = 0,
            .SectorWidth = 1,
            .VoidHoriz = voidHoriz};
}

std::vector<double> Categorise(const SurfaceGrid& values, const ClassRule& rule) {
    if (rule.SectorWidth == 0) throw Failure(FailureKind::DivisionByZero, "SectorWidth");
    RequireMemory(values.Size() * sizeof(double), "ClumpStack");
    std::vector<double> category(values.Size());
    std::transform(values.Z.begin(), values.Z.end(), category.begin(), [&](double z) { return CategoryOf(z, rule); });
    return category;
}

LabelGrid EmptyLabels(int numX, int numY, const std::shared_ptr<const std::vector<Place>>& places) {
    const std::size_t cells = static_cast<std::size_t>(numX) * static_cast<std::size_t>(numY);
    RequireMemory(cells * sizeof(std::int16_t), "ClumpStack");
    return {.NumX = numX, .NumY = numY, .Places = places, .Labels = std::vector<std::int16_t>(cells)};
}

std::vector<std::int16_t> EmptyEquivTable() { return std::vector<std::int16_t>(kMaxLabels + 1, 0); }

FirstLabelsResult FirstLabels(const std::vector<double>& category, const SurfaceGrid& like) {
    FirstLabelsResult result{EmptyLabels(like.NumX, like.NumY, like.Places), 0};
    LabelSource source;
    const auto numX = static_cast<std::size_t>(like.NumX);
    std::size_t at = 0;
    for (int row = 1; row <= like.NumY; ++row) {
        for (int column = 1; column <= like.NumX; ++column, ++at) {
            result.Labels.Labels[at] = FirstLabel(category, result.Labels.Labels, at, column, row, numX, source);
        }
    }
    result.LastLabel = source.Last;
    return result;
}

std::size_t ScanPosition(Pass pass, int numX, int numY, int column, int row) {
    return PositionOf(pass, static_cast<std::size_t>(numX), static_cast<std::size_t>(numY),
                      static_cast<std::size_t>(column - 1), static_cast<std::size_t>(row - 1));
}

std::vector<std::size_t> CellsWithPairs(const std::vector<double>& category, const LabelGrid& labels) {
    return FindCellsWithPairs(ScanOf(category, labels));
}

void FindEquiv(const std::vector<double>& category, const LabelGrid& labels, const std::vector<std::size_t>& cells,
               Pass pass, std::size_t first, std::size_t last, std::vector<std::int16_t>& equivTable) {
    const EquivScan scan = ScanOf(category, labels);
    struct Visit {
        std::size_t Position;
        std::size_t At;
    };
    std::vector<Visit> visits;
    for (const std::size_t at : cells) {
        const std::size_t position = PositionOf(pass, scan.NumX, scan.NumY, at % scan.NumX, at / scan.NumX);
        if (position >= first && position < last) visits.push_back({position, at});
    }
    std::sort(visits.begin(), visits.end(), [](const Visit& a, const Visit& b) { return a.Position < b.Position; });
    for (const Visit& visit : visits) scan.Enter(visit.At, equivTable);
}

void ShortenEquivTable(std::vector<std::int16_t>& equivTable, int numLabels, int from, int to) {
    if (numLabels >= static_cast<int>(equivTable.size())) throw Failure(FailureKind::SubscriptOutOfRange, "EquivTable");
    EntryClasses classes(equivTable);
    for (int k = from; k >= to; --k) {
        const int m = classes.EntryOf(k);
        const int t = m == 0 ? 0 : classes.EntryOf(m);
        if (t != 0) classes.Move(m, t);
    }
    for (int label = 1; label <= numLabels; ++label) {
        equivTable[static_cast<std::size_t>(label)] = static_cast<std::int16_t>(classes.EntryOf(label));
    }
}

void FixEquiv(const LabelGrid& labels, const std::vector<std::int16_t>& equivTable, std::size_t first, std::size_t last,
              LabelGrid& fixed) {
    for (std::size_t at = first; at < last; ++at) {
        const std::int16_t label = labels.Labels[at];
        std::int16_t result = label;
        if (label != kNoLabel) {
            if (static_cast<std::size_t>(label) >= equivTable.size() || label < 1) {
                throw Failure(FailureKind::SubscriptOutOfRange, "EquivTable");
            }
            const std::int16_t entry = equivTable[static_cast<std::size_t>(label)];
            if (entry != 0) result = entry;
        }
        fixed.Labels[at] = result;
    }
}

ClumpSelection SelectClumps(const LabelGrid& labels, int numLabels, int minClumpSize) {
    std::vector<std::int32_t> labelCount(static_cast<std::size_t>(numLabels) + 1, 0);
    for (const std::int16_t label : labels.Labels) {
        if (label == kNoLabel) continue;
        if (label < 1 || label > numLabels) throw Failure(FailureKind::SubscriptOutOfRange, "LabelCount");
        ++labelCount[static_cast<std::size_t>(label)];
    }
    ClumpSelection selection;
    selection.LabelToClump.assign(labelCount.size(), 0);
    for (std::size_t label = 1; label < labelCount.size(); ++label) {
        if (labelCount[label] <= minClumpSize) continue;
        selection.ClumpSizes.push_back(labelCount[label]);
        selection.LabelToClump[label] = static_cast<std::int16_t>(selection.ClumpSizes.size());
    }
    return selection;
}

LabelGrid ClumpNumbers(const LabelGrid& labels, const ClumpSelection& selection) {
    LabelGrid numbers = EmptyLabels(labels.NumX, labels.NumY, labels.Places);
    std::transform(labels.Labels.begin(), labels.Labels.end(), numbers.Labels.begin(), [&](std::int16_t label) {
        if (label == kNoLabel) return kNoLabel;
        const std::int16_t clump = selection.LabelToClump[static_cast<std::size_t>(label)];
        return clump == 0 ? kNoLabel : clump;
    });
    return numbers;
}

std::int32_t CountInnerCells(const SurfaceGrid& grid) {
    std::int32_t cells = 0;
    for (int row = 2; row < grid.NumY; ++row) {
        const double* const z = &grid.Z[grid.At(1, row)];
        for (int i = 1; i + 1 < grid.NumX; ++i) cells += z[i] != kEmptyCellZ;
    }
    return cells;
}

double PatchDiversity(const std::vector<double>& clumpSizes, std::int32_t totalCells) {
    if (clumpSizes.empty()) return 0;
    double sum = 0;
    for (const double size : clumpSizes) {
        const double share = Divide(size, totalCells, "TotalCells");
        sum += share * share;
    }
    return Divide(1, sum, "PatchDiversity");
}

}  // namespace crownlab
