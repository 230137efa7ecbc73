#include "surfer/digitise_area.h"

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
    const DigitiseStep step =
        StepOn(grid, "Use 'Digitise' to digitise area of " + grid.Base + " to be blanked.", "blnpts.dat");
    if (!AskToDigitise(app, step)) return std::nullopt;
    CopyDigitised(app, step);
    std::string outline = grid.Folder + grid.Base + "blnpts.bln";
    WriteRingFile(*app.Files, outline, ReadDigitisedPoints(step.CopyPath()),
                  {.Sense = sense, .As = BoundaryFlag::Form::Text});
    return outline;
}

std::optional<DigitisedBox> DigitiseBox(Services& app, const MapOfGrid& grid) {
    const DigitiseStep step =
        StepOn(grid, "Use 'Digitise' to digitise bottom left and top right of area in " + grid.Base + " to keep.",
               "extpts.dat");
    if (!AskToDigitise(app, step)) return std::nullopt;
    CopyDigitised(app, step);
    const std::vector<PlanePoint> corners = ReadDigitisedPoints(step.CopyPath(), 2);
    return DigitisedBox{corners[0], corners[1]};
}

}  // namespace crownlab
