#include "formats/unblanked_points.h"

#include <filesystem>
#include <system_error>

#include "basis/field_reader.h"
#include "basis/paths.h"
#include "basis/result_file.h"
#include "formats/point_extents.h"

namespace crownlab {

void WriteUnblankedPoints(FileTable& files, const std::string& from, const std::string& to) {
    const FileText text = ReadFileText(from);
    FieldReader reader(text.View(), from);
    ResultFile output(files, to);
    while (!reader.NothingLeft()) {
        const double x = reader.ReadNumber();
        const double y = reader.ReadNumber();
        const double z = reader.ReadNumber();
        if (z < kBlankHeightFrom) output.Record(x, y, z);
    }
    output.Commit();
}

void RemoveBlankPoints(FileTable& files, const std::string& path, const std::string& copy) {
    if (AbsolutePath(copy) == AbsolutePath(path)) return WriteUnblankedPoints(files, path, path);
    WriteWholeFile(files, copy, ReadFileText(path).View());
    WriteUnblankedPoints(files, copy, path);
    std::error_code gone;
    std::filesystem::remove(copy, gone);
}

}  // namespace crownlab
