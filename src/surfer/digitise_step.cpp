#include "surfer/digitise_step.h"

#include "basis/paths.h"
#include "basis/result_file.h"
#include "forms/desk.h"

namespace crownlab {
namespace {

/// In this order, as the boxes have always had it.
constexpr const char* kBoxLineEnd = "\n\r";

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

}  // namespace crownlab
