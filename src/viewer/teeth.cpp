#include "viewer/teeth.h"

#include <utility>

#include "basis/failure.h"
#include "basis/rounding.h"

namespace crownlab {
namespace {

std::size_t IndexOf(double number) { return static_cast<std::size_t>(number) - 1; }

void ReorderList(const std::vector<double>& order, std::vector<double>& list) {
    if (list.size() < order.size()) return;  // left by another file, or never made
    const std::vector<double> before = list;
    for (std::size_t i = 0; i < order.size(); ++i) list[i] = before.at(IndexOf(order[i]));
}

}  // namespace

Tooth& ToothAt(std::vector<Tooth>& teeth, double number) {
    const int tooth = ToInt16(number, "tooth number");
    if (tooth < 1 || tooth > static_cast<int>(teeth.size())) {
        throw Failure(FailureKind::SubscriptOutOfRange, "tooth " + std::to_string(tooth));
    }
    return teeth[IndexOf(tooth)];
}

bool IsEmptyTooth(const Tooth& tooth) { return tooth.Grid.Empty() || tooth.Grid.Point(1, 1).x == 0; }

void RequireToothSize(const SurfaceGrid& grid) {
    if (grid.NumX > kMaxToothSide || grid.NumY > kMaxToothSide) {
        throw Failure(FailureKind::SubscriptOutOfRange, "MultiGrid");
    }
}

void ReorderTeeth(const std::vector<double>& order, std::vector<Tooth>& teeth, ToothTable& table) {
    std::vector<Tooth> sorted;
    sorted.reserve(teeth.size());
    for (const double number : order) sorted.push_back(ToothAt(teeth, number));
    for (std::size_t i = order.size(); i < teeth.size(); ++i) sorted.push_back(teeth[i]);
    teeth = std::move(sorted);
    for (std::vector<double>* const list : {&table.MaxHt, &table.SA, &table.Vol, &table.SAVolRat})
        ReorderList(order, *list);
}

}  // namespace crownlab
