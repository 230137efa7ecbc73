#include <array>

#include "mapengine/map_objects.h"

namespace crownlab {
namespace {

/// The part that the layers of all kinds of maps share.
class LayerPart : public MapPart {
public:
    explicit LayerPart(const MapPart& map) : MapPart(map) {}
    MapLayer& Record() const { return Map().Layer; }
};

class ReliefLayer : public LayerPart, public MemberObject<ReliefLayer> {
public:
    using LayerPart::LayerPart;
    static constexpr std::string_view kKind = "relief map";
    static std::span<const ObjectMember<ReliefLayer>> Members();
};

/// Of contour and image maps.
class ScaledLayer : public LayerPart, public MemberObject<ScaledLayer> {
public:
    using LayerPart::LayerPart;
    static constexpr std::string_view kKind = "contour or image map";
    static std::span<const ObjectMember<ScaledLayer>> Members();
};

class SurfaceLayer : public LayerPart, public MemberObject<SurfaceLayer> {
public:
    using LayerPart::LayerPart;
    static constexpr std::string_view kKind = "surface";
    static std::span<const ObjectMember<SurfaceLayer>> Members();
};

template <typename Object, auto Field>
constexpr ObjectMember<Object> Angle(std::string_view name) {
    return {name, ReadField<Object, Field>, WriteField<Object, Field, FiniteValue>};
}

template <typename Object>
constexpr ObjectMember<Object> ColourScale() {
    return {"ShowColorScale", ReadField<Object, &MapLayer::ShowColorScale>,
            WriteField<Object, &MapLayer::ShowColorScale, FlagValue>};
}

/// Another scale along x and y is another size on the page; the upper left corner stays.
void SetMapUnits(SurfaceLayer& layer, const Value& value) {
    const double units = PositiveValue(value);
    PlotMap& map = layer.Map();
    const double width = (map.Shape.XMax - map.Shape.XMin) / units;
    const double height = (map.Shape.YMax - map.Shape.YMin) / units;
    if (!std::isfinite(width) || !std::isfinite(height)) FailCall("the map would be larger than any page");
    map.Layer.XMapPerPU = units;
    map.XLength = width;
    map.YLength = height;
    layer.Touch();
}

std::span<const ObjectMember<ReliefLayer>> ReliefLayer::Members() {
    static constexpr auto members = std::to_array<ObjectMember<ReliefLayer>>({
        Angle<ReliefLayer, &MapLayer::HLightAngle>("HLightAngle"),
        Angle<ReliefLayer, &MapLayer::VLightAngle>("VLightAngle"),
    });
    return members;
}

std::span<const ObjectMember<ScaledLayer>> ScaledLayer::Members() {
    static constexpr auto members = std::to_array<ObjectMember<ScaledLayer>>({ColourScale<ScaledLayer>()});
    return members;
}

std::span<const ObjectMember<SurfaceLayer>> SurfaceLayer::Members() {
    static constexpr auto members = std::to_array<ObjectMember<SurfaceLayer>>({
        Angle<SurfaceLayer, &MapLayer::LightAzimuth>("LightAzimuth"),
        Angle<SurfaceLayer, &MapLayer::LightZenith>("LightZenith"),
        ColourScale<SurfaceLayer>(),
        {"ViewProjection", ReadField<SurfaceLayer, &MapLayer::ViewProjection>,
         WriteField<SurfaceLayer, &MapLayer::ViewProjection, RangeValue<1, 2>>},
        Angle<SurfaceLayer, &MapLayer::ViewRotation>("ViewRotation"),
        Angle<SurfaceLayer, &MapLayer::ViewTilt>("ViewTilt"),
        {"xMapPerPU", ReadField<SurfaceLayer, &MapLayer::XMapPerPU>, SetMapUnits},
        {"zMapPerPU", ReadField<SurfaceLayer, &MapLayer::ZMapPerPU>,
         WriteField<SurfaceLayer, &MapLayer::ZMapPerPU, PositiveValue>},
    });
    return members;
}

}  // namespace

ObjectRef MakeLayerObject(const MapPart& map) {
    switch (map.Map().Kind) {
        case MapKind::Relief: return std::make_shared<ReliefLayer>(map);
        case MapKind::Surface: return std::make_shared<SurfaceLayer>(map);
        case MapKind::Contour:
        case MapKind::Image: break;
    }
    return std::make_shared<ScaledLayer>(map);
}

}  // namespace crownlab
