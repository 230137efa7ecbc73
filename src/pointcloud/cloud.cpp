#include "pointcloud/cloud.h"

#include "basis/number_text.h"
#include "basis/rounding.h"

namespace crownlab {
namespace {

/// What is left of a number after it was written and read again.
double ThroughText(double value) {
    char text[kNumberTextMax];
    double read = 0;
    ScanNumber(text, AppendGeneralText(text, value), read);
    return read;
}

}  // namespace

CloudExtents FindCloudExtents(const PointCloud& cloud) {
    CloudExtents e;
    for (const CloudPoint& p : cloud) {
        if (p.x < e.XMin) e.XMin = p.x;
        if (p.x > e.XMax) e.XMax = p.x;
        if (p.y < e.YMin) e.YMin = p.y;
        if (p.y > e.YMax) e.YMax = p.y;
        if (p.z < e.ZMin) e.ZMin = p.z;
        if (p.z > e.ZMax) e.ZMax = p.z;
    }
    return e;
}

void MouldFlip(PointCloud& cloud) {
    for (CloudPoint& p : cloud) p = {-p.x, p.y, -p.z};
}

void ReZero(PointCloud& cloud) {
    for (CloudPoint& p : cloud) p = {ThroughText(p.x), ThroughText(p.y), ThroughText(p.z)};
    const CloudExtents e = FindCloudExtents(cloud);
    for (CloudPoint& p : cloud) {
        p = {RoundDecimals(p.x - e.XMin, 6), RoundDecimals(p.y - e.YMin, 6), RoundDecimals(p.z - e.ZMin, 6)};
    }
}

void Shift(PointCloud& cloud, const CloudPoint& offset) {
    for (CloudPoint& p : cloud) {
        p = {Finite(p.x + offset.x, "x"), Finite(p.y + offset.y, "y"), Finite(p.z + offset.z, "z")};
    }
}

}  // namespace crownlab
