#include "mapengine/plot_objects.h"

#include <array>
#include <optional>

#include "mapengine/grid_file.h"
#include "mapengine/map_engine.h"
#include "mapengine/map_objects.h"

namespace crownlab {
namespace {

template <MapKind Kind>
Value AddMapOfKind(ShapesObject& shapes, std::string_view member, const Arguments& given) {
    const CallArguments arguments(member, {"GridFilename"}, given);
    return shapes.Added(AddMap(shapes, member, Kind, arguments.Text("GridFilename")));
}

Value AddContourMap(ShapesObject& shapes, const Arguments& given) {
    return AddMapOfKind<MapKind::Contour>(shapes, "AddContourMap", given);
}

Value AddImageMap(ShapesObject& shapes, const Arguments& given) {
    return AddMapOfKind<MapKind::Image>(shapes, "AddImageMap", given);
}

Value AddReliefMap(ShapesObject& shapes, const Arguments& given) {
    return AddMapOfKind<MapKind::Relief>(shapes, "AddReliefMap", given);
}

Value AddSurface(ShapesObject& shapes, const Arguments& given) {
    return AddMapOfKind<MapKind::Surface>(shapes, "AddSurface", given);
}

Value AddTextShape(ShapesObject& shapes, const Arguments& given) {
    const CallArguments arguments("AddText", {"X", "Y", "Text"}, given);
    const double x = arguments.Number("X");
    const double y = arguments.Number("Y");
    return shapes.AddedText(AddText(shapes, x, y, arguments.Text("Text")));
}

std::string TextValue(const Value& value) { return TextOf(value, "the value"); }

}  // namespace

PlotDocument& PlotPart::Document() const {
    if (!document_->IsOpen) FailCall("the plot document " + document_->Name + " has been closed");
    return *document_;
}

std::size_t AddMap(const PlotPart& page, std::string_view member, MapKind kind, const std::string& path) {
    PlotDocument& document = page.Document();
    std::optional<PlotMap> map;
    Progress progress;
    page.Context.Engine.RunAside(member, progress, [&] {
        map = MakeMap(kind, path, ReadGrid(path));
        return Value();
    });
    document.Shapes.emplace_back(std::move(*map));
    page.Touch();
    return document.Shapes.size() - 1;
}

std::size_t AddText(const PlotPart& page, double x, double y, const std::string& text) {
    PlotDocument& document = page.Document();
    document.Shapes.emplace_back(
        PlotText{.ObjectName = {}, .X = x, .Y = y, .Text = text, .Font = document.DefaultFont});
    page.Touch();
    return document.Shapes.size() - 1;
}

ObjectRef ShapesObject::Added(std::size_t map) const { return std::make_shared<MapFrameObject>(*this, map); }

ObjectRef ShapesObject::AddedText(std::size_t text) const { return std::make_shared<TextObject>(*this, text); }

std::span<const ObjectMember<ShapesObject>> ShapesObject::Members() {
    static constexpr auto members = std::to_array<ObjectMember<ShapesObject>>({
        {"AddContourMap", AddContourMap},
        {"AddImageMap", AddImageMap},
        {"AddReliefMap", AddReliefMap},
        {"AddSurface", AddSurface},
        {"AddText", AddTextShape},
    });
    return members;
}

std::span<const ObjectMember<FontObject>> FontObject::Members() {
    static constexpr auto members = std::to_array<ObjectMember<FontObject>>({
        {"HAlign", ReadField<FontObject, &TextFont::HAlign>,
         WriteField<FontObject, &TextFont::HAlign, RangeValue<1, 3>>},
        {"VAlign", ReadField<FontObject, &TextFont::VAlign>,
         WriteField<FontObject, &TextFont::VAlign, RangeValue<4, 6>>},
    });
    return members;
}

std::span<const ObjectMember<TextObject>> TextObject::Members() {
    static constexpr auto members = std::to_array<ObjectMember<TextObject>>({
        {"Text", ReadField<TextObject, &PlotText::Text>, WriteField<TextObject, &PlotText::Text, TextValue>},
        {"X", ReadField<TextObject, &PlotText::X>, WriteField<TextObject, &PlotText::X, FiniteValue>},
        {"Y", ReadField<TextObject, &PlotText::Y>, WriteField<TextObject, &PlotText::Y, FiniteValue>},
    });
    return members;
}

}  // namespace crownlab
