#include "mapengine/slice_file.h"

#include <array>

#include "basis/number_text.h"
#include "basis/result_file.h"
#include "mapengine/grid_slice.h"
#include "mapengine/progress.h"

namespace crownlab {
namespace {

void WritePlace(ResultFile& file, const SlicePlace& place, std::size_t line) {
    constexpr std::size_t fields = 5;
    std::array<char, fields*(kNumberTextMax + 1)> record;
    char* out = record.data();
    for (const double number : {place.X, place.Y, place.Z, place.Distance}) {
        out = AppendGeneralText(out, number);
        *out++ = ',';
    }
    out = AppendRecordText(out, static_cast<long long>(line));
    file.Line({record.data(), static_cast<std::size_t>(out - record.data())});
}

}  // namespace

void WriteSlices(FileTable& files, const std::string& path, const Grid& grid, std::span<const Boundary> lines,
                 Progress& progress) {
    ResultFile file(files, path);
    for (std::size_t i = 0; i < lines.size(); ++i) {
        WalkSlice(grid, lines[i].Points, [&](const SlicePlace& place) { WritePlace(file, place, i + 1); });
        progress.SetShare(static_cast<double>(i + 1) / static_cast<double>(lines.size()));
    }
    file.Commit();
}

}  // namespace crownlab
