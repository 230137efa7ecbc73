#pragma once

#include <array>
#include <cmath>
#include <cstdint>
#include <vector>

#include "basis/failure.h"
#include "viewer/surface_families.h"

namespace crownlab {

/// The patch count in plain loops, one rule after the other, with the labels as numbers in grids and the table
/// of equivalences as 16-bit numbers of which 1 to 10000 may be touched. It keeps what each pass left in the table.
struct SlowClump {
    int ProcNumX = 0;
    int ProcNumY = 0;
    SlowArray Proc;
    int NumCategories = 0;
    double HalfSector = 0;
    int SectorWidth = 0;
    bool VoidHoriz = false;
    int MinClumpSize = 2;

    std::array<SlowArray, 8> Level;
    std::vector<std::int16_t> EquivTable;
    std::array<std::vector<std::int16_t>, 5> TableAfterFind;     ///< by pass
    std::array<std::vector<std::int16_t>, 5> TableAfterShorten;  ///< by pass
    int NextClumpLabel = 0;
    int NumLabels = 0;
    std::vector<int> LabelCount;
    std::vector<double> ClumpSizes;

    void Run() {
        Categories();
        Labels();
        NumLabels = NextClumpLabel;
        for (int pass = 1; pass <= 4; ++pass) DoPass(pass);
        Count();
    }

    void Categories() {
        Level[1] = SlowArray(ProcNumX, ProcNumY, 0);
        for (int j = 1; j <= ProcNumY; ++j) {
            for (int i = 1; i <= ProcNumX; ++i) {
                const double z = Proc(i, j);
                double c = 9999;
                if (z == -1) {
                    c = VoidHoriz ? 9999 : NumCategories + 1;
                } else if (z != 9999) {
                    c = std::floor((z + HalfSector) / SectorWidth) + 1;
                    if (c == NumCategories + 1) {
                        c = 1;
                    } else if (c == NumCategories + 2) {
                        c = 2;
                    }
                }
                Level[1](i, j) = c;
            }
        }
    }

    double NewLabel() {
        if (NextClumpLabel == 32767) throw Failure(FailureKind::Overflow, "slow NextClumpLabel");
        return ++NextClumpLabel;
    }

    double LabelFor(int i, int j) {
        const double c = Level[1](i, j);
        if (c == 9999) return 9999;
        if (i == 1 && j == 1) {
            NextClumpLabel = 2;
            return 1;
        }
        if (i == 1) return c == Level[1](i, j - 1) ? Level[2](i, j - 1) : NewLabel();
        if (j == 1) return c == Level[1](i - 1, j) ? Level[2](i - 1, j) : NewLabel();
        if (c != Level[1](i, j - 1) && c != Level[1](i - 1, j)) return NewLabel();
        double label = 0;
        if (c == Level[1](i, j - 1)) label = Level[2](i, j - 1);
        if (c == Level[1](i - 1, j)) label = Level[2](i - 1, j);
        return label;
    }

    void Labels() {
        EquivTable.assign(10001, 0);
        NextClumpLabel = 0;
        Level[2] = SlowArray(ProcNumX, ProcNumY, 0);
        for (int j = 1; j <= ProcNumY; ++j) {
            for (int i = 1; i <= ProcNumX; ++i) Level[2](i, j) = LabelFor(i, j);
        }
    }

    std::int16_t& Entry(int label) {
        if (label < 1 || label > 10000) throw Failure(FailureKind::SubscriptOutOfRange, "slow EquivTable");
        return EquivTable[static_cast<std::size_t>(label)];
    }

    void Neighbour(int level, int i, int j, int otherI, int otherJ) {
        if (Level[1](i, j) != Level[1](otherI, otherJ)) return;
        const int a = static_cast<int>(Level[static_cast<std::size_t>(level)](i, j));
        const int b = static_cast<int>(Level[static_cast<std::size_t>(level)](otherI, otherJ));
        if (a > b) Entry(a) = static_cast<std::int16_t>(b);
        if (b > a) Entry(b) = static_cast<std::int16_t>(a);
    }

    void FindEquiv(int level, int i, int j) {
        if (Level[static_cast<std::size_t>(level)](i, j) == 9999) return;
        if (j != ProcNumY) Neighbour(level, i, j, i, j + 1);
        if (j != 1) Neighbour(level, i, j, i, j - 1);
        if (i != ProcNumX) Neighbour(level, i, j, i + 1, j);
        if (i != 1) Neighbour(level, i, j, i - 1, j);
    }

    void Scan(int pass, int level) {
        if (pass == 1) {
            for (int j = 1; j <= ProcNumY; ++j) {
                for (int i = 1; i <= ProcNumX; ++i) FindEquiv(level, i, j);
            }
        } else if (pass == 2) {
            for (int i = 1; i <= ProcNumX; ++i) {
                for (int j = 1; j <= ProcNumY; ++j) FindEquiv(level, i, j);
            }
        } else if (pass == 3) {
            for (int j = ProcNumY; j >= 1; --j) {
                for (int i = ProcNumX; i >= 1; --i) FindEquiv(level, i, j);
            }
        } else {
            for (int i = ProcNumX; i >= 1; --i) {
                for (int j = ProcNumY; j >= 1; --j) FindEquiv(level, i, j);
            }
        }
    }

    void Shorten() {
        for (int k = NumLabels; k >= 1; --k) {
            const int m = Entry(k);
            if (m == 0) continue;
            const int t = Entry(m);
            if (t == 0) continue;
            for (int q = NumLabels; q >= t; --q) {
                if (Entry(q) == m) Entry(q) = static_cast<std::int16_t>(t);
            }
        }
    }

    void FixEquiv(int level) {
        const SlowArray& from = Level[static_cast<std::size_t>(level)];
        SlowArray to(ProcNumX, ProcNumY, 0);
        for (int j = 1; j <= ProcNumY; ++j) {
            for (int i = 1; i <= ProcNumX; ++i) {
                double z = from(i, j);
                if (z != 9999 && Entry(static_cast<int>(z)) != 0) z = Entry(static_cast<int>(z));
                to(i, j) = z;
            }
        }
        Level[static_cast<std::size_t>(level) + 1] = to;
    }

    void DoPass(int pass) {
        const int level = pass + 1;
        Scan(pass, level);
        TableAfterFind[static_cast<std::size_t>(pass)] = EquivTable;
        Shorten();
        TableAfterShorten[static_cast<std::size_t>(pass)] = EquivTable;
        FixEquiv(level);
        EquivTable.assign(10001, 0);
    }

    void Count() {
        LabelCount.assign(static_cast<std::size_t>(NumLabels) + 1, 0);
        for (int j = 1; j <= ProcNumY; ++j) {
            for (int i = 1; i <= ProcNumX; ++i) {
                if (Level[6](i, j) != 9999) ++LabelCount.at(static_cast<std::size_t>(Level[6](i, j)));
            }
        }
        std::vector<int> labelToClump(LabelCount.size(), 0);
        for (int label = 1; label <= NumLabels; ++label) {
            const auto at = static_cast<std::size_t>(label);
            if (LabelCount[at] <= MinClumpSize) continue;
            ClumpSizes.push_back(LabelCount[at]);
            labelToClump[at] = static_cast<int>(ClumpSizes.size());
        }
        Level[7] = SlowArray(ProcNumX, ProcNumY, 9999);
        for (int j = 1; j <= ProcNumY; ++j) {
            for (int i = 1; i <= ProcNumX; ++i) {
                if (Level[6](i, j) == 9999) continue;
                const int clump = labelToClump[static_cast<std::size_t>(Level[6](i, j))];
                if (clump != 0) Level[7](i, j) = clump;
            }
        }
    }
};

inline SlowClump SlowClumpOf(const SurfaceGrid& proc) {
    SlowClump slow;
    slow.ProcNumX = proc.NumX;
    slow.ProcNumY = proc.NumY;
    slow.Proc = SlowArray(proc.NumX, proc.NumY, 0);
    for (int j = 1; j <= proc.NumY; ++j) {
        for (int i = 1; i <= proc.NumX; ++i) slow.Proc(i, j) = proc.z(i, j);
    }
    return slow;
}

/// Values that give labels the shapes that merging them is about: combs, spirals, blobs, noise. z is the number
/// of the category less one.
inline std::vector<NamedSurface> CategorySurfaces(int numX, int numY, RandomNumbers& numbers) {
    const auto random = [&](std::uint64_t kinds) { return static_cast<double>(numbers.Below(kinds)); };
    const auto ring = [&](int i, int j) { return std::min(std::min(i, j), std::min(numX + 1 - i, numY + 1 - j)); };
    std::vector<NamedSurface> surfaces;
    const auto add = [&](const char* name, const std::function<double(int, int)>& z) {
        surfaces.push_back(
            {std::to_string(numX) + " by " + std::to_string(numY) + " " + name, MakeGrid(numX, numY, z)});
    };
    add("noise of two", [&](int, int) { return random(2); });
    add("noise of three", [&](int, int) { return random(3); });
    add("noise of eight", [&](int, int) { return random(8); });
    add("sparse", [&](int, int) { return numbers.Below(3) == 0 ? random(2) : kEmptyCellZ; });
    add("mostly one", [&](int, int) { return numbers.Below(4) == 0 ? 1.0 : 0.0; });
    add("checkerboard", [](int i, int j) { return static_cast<double>((i + j) % 2); });
    add("comb open to -y", [&](int i, int j) { return i % 2 == 0 && j < numY ? 1.0 : 0.0; });
    add("comb open to -x", [&](int i, int j) { return j % 2 == 0 && i < numX ? 1.0 : 0.0; });
    add("rings", [&](int i, int j) { return static_cast<double>(ring(i, j) % 2); });
    add("cut rings", [&](int i, int j) { return numbers.Below(9) == 0 ? 0.0 : static_cast<double>(ring(i, j) % 2); });
    add("diagonals", [](int i, int j) { return static_cast<double>((i + j) / 2 % 2); });
    add("below the minimum slope", [&](int, int) { return random(3) - 1; });
    add("one", [](int, int) { return 0.0; });
    add("empty", [](int, int) { return kEmptyCellZ; });
    return surfaces;
}

}  // namespace crownlab
