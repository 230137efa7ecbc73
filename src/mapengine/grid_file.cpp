#include "mapengine/grid_file.h"

#include "basis/failure.h"
#include "basis/result_file.h"
#include "mapengine/engine_call.h"
#include "mapengine/grid_binary.h"
#include "mapengine/grid_text.h"
#include "mapengine/input_file.h"

namespace crownlab {
namespace {

Grid ReadAnyFormat(std::string_view bytes) {
    const std::string_view tag = bytes.substr(0, 4);
    if (tag == "DSRB") return ReadBinary64(bytes);
    if (tag == "DSBB") return ReadBinary32(bytes);
    if (tag == "DSAA") return ReadAsciiGrid(bytes);
    FailCall("it is not a grid");
}

void WriteContent(ResultFile& file, const Grid& grid, GridFormat format) {
    switch (format) {
        case GridFormat::Binary32: return WriteBinary32(file, grid);
        case GridFormat::Binary64: return WriteBinary64(file, grid);
        case GridFormat::AsciiGrid: return WriteAsciiGrid(file, grid);
        case GridFormat::NodeText: return WriteNodeText(file, grid);
    }
}

/// Does `act`; the sentence of a call that fails in it is about that file.
template <typename Act>
auto OnFile(const std::string& path, const Act& act) {
    try {
        return act();
    } catch (const Failure& failure) {
        if (failure.Kind() != FailureKind::AutomationFailed) throw;
        FailCall(path + ": " + failure.Object());
    }
}

}  // namespace

Grid ReadGrid(const std::string& path) {
    const FileText file = ReadInputFile(path);
    return OnFile(path, [&] { return ReadAnyFormat(file.View()); });
}

void WriteGrid(FileTable& files, const std::string& path, const Grid& grid, GridFormat format) {
    ResultFile file(files, path);
    OnFile(path, [&] { WriteContent(file, grid, format); });
    file.Commit();
}

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

GridFormat OutputFormat(EngineVersion version, const CallArguments& arguments) {
    return arguments.Has("OutFmt") ? FormatOfNumber(version, arguments.Whole("OutFmt")) : DefaultFormat(version);
}

}  // namespace crownlab
