#include <algorithm>
#include <array>

#include "mapengine/application_members.h"
#include "mapengine/plot_objects.h"

namespace crownlab {
namespace {

/// The plot that is drawn on: the last one, a new one if none is open.
PlotPart DrawnOn(const EngineContext& context) {
    PlotRef plot = context.Session->ActivePlot();
    if (!plot) plot = context.Session->AddPlot();
    return {context, std::move(plot)};
}

const std::string& ObjectName(const PlotShape& shape) {
    return std::visit([](const auto& drawn) -> const std::string& { return drawn.ObjectName; }, shape);
}

void NameObject(const PlotPart& page, std::size_t shape, const std::string& name) {
    std::visit([&](auto& drawn) { drawn.ObjectName = name; }, page.Document().Shapes[shape]);
}

Value MapContour(const EngineContext& context, const Arguments& given) {
    const CallArguments arguments("MapContour", {"GridFile", ""}, given);
    const std::string path = arguments.Text("GridFile");
    AddMap(DrawnOn(context), "MapContour", MapKind::Contour, path);
    return true;
}

Value ReliefMap(const EngineContext& context, const Arguments& given) {
    const CallArguments arguments("ReliefMap", {"GridFile", "", "", "", "", "", "", "", "Name"}, given);
    const std::string path = arguments.Text("GridFile");
    const std::string name = arguments.Has("Name") ? arguments.NameOrNumber("Name") : std::string();
    const PlotPart page = DrawnOn(context);
    NameObject(page, AddMap(page, "ReliefMap", MapKind::Relief, path), name);
    return true;
}

Value DrawText(const EngineContext& context, const Arguments& given) {
    const CallArguments arguments("DrawText", {"X", "Y", "Text", "Name"}, given);
    const double x = arguments.Number("X");
    const double y = arguments.Number("Y");
    const std::string text = arguments.NameOrNumber("Text");
    const std::string name = arguments.Has("Name") ? arguments.NameOrNumber("Name") : std::string();
    const PlotPart page = DrawnOn(context);
    NameObject(page, AddText(page, x, y, text), name);
    return true;
}

/// Index of the newest object of that name: a batch that is plotted again names its maps as before.
std::size_t FindObject(const PlotDocument& plot, const std::string& name) {
    const auto found = std::find_if(plot.Shapes.rbegin(), plot.Shapes.rend(),
                                    [&](const PlotShape& shape) { return !name.empty() && ObjectName(shape) == name; });
    if (found == plot.Shapes.rend()) FailCall("there is no object \"" + name + "\" on " + plot.Name);
    return static_cast<std::size_t>(plot.Shapes.rend() - found) - 1;
}

Value Select(const EngineContext& context, const Arguments& given) {
    const CallArguments arguments("Select", {"Name", "Other"}, given);
    const PlotPart page = DrawnOn(context);
    PlotDocument& plot = page.Document();
    std::vector<std::size_t> chosen{FindObject(plot, arguments.NameOrNumber("Name"))};
    if (arguments.Has("Other")) chosen.push_back(FindObject(plot, arguments.NameOrNumber("Other")));
    // The same object named twice moves once.
    std::sort(chosen.begin(), chosen.end());
    chosen.erase(std::unique(chosen.begin(), chosen.end()), chosen.end());
    plot.Selection = std::move(chosen);
    return true;
}

struct Move {
    double X;
    double Y;
    void operator()(PlotMap& map) const {
        map.Left += X;
        map.Top += Y;
    }
    void operator()(PlotText& text) const {
        text.X += X;
        text.Y += Y;
    }
};

Value TransformSel(const EngineContext& context, const Arguments& given) {
    const CallArguments arguments("TransformSel", {"XOffset", "YOffset"}, given);
    const Move move{.X = arguments.Number("XOffset"), .Y = arguments.Number("YOffset")};
    const PlotPart page = DrawnOn(context);
    PlotDocument& plot = page.Document();
    if (plot.Selection.empty()) FailCall("nothing is selected on " + plot.Name);
    for (const std::size_t shape : plot.Selection) std::visit(move, plot.Shapes[shape]);
    page.Touch();
    return true;
}

Value Deselect(const EngineContext& context, const Arguments& arguments) {
    TakeNone("Deselect", arguments);
    if (const PlotRef plot = context.Session->ActivePlot()) plot->Selection.clear();
    return true;
}

}  // namespace

std::span<const ApplicationMember> DrawingMembers() {
    static constexpr auto members = std::to_array<ApplicationMember>({
        {"Deselect", EngineVersion::Six, Deselect},
        {"DrawText", EngineVersion::Six, DrawText},
        {"MapContour", EngineVersion::Six, MapContour},
        {"ReliefMap", EngineVersion::Six, ReliefMap},
        {"Select", EngineVersion::Six, Select},
        {"TransformSel", EngineVersion::Six, TransformSel},
    });
    return members;
}

}  // namespace crownlab
