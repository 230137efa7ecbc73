#include <array>

#include "mapengine/application_members.h"
#include "mapengine/document_objects.h"

namespace crownlab {
namespace {

Value FileNew(const EngineContext& context, const Arguments& arguments) {
    TakeNone("FileNew", arguments);
    context.Session->StartAnew();
    return true;
}

Value FileOpen(const EngineContext& context, const Arguments& given) {
    const CallArguments arguments("FileOpen", {"FileName", "FileType"}, given);
    constexpr int worksheet = 1;
    const std::string path = arguments.Text("FileName");
    const int type = arguments.Whole("FileType", worksheet);
    if (type != worksheet) {
        arguments.Fail("FileType", std::to_string(type) + " is no kind of document; 1 is a worksheet");
    }
    return static_cast<double>(OpenTextFile(context, "FileOpen", path)->Handle);
}

Value FileSaveAs(const EngineContext& context, const Arguments& given) {
    const CallArguments arguments("FileSaveAs", {"FileName"}, given);
    const std::string path = arguments.Text("FileName");
    const DocumentRef& document = ActiveDocument(context);
    const SheetRef* const sheet = std::get_if<SheetRef>(&document);
    if (sheet == nullptr) FailCall("the active document " + NameOf(document) + " is a plot, not a worksheet");
    SaveWorksheet(context, **sheet, path);
    return true;
}

Value FileClose(const EngineContext& context, const Arguments& arguments) {
    TakeNone("FileClose", arguments);
    const DocumentRef document = ActiveDocument(context);
    context.Session->Close(document);
    return true;
}

Value GetWksCell(const EngineContext& context, const Arguments& given) {
    const CallArguments arguments("GetWksCell", {"Handle", "Row", "Column"}, given);
    const int handle = arguments.Whole("Handle");
    const int row = arguments.Whole("Row");
    const int column = arguments.Whole("Column");
    const SheetRef sheet = context.Session->SheetOfHandle(handle);
    if (!sheet) arguments.Fail("Handle", std::to_string(handle) + " is no open worksheet");
    return sheet->Sheet.Cell(row, column);
}

}  // namespace

std::span<const ApplicationMember> HandleMembers() {
    static constexpr auto members = std::to_array<ApplicationMember>({
        {"FileClose", EngineVersion::Six, FileClose},
        {"FileNew", EngineVersion::Six, FileNew},
        {"FileOpen", EngineVersion::Six, FileOpen},
        {"FileSaveAs", EngineVersion::Six, FileSaveAs},
        {"GetWksCell", EngineVersion::Six, GetWksCell},
    });
    return members;
}

}  // namespace crownlab
