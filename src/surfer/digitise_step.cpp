#include "surfer/digitise_step.h"

#include "basis/paths.h"
#include "basis/result_file.h"
#include "forms/desk.h"

namespace crownlab {
namespace {

/// In this order, as the boxes have always had it.
constexpr const char* kBoxLineEnd = "\n\r";

void WriteBoundary(FileTable& files, const DigitiseStep& step, const std::vector<PlanePoint>& points) {
    if (step.Boundary == BoundaryKind::None) return;
    ResultFile file(files, step.BoundaryPath());
    if (step.Boundary == BoundaryKind::Ring) {
        WriteRing(file, points, step.Flag);
    } else {
        WriteOpenLine(file, points, step.Flag);
    }
    file.Commit();
}

}  // namespace

bool AskToDigitise(Services& app, const DigitiseStep& step) {
    std::string text;
    for (const std::string& line : step.Prompt) text += line + kBoxLineEnd;
    text += "Save as " + step.File + " in same directory as grid then press 'OK'.";
    const Button answer = app.Screen->Ask({.Text = text,
                                           .Title = "Digitise map",
                                           .Buttons = {Button::Ok, Button::Cancel},
                                           .Digitise = {step.Folder + step.Base + step.Extension, step.DigitPath()}});
    return answer == Button::Ok;
}

void CopyDigitised(Services& app, const DigitiseStep& step) {
    WriteWholeFile(*app.Files, step.CopyPath(), ReadFileText(step.DigitPath()).View());
}

std::optional<std::vector<PlanePoint>> Digitise(Services& app, const DigitiseStep& step) {
    if (!AskToDigitise(app, step)) return std::nullopt;
    CopyDigitised(app, step);
    std::vector<PlanePoint> points =
        step.Points > 0 ? ReadDigitisedPoints(step.CopyPath(), step.Points) : ReadDigitisedPoints(step.CopyPath());
    WriteBoundary(*app.Files, step, points);
    return points;
}

}  // namespace crownlab
