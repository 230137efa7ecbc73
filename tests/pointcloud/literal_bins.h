#pragma once

#include <cmath>
#include <cstdint>
#include <cstdlib>
#include <limits>
#include <vector>

#include "basis/failure.h"
#include "formats/point_text.h"

namespace crownlab {

/// Bins as the tools describe them to their users, step by step and without any short cut: a table of three
/// indices, filled in the order of the file, enlarged and begun again. Slow, and small clouds only.
struct LiteralBins {
    double BinSize = 0;
    double OriginX = 0, OriginY = 0, LimitX = 0, LimitY = 0;
    double NumBinsX = 0, NumBinsY = 0;
    int BoundX = 0, BoundY = 0;
    int BinCapacity = 20;
    std::vector<int> BinCount;
    std::vector<std::uint32_t> BinPoints;  ///< which point of the cloud
    PointCloud Cloud;
    int Restarts = 0;

    std::size_t At(int bx, int by) const {
        if (bx < 1 || bx > BoundX || by < 1 || by > BoundY) std::abort();
        return static_cast<std::size_t>(by - 1) * static_cast<std::size_t>(BoundX) + static_cast<std::size_t>(bx - 1);
    }
    int Count(int bx, int by) const { return BinCount[At(bx, by)]; }
    /// 0 off the plan.
    int CountOrNone(int bx, int by) const { return bx < 1 || bx > BoundX || by < 1 || by > BoundY ? 0 : Count(bx, by); }
    const CloudPoint& Point(int bx, int by, int k) const {
        return Cloud[BinPoints[At(bx, by) * static_cast<std::size_t>(BinCapacity) + static_cast<std::size_t>(k - 1)]];
    }

    void Enlarge(int capacity) {
        std::vector<std::uint32_t> larger(BinCount.size() * static_cast<std::size_t>(capacity));
        for (std::size_t bin = 0; bin < BinCount.size(); ++bin) {
            for (int k = 0; k < BinCount[bin]; ++k) {
                larger[bin * static_cast<std::size_t>(capacity) + static_cast<std::size_t>(k)] =
                    BinPoints[bin * static_cast<std::size_t>(BinCapacity) + static_cast<std::size_t>(k)];
            }
        }
        BinPoints = larger;
        BinCapacity = capacity;
    }
    void Put(int bx, int by, std::size_t point) {
        const int k = ++BinCount[At(bx, by)];
        BinPoints[At(bx, by) * static_cast<std::size_t>(BinCapacity) + static_cast<std::size_t>(k - 1)] =
            static_cast<std::uint32_t>(point);
    }
};

inline double LiteralRound(double value, int decimals) {
    const double scale = std::pow(10.0, decimals);
    return std::nearbyint(value * scale) / scale;
}

/// The four extreme coordinates.
struct LiteralExtents {
    double XMin = 1000000, XMax = -1000000, YMin = 1000000, YMax = -1000000, ZMin = 1000000, ZMax = -1000000;

    explicit LiteralExtents(const PointCloud& cloud) {
        for (const CloudPoint& p : cloud) {
            if (p.x < XMin) XMin = p.x;
            if (p.x > XMax) XMax = p.x;
            if (p.y < YMin) YMin = p.y;
            if (p.y > YMax) YMax = p.y;
            if (p.z < ZMin) ZMin = p.z;
            if (p.z > ZMax) ZMax = p.z;
        }
    }
};

/// Bins of the undercut tool (`rounded`) or of the outline.
inline LiteralBins FillLiteralBins(const PointCloud& cloud, double binSize, double sizeInBox, bool rounded) {
    const LiteralExtents e(cloud);
    LiteralBins b;
    b.BinSize = binSize;
    b.Cloud = cloud;
    while (true) {
        if (rounded) {
            b.OriginX = b.BinSize * std::floor(e.XMin / b.BinSize);
            b.LimitX = b.BinSize * (std::floor(e.XMax / b.BinSize) + 2);
            b.OriginY = b.BinSize * std::floor(e.YMin / b.BinSize);
            b.LimitY = b.BinSize * (std::floor(e.YMax / b.BinSize) + 2);
            b.NumBinsX = LiteralRound(std::fabs(b.OriginX - b.LimitX) / b.BinSize, 8);
            b.NumBinsY = LiteralRound(std::fabs(b.OriginY - b.LimitY) / b.BinSize, 8);
        } else {
            b.OriginX = b.BinSize * std::floor(e.XMin / b.BinSize) - 2 * b.BinSize;
            b.LimitX = b.BinSize * (std::floor(e.XMax / b.BinSize) + 1) + 2 * b.BinSize;
            b.OriginY = b.BinSize * std::floor(e.YMin / b.BinSize) - 2 * b.BinSize;
            b.LimitY = b.BinSize * (std::floor(e.YMax / b.BinSize) + 1) + 2 * b.BinSize;
            b.NumBinsX = std::fabs(b.OriginX - b.LimitX) / b.BinSize;
            b.NumBinsY = std::fabs(b.OriginY - b.LimitY) / b.BinSize;
        }
        b.BoundX = static_cast<int>(std::nearbyint(b.NumBinsX));
        b.BoundY = static_cast<int>(std::nearbyint(b.NumBinsY));
        b.BinCapacity = 20;
        const std::size_t bins = static_cast<std::size_t>(b.BoundX) * static_cast<std::size_t>(b.BoundY);
        b.BinCount.assign(bins, 0);
        b.BinPoints.assign(bins * 20, 0);
        bool again = false;
        for (std::size_t i = 0; i < cloud.size(); ++i) {
            const CloudPoint& p = cloud[i];
            const double dx = rounded ? LiteralRound(p.x - b.OriginX, 8) : p.x - b.OriginX;
            const double dy = rounded ? LiteralRound(p.y - b.OriginY, 8) : p.y - b.OriginY;
            const int bx = static_cast<int>(std::floor(dx / b.BinSize)) + 1;
            const int by = static_cast<int>(std::floor(dy / b.BinSize)) + 1;
            if (b.Count(bx, by) == b.BinCapacity) {
                const int capacity = b.BinCapacity + 20;
                if (capacity > 32767) throw Failure(FailureKind::Overflow, "BinCapacity");
                if ((static_cast<double>(capacity) - 1) * b.NumBinsX * b.NumBinsY > 5000000) {
                    b.BinSize += 0.5 * sizeInBox;
                    ++b.Restarts;
                    again = true;
                    break;
                }
                b.Enlarge(capacity);
            }
            b.Put(bx, by, i);
        }
        if (!again) return b;
    }
}

}  // namespace crownlab
