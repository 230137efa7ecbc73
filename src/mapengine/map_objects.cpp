#include "mapengine/map_objects.h"

#include <array>

namespace crownlab {
namespace {

/// A one-based index into `count` things.
std::size_t TakeIndex(std::string_view member, const Arguments& given, std::size_t count) {
    const CallArguments arguments(member, {"Index"}, given);
    const int index = arguments.Whole("Index");
    if (index < 1 || static_cast<std::size_t>(index) > count) {
        arguments.Fail("Index", std::to_string(index) + " is not one of 1 to " + std::to_string(count));
    }
    return static_cast<std::size_t>(index) - 1;
}

Value Overlays(MapFrameObject& map, const Arguments& arguments) {
    TakeIndex("Overlays", arguments, 1);
    return MakeLayerObject(map);
}

Value Axes(MapFrameObject& map, const Arguments& arguments) {
    constexpr std::size_t flat = 4;
    const std::size_t count = map.Map().Kind == MapKind::Surface ? map.Map().Axes.size() : flat;
    return std::make_shared<AxisObject>(map, TakeIndex("Axes", arguments, count));
}

Value Bar(const MapPart& map, std::string_view member, const Arguments& arguments) {
    return std::make_shared<ScaleBarObject>(map, TakeIndex(member, arguments, map.Map().ScaleBars.size()));
}

Value ScaleBars(MapFrameObject& map, const Arguments& arguments) {
    if (!arguments.empty()) return Bar(map, "ScaleBars", arguments);
    return std::make_shared<ScaleBarsObject>(map);
}

Value BarsItem(ScaleBarsObject& bars, const Arguments& arguments) { return Bar(bars, "Item", arguments); }

Value BarsCount(ScaleBarsObject& bars, const Arguments& arguments) {
    TakeNone("Count", arguments);
    return static_cast<double>(bars.Map().ScaleBars.size());
}

Value BarsAdd(ScaleBarsObject& bars, const Arguments& arguments) {
    TakeNone("Add", arguments);
    PlotMap& map = bars.Map();
    map.ScaleBars.push_back(MakeScaleBar(map));
    bars.Touch();
    return std::make_shared<ScaleBarObject>(bars, map.ScaleBars.size() - 1);
}

Value ReadAxisLine(AxisObject& axis, const Arguments& arguments) {
    TakeNone("AxisLine", arguments);
    return axis.Line();
}

std::string LineStyleValue(const Value& value) {
    const std::string text = TextOf(value, "the value");
    for (const char* const style : {"Solid", "Invisible"}) {
        if (EqualNoCase(text, style)) return style;
    }
    FailCall("\"" + text + R"(" is no style of a line; there are "Solid" and "Invisible")");
}

}  // namespace

ObjectRef AxisObject::Line() const { return std::make_shared<AxisLineObject>(*this, index_); }

std::span<const ObjectMember<MapFrameObject>> MapFrameObject::Members() {
    static constexpr auto members = std::to_array<ObjectMember<MapFrameObject>>({
        {"Axes", Axes},
        {"Left", ReadField<MapFrameObject, &PlotMap::Left>, WriteField<MapFrameObject, &PlotMap::Left, FiniteValue>},
        {"Overlays", Overlays},
        {"ScaleBars", ScaleBars},
        {"Top", ReadField<MapFrameObject, &PlotMap::Top>, WriteField<MapFrameObject, &PlotMap::Top, FiniteValue>},
        {"XLength", ReadField<MapFrameObject, &PlotMap::XLength>},
        {"YLength", ReadField<MapFrameObject, &PlotMap::YLength>},
    });
    return members;
}

std::span<const ObjectMember<AxisObject>> AxisObject::Members() {
    static constexpr auto members = std::to_array<ObjectMember<AxisObject>>({
        {"AxisLine", ReadAxisLine},
        {"MajorTickType", ReadField<AxisObject, &MapAxis::MajorTickType>,
         WriteField<AxisObject, &MapAxis::MajorTickType, RangeValue<1, 4>>},
        {"ShowLabels", ReadField<AxisObject, &MapAxis::ShowLabels>,
         WriteField<AxisObject, &MapAxis::ShowLabels, FlagValue>},
    });
    return members;
}

std::span<const ObjectMember<AxisLineObject>> AxisLineObject::Members() {
    static constexpr auto members = std::to_array<ObjectMember<AxisLineObject>>({
        {"Style", ReadField<AxisLineObject, &MapAxis::LineStyle>,
         WriteField<AxisLineObject, &MapAxis::LineStyle, LineStyleValue>},
    });
    return members;
}

std::span<const ObjectMember<ScaleBarsObject>> ScaleBarsObject::Members() {
    static constexpr auto members = std::to_array<ObjectMember<ScaleBarsObject>>({
        {"Add", BarsAdd},
        {"Count", BarsCount},
        {"Item", BarsItem},
    });
    return members;
}

std::span<const ObjectMember<ScaleBarObject>> ScaleBarObject::Members() {
    constexpr int mostCycles = 1000;
    static constexpr auto members = std::to_array<ObjectMember<ScaleBarObject>>({
        {"CycleSpacing", ReadField<ScaleBarObject, &ScaleBar::CycleSpacing>,
         WriteField<ScaleBarObject, &ScaleBar::CycleSpacing, PositiveValue>},
        {"LabelIncrement", ReadField<ScaleBarObject, &ScaleBar::LabelIncrement>,
         WriteField<ScaleBarObject, &ScaleBar::LabelIncrement, PositiveValue>},
        {"NumCycles", ReadField<ScaleBarObject, &ScaleBar::NumCycles>,
         WriteField<ScaleBarObject, &ScaleBar::NumCycles, RangeValue<1, mostCycles>>},
    });
    return members;
}

}  // namespace crownlab
