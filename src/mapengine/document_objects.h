#pragma once

#include "mapengine/plot_objects.h"

namespace crownlab {

/// The object of an open document.
ObjectRef MakeDocumentObject(const EngineContext& context, const DocumentRef& document);

/// The active document. AutomationFailed if none is open.
const DocumentRef& ActiveDocument(const EngineContext& context);

/// Reads a text file aside and opens it as a worksheet.
SheetRef OpenTextFile(const EngineContext& context, std::string_view member, const std::string& path);

/// Writes a worksheet to `path`, whole or not at all, and gives it that path and the file's name.
void SaveWorksheet(const EngineContext& context, SheetDocument& sheet, const std::string& path);

/// The documents of a session.
class DocumentsObject : public MemberObject<DocumentsObject> {
public:
    explicit DocumentsObject(EngineContext context) : Context(std::move(context)) {}
    static constexpr std::string_view kKind = "list of documents";
    static std::span<const ObjectMember<DocumentsObject>> Members();

    EngineContext Context;
};

/// The window of a document.
class WindowObject : public MemberObject<WindowObject> {
public:
    WindowObject(EngineContext context, DocumentRef document)
        : Context(std::move(context)), Document(std::move(document)) {}
    static constexpr std::string_view kKind = "window";
    static std::span<const ObjectMember<WindowObject>> Members();

    EngineContext Context;
    DocumentRef Document;
};

}  // namespace crownlab
