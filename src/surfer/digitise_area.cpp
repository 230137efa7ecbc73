#include "surfer/digitise_area.h"

#include "basis/result_file.h"
#include "forms/form.h"
#include "surfer/digitise_step.h"

namespace crownlab {
namespace {

DigitiseStep StepOn(const MapOfGrid& grid, const std::string& prompt, const char* copySuffix) {
    DigitiseStep step;
    step.Folder = grid.Folder;
    step.Base = grid.Base;
    step.Prompt = {prompt};
    step.CopySuffix = copySuffix;
    return step;
}

}  // namespace

std::optional<std::string> DigitiseArea(Services& app, const MapOfGrid& grid, int sense) {
    DigitiseStep step =
        StepOn(grid, "Use 'Digitise' to digitise area of " + grid.Base + " to be blanked.", "blnpts.dat");
    step.Boundary = BoundaryKind::Ring;
    step.BoundarySuffix = "blnpts.bln";
    step.Flag = {.Sense = sense, .As = BoundaryFlag::Form::Text};
    if (!Digitise(app, step)) return std::nullopt;
    return step.BoundaryPath();
}

std::optional<std::string> DigitiseAreas(Services& app, const MapOfGrid& grid) {
    DigitiseStep step = StepOn(grid,
                               "Use 'Digitise' to digitise multiple areas of " + grid.Base +
                                   " to be blanked. Type '-1' between separate areas.",
                               "blnmpts.dat");
    step.BoundarySuffix = "blnmpts.bln";
    if (!AskToDigitise(app, step)) return std::nullopt;
    CopyDigitised(app, step);
    const std::vector<std::vector<PlanePoint>> areas = ReadDigitisedAreas(step.CopyPath());
    ResultFile file(*app.Files, step.BoundaryPath());
    for (const std::vector<PlanePoint>& points : areas) {
        if (!points.empty()) WriteRing(file, points, {.Sense = 1});
    }
    file.Commit();
    return step.BoundaryPath();
}

std::optional<DigitisedBox> DigitiseBox(Services& app, const MapOfGrid& grid) {
    DigitiseStep step =
        StepOn(grid, "Use 'Digitise' to digitise bottom left and top right of area in " + grid.Base + " to keep.",
               "extpts.dat");
    step.Points = 2;
    const auto corners = Digitise(app, step);
    if (!corners) return std::nullopt;
    return DigitisedBox{corners->at(0), corners->at(1)};
}

}  // namespace crownlab
