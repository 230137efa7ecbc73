#include "mapengine/grid_file.h"

#include "mapengine/engine_call.h"

namespace crownlab {

Grid ReadGrid(const std::string& path) { FailCall(path + " is not a grid"); }

void WriteGrid(FileTable&, const std::string& path, const Grid&, GridFormat) { FailCall(path + " can't be written"); }

GridFormat DefaultFormat(EngineVersion version) {
    return version == EngineVersion::Six ? GridFormat::Binary32 : GridFormat::Binary64;
}

GridFormat FormatOfNumber(EngineVersion version, int number) {
    switch (number) {
        case 1: return GridFormat::Binary32;
        case 2: return GridFormat::AsciiGrid;
        case 3: return version == EngineVersion::Six ? GridFormat::NodeText : GridFormat::Binary64;
        case 4:
            if (version == EngineVersion::Eight) return GridFormat::NodeText;
            break;
        default: break;
    }
    FailCall("OutFmt " + std::to_string(number) + " stands for no format");
}

}  // namespace crownlab
