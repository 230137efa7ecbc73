#pragma once

#include <cstddef>

#include "mapengine/plot_objects.h"

namespace crownlab {

/// Something of a map on a page.
class MapPart : public PlotPart {
public:
    MapPart(const PlotPart& page, std::size_t shape) : PlotPart(page), shape_(shape) {}
    PlotMap& Map() const { return std::get<PlotMap>(Document().Shapes[shape_]); }

private:
    std::size_t shape_;
};

/// The frame of a map: where it stands, what is drawn around it.
class MapFrameObject : public MapPart, public MemberObject<MapFrameObject> {
public:
    using MapPart::MapPart;
    static constexpr std::string_view kKind = "map";
    static std::span<const ObjectMember<MapFrameObject>> Members();
    PlotMap& Record() const { return Map(); }
};

/// The object of a map's layer; what it can do depends on the kind of map.
ObjectRef MakeLayerObject(const MapPart& map);

/// An axis, `index` from 0.
class AxisObject : public MapPart, public MemberObject<AxisObject> {
public:
    AxisObject(const MapPart& map, std::size_t index) : MapPart(map), index_(index) {}
    static constexpr std::string_view kKind = "axis";
    static std::span<const ObjectMember<AxisObject>> Members();
    MapAxis& Record() const { return Map().Axes[index_]; }
    ObjectRef Line() const;

private:
    std::size_t index_;
};

/// The line of an axis.
class AxisLineObject : public MapPart, public MemberObject<AxisLineObject> {
public:
    AxisLineObject(const MapPart& map, std::size_t index) : MapPart(map), index_(index) {}
    static constexpr std::string_view kKind = "axis line";
    static std::span<const ObjectMember<AxisLineObject>> Members();
    MapAxis& Record() const { return Map().Axes[index_]; }

private:
    std::size_t index_;
};

/// The scale bars of a map.
class ScaleBarsObject : public MapPart, public MemberObject<ScaleBarsObject> {
public:
    explicit ScaleBarsObject(const MapPart& map) : MapPart(map) {}
    static constexpr std::string_view kKind = "list of scale bars";
    static std::span<const ObjectMember<ScaleBarsObject>> Members();
};

/// One of them, `index` from 0.
class ScaleBarObject : public MapPart, public MemberObject<ScaleBarObject> {
public:
    ScaleBarObject(const MapPart& map, std::size_t index) : MapPart(map), index_(index) {}
    static constexpr std::string_view kKind = "scale bar";
    static std::span<const ObjectMember<ScaleBarObject>> Members();
    ScaleBar& Record() const { return Map().ScaleBars[index_]; }

private:
    std::size_t index_;
};

}  // namespace crownlab
