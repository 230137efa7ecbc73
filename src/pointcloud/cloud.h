#pragma once

#include "formats/point_text.h"

namespace crownlab {

/// Extents of a cloud. Minima start from 1,000,000 and maxima from -1,000,000: coordinates beyond them are not
/// found.
struct CloudExtents {
    double XMin = 1000000;
    double XMax = -1000000;
    double YMin = 1000000;
    double YMax = -1000000;
    double ZMin = 1000000;
    double ZMax = -1000000;
};
CloudExtents FindCloudExtents(const PointCloud& cloud);

/// A half turn about the y axis, (x, y, z) to (-x, y, -z): a scan of a negative impression shows the surface
/// of the tooth from behind.
void MouldFlip(PointCloud& cloud);

/// Takes the lowest x, y and z off all points and rounds them at six decimals; the numbers pass through their
/// text of 15 digits first.
void ReZero(PointCloud& cloud);

/// Adds an offset to every point.
void Shift(PointCloud& cloud, const CloudPoint& offset);

}  // namespace crownlab
