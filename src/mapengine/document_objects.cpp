#include "mapengine/document_objects.h"

#include <array>
#include <utility>

#include "basis/number_text.h"
#include "basis/result_file.h"
#include "basis/text.h"
#include "mapengine/map_engine.h"

namespace crownlab {
namespace {

class PlotDocumentObject : public PlotPart, public MemberObject<PlotDocumentObject> {
public:
    using PlotPart::PlotPart;
    static constexpr std::string_view kKind = "plot document";
    static std::span<const ObjectMember<PlotDocumentObject>> Members();
    DocumentRef Opened() const { return Ref(); }
};

class SheetObject : public MemberObject<SheetObject> {
public:
    SheetObject(EngineContext context, SheetRef sheet) : Context(std::move(context)), sheet_(std::move(sheet)) {}
    static constexpr std::string_view kKind = "worksheet";
    static std::span<const ObjectMember<SheetObject>> Members();

    /// AutomationFailed once the worksheet was closed.
    const SheetRef& Opened() const {
        if (!sheet_->IsOpen) FailCall("the worksheet " + sheet_->Name + " has been closed");
        return sheet_;
    }

    EngineContext Context;

private:
    SheetRef sheet_;
};

Value PlotName(PlotDocumentObject& plot, const Arguments& arguments) {
    TakeNone("Name", arguments);
    return plot.Document().Name;
}

Value PlotClose(PlotDocumentObject& plot, const Arguments& arguments) {
    TakeNone("Close", arguments);
    plot.Document();
    plot.Context.Session->Close(plot.Opened());
    return true;
}

Value PlotSave(PlotDocumentObject& plot, const Arguments& arguments) {
    TakeNone("Save", arguments);
    FailCall("the plot document " + plot.Document().Name + " has no file");
}

Value PlotShapes(PlotDocumentObject& plot, const Arguments& arguments) {
    TakeNone("Shapes", arguments);
    plot.Document();
    return std::make_shared<ShapesObject>(plot);
}

Value PlotFont(PlotDocumentObject& plot, const Arguments& arguments) {
    TakeNone("DefaultFont", arguments);
    plot.Document();
    return std::make_shared<FontObject>(plot);
}

std::span<const ObjectMember<PlotDocumentObject>> PlotDocumentObject::Members() {
    static constexpr auto members = std::to_array<ObjectMember<PlotDocumentObject>>({
        {"Close", PlotClose},
        {"DefaultFont", PlotFont},
        {"Name", PlotName},
        {"Save", PlotSave},
        {"Shapes", PlotShapes},
    });
    return members;
}

Value SheetCells(SheetObject& sheet, const Arguments& given) {
    const CallArguments arguments("Cells", {"Cell"}, given);
    const std::string label = arguments.Text("Cell");
    const std::optional<CellPlace> place = ParseCellLabel(label);
    if (!place) arguments.Fail("Cell", QuotedText(label) + R"( is not a label such as "B166")");
    return sheet.Opened()->Sheet.Cell(place->Row, place->Column);
}

Value SheetClose(SheetObject& sheet, const Arguments& arguments) {
    TakeNone("Close", arguments);
    sheet.Context.Session->Close(sheet.Opened());
    return true;
}

Value SheetName(SheetObject& sheet, const Arguments& arguments) {
    TakeNone("Name", arguments);
    return sheet.Opened()->Name;
}

Value SheetSave(SheetObject& sheet, const Arguments& arguments) {
    TakeNone("Save", arguments);
    const std::string path = sheet.Opened()->Sheet.Path;
    if (path.empty()) FailCall("the worksheet " + sheet.Opened()->Name + " has no file");
    SaveWorksheet(sheet.Context, *sheet.Opened(), path);
    return true;
}

std::span<const ObjectMember<SheetObject>> SheetObject::Members() {
    static constexpr auto members = std::to_array<ObjectMember<SheetObject>>({
        {"Cells", SheetCells},
        {"Close", SheetClose},
        {"Name", SheetName},
        {"Save", SheetSave},
    });
    return members;
}

Value DocumentsAdd(DocumentsObject& documents, const Arguments& given) {
    const CallArguments arguments("Add", {"DocType"}, given);
    constexpr int plot = 1;
    const int type = arguments.Whole("DocType", plot);
    if (type != plot) arguments.Fail("DocType", std::to_string(type) + " is no kind of document; 1 is a plot");
    return MakeDocumentObject(documents.Context, documents.Context.Session->AddPlot());
}

Value DocumentsOpen(DocumentsObject& documents, const Arguments& given) {
    const CallArguments arguments("Open", {"FileName"}, given);
    return MakeDocumentObject(documents.Context, OpenTextFile(documents.Context, "Open", arguments.Text("FileName")));
}

/// By name, else by place from 1.
Value DocumentsItem(DocumentsObject& documents, const Arguments& given) {
    const CallArguments arguments("Item", {"Index"}, given);
    const std::vector<DocumentRef>& open = documents.Context.Session->Documents();
    const std::string name = arguments.NameOrNumber("Index");
    for (const DocumentRef& document : open) {
        if (EqualNoCase(NameOf(document), name)) return MakeDocumentObject(documents.Context, document);
    }
    const NumberPrefix number = ParseNumberPrefix(name);
    for (std::size_t i = 0; i < open.size(); ++i) {
        if (number.Length == name.size() && number.Value == static_cast<double>(i + 1)) {
            return MakeDocumentObject(documents.Context, open[i]);
        }
    }
    arguments.Fail("Index", "no document \"" + name + "\" is open");
}

Value DocumentsCount(DocumentsObject& documents, const Arguments& arguments) {
    TakeNone("Count", arguments);
    return static_cast<double>(documents.Context.Session->Documents().size());
}

Value WindowClose(WindowObject& window, const Arguments& arguments) {
    TakeNone("Close", arguments);
    const bool open = std::visit([](const auto& document) { return document->IsOpen; }, window.Document);
    if (!open) FailCall("the window of " + NameOf(window.Document) + " has been closed");
    window.Context.Session->Close(window.Document);
    return true;
}

}  // namespace

ObjectRef MakeDocumentObject(const EngineContext& context, const DocumentRef& document) {
    if (const PlotRef* const plot = std::get_if<PlotRef>(&document)) {
        return std::make_shared<PlotDocumentObject>(context, *plot);
    }
    return std::make_shared<SheetObject>(context, std::get<SheetRef>(document));
}

const DocumentRef& ActiveDocument(const EngineContext& context) {
    const std::vector<DocumentRef>& open = context.Session->Documents();
    if (open.empty()) FailCall("no document is open");
    return open.back();
}

SheetRef OpenTextFile(const EngineContext& context, std::string_view member, const std::string& path) {
    Worksheet sheet;
    Progress progress;
    context.Engine.RunAside(member, progress, [&] {
        sheet = ReadWorksheet(path);
        return Value();
    });
    return context.Session->OpenWorksheet(std::move(sheet));
}

void SaveWorksheet(const EngineContext& context, SheetDocument& sheet, const std::string& path) {
    WriteWholeFile(context.Engine.Files(), path, WorksheetText(sheet.Sheet));
    sheet.Sheet.Path = path;
    sheet.Name = FileNameOf(path);
}

std::span<const ObjectMember<DocumentsObject>> DocumentsObject::Members() {
    static constexpr auto members = std::to_array<ObjectMember<DocumentsObject>>({
        {"Add", DocumentsAdd},
        {"Count", DocumentsCount},
        {"Item", DocumentsItem},
        {"Open", DocumentsOpen},
    });
    return members;
}

std::span<const ObjectMember<WindowObject>> WindowObject::Members() {
    static constexpr auto members = std::to_array<ObjectMember<WindowObject>>({{"Close", WindowClose}});
    return members;
}

}  // namespace crownlab
