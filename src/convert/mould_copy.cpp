#include "convert/mould_copy.h"

#include "basis/field_reader.h"
#include "basis/paths.h"
#include "basis/result_file.h"
#include "formats/point_extents.h"

namespace crownlab {

void WriteMouldCopy(FileTable& files, const std::string& input, const std::string& output) {
    const FileText text = ReadFileText(input);
    FieldReader reader(text.View(), input);
    ResultFile copy(files, output);
    while (!reader.NothingLeft()) {
        const double x = reader.ReadNumber();
        const double y = reader.ReadNumber();
        const double z = reader.ReadNumber();
        copy.Record(-x, y, z < kBlankHeightFrom ? -z : z);
    }
    copy.Commit();
}

}  // namespace crownlab
