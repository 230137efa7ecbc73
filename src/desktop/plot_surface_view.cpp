#include "desktop/plot_surface_view.h"

#include <algorithm>
#include <cmath>
#include <numbers>

#include "mapengine/plot_document.h"

namespace crownlab {
namespace {

/// The eye of a perspective view, in diagonals of the box from its middle: near enough to be seen as perspective, far
/// enough that nothing of the box comes behind the eye.
constexpr double kEyeDistance = 2.5;
/// For the order of cells an orthographic eye is just very far away.
constexpr double kFarAway = 1e6;
constexpr int kPerspective = 1;

double Radians(double degrees) { return degrees * std::numbers::pi / 180; }

/// Cosine and sine that are exact at quarter turns, where box sides have to stay upright.
double Cosine(double degrees) { return std::fmod(std::fabs(degrees), 180) == 90 ? 0 : std::cos(Radians(degrees)); }
double Sine(double degrees) { return std::fmod(degrees, 180) == 0 ? 0 : std::sin(Radians(degrees)); }

double FiniteOr(double value, double otherwise) { return std::isfinite(value) ? value : otherwise; }

}  // namespace

SurfaceView::SurfaceView(const MapLayer& layer, const Box& box, const QRectF& frame) : box_(box) {
    const double turn = FiniteOr(layer.ViewRotation, 0);
    const double tilt = FiniteOr(layer.ViewTilt, 0);
    cosTurn_ = Cosine(turn);
    sinTurn_ = Sine(turn);
    cosTilt_ = Cosine(tilt);
    sinTilt_ = Sine(tilt);
    const double diagonal = std::sqrt(box.X * box.X + box.Y * box.Y + box.Z * box.Z);
    if (layer.ViewProjection == kPerspective) distance_ = kEyeDistance * diagonal;
    const double eye = distance_ > 0 ? distance_ : kFarAway * diagonal;
    eyeX_ = 0.5 - eye * cosTilt_ * sinTurn_ / box.X;
    eyeY_ = 0.5 - eye * cosTilt_ * cosTurn_ / box.Y;

    QPointF low(HUGE_VAL, HUGE_VAL);
    QPointF high(-HUGE_VAL, -HUGE_VAL);
    for (int corner = 0; corner < 8; ++corner) {
        const QPointF at = Projected(corner & 1, (corner >> 1) & 1, (corner >> 2) & 1);
        low = {std::min(low.x(), at.x()), std::min(low.y(), at.y())};
        high = {std::max(high.x(), at.x()), std::max(high.y(), at.y())};
    }
    // Rounding must not make a box smaller that just fits.
    constexpr double almost = 1 + 1e-9;
    const QPointF size = high - low;
    scale_ = std::min({1.0, almost * frame.width() / size.x(), almost * frame.height() / size.y()});
    shift_ = frame.center() - scale_ * (low + high) / 2;
}

SurfaceView::Turned SurfaceView::Turn(double x, double y, double z) const {
    const double east = (x - 0.5) * box_.X;
    const double north = (y - 0.5) * box_.Y;
    const double height = (z - 0.5) * box_.Z;
    const double away = east * sinTurn_ + north * cosTurn_;
    return {.Across = east * cosTurn_ - north * sinTurn_,
            .Up = away * sinTilt_ + height * cosTilt_,
            .Near = height * sinTilt_ - away * cosTilt_};
}

QPointF SurfaceView::Projected(double x, double y, double z) const {
    const Turned at = Turn(x, y, z);
    const double larger = distance_ > 0 ? distance_ / (distance_ - at.Near) : 1;
    return {larger * at.Across, -larger * at.Up};
}

QPointF SurfaceView::Place(double x, double y, double z) const { return scale_ * Projected(x, y, z) + shift_; }

bool SurfaceView::IsInFront(int side) const {
    switch (side) {
        case 1: return eyeY_ < 0;
        case 2: return eyeY_ > 1;
        case 3: return eyeX_ < 0;
        case 4: return eyeX_ > 1;
        default: return false;
    }
}

SurfaceView ViewOf(const PlotMap& map, const QRectF& frame) {
    const double perPage = map.XLength > 0 ? frame.width() / map.XLength : 1;
    const double height = (map.Heights.High - map.Heights.Low) / map.Layer.ZMapPerPU * perPage;
    // A box of immense height would leave nothing of its sides.
    constexpr double steepest = 1e4;
    const double largest = steepest * std::max(frame.width(), frame.height());
    const bool sensible = std::isfinite(height) && height >= 0;
    return {map.Layer,
            {.X = frame.width(), .Y = frame.height(), .Z = sensible ? std::min(height, largest) : largest},
            frame};
}

std::vector<int> FarToNear(const std::vector<double>& edges, double eye) {
    const int count = static_cast<int>(edges.size()) - 1;
    std::vector<int> order;
    int cell = 0;
    for (; cell < count && edges[static_cast<std::size_t>(cell) + 1] <= eye; ++cell) order.push_back(cell);
    for (int other = count - 1; other >= cell; --other) order.push_back(other);
    return order;
}

}  // namespace crownlab
