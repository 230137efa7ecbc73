#include "formats/point_extents.h"

#include <algorithm>

#include "basis/field_reader.h"
#include "basis/paths.h"

namespace crownlab {

void PointExtents::Take(double x, double y, double z) {
    ++Count;
    XMin = std::min(XMin, x);
    XMax = std::max(XMax, x);
    YMin = std::min(YMin, y);
    YMax = std::max(YMax, y);
    if (!(z < kBlankHeightFrom)) return;
    ZMin = std::min(ZMin, z);
    ZMax = std::max(ZMax, z);
}

PointExtents ReadPointExtents(const std::string& path) {
    const FileText text = ReadFileText(path);
    FieldReader reader(text.View(), path);
    PointExtents extents;
    while (!reader.NothingLeft()) {
        const double x = reader.ReadNumber();
        const double y = reader.ReadNumber();
        extents.Take(x, y, reader.ReadNumber());
    }
    return extents;
}

}  // namespace crownlab
