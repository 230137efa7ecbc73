#include <array>

#include "mapengine/application_members.h"
#include "mapengine/data_folder.h"
#include "mapengine/document_objects.h"

namespace crownlab {
namespace {

Value ReadActiveDocument(const EngineContext& context, const Arguments& arguments) {
    TakeNone("ActiveDocument", arguments);
    return MakeDocumentObject(context, ActiveDocument(context));
}

Value ReadActiveWindow(const EngineContext& context, const Arguments& arguments) {
    TakeNone("ActiveWindow", arguments);
    return std::make_shared<WindowObject>(context, ActiveDocument(context));
}

Value ReadDocuments(const EngineContext& context, const Arguments& arguments) {
    TakeNone("Documents", arguments);
    return std::make_shared<DocumentsObject>(context);
}

Value ReadPath(const EngineContext&, const Arguments& arguments) {
    TakeNone("Path", arguments);
    return DataFolder();
}

Value ReadVisible(const EngineContext& context, const Arguments& arguments) {
    TakeNone("Visible", arguments);
    return context.Session->Visible;
}

void WriteVisible(const EngineContext& context, const Value& value) { context.Session->Visible = FlagValue(value); }

}  // namespace

std::span<const ApplicationMember> ObjectMembers() {
    static constexpr auto members = std::to_array<ApplicationMember>({
        {"ActiveDocument", EngineVersion::Eight, ReadActiveDocument},
        {"ActiveWindow", EngineVersion::Eight, ReadActiveWindow},
        {"Documents", EngineVersion::Eight, ReadDocuments},
        {"Path", std::nullopt, ReadPath},
        {"Visible", EngineVersion::Eight, ReadVisible, WriteVisible},
    });
    return members;
}

}  // namespace crownlab
