#pragma once

#include <string>

#include "forms/controls.h"

namespace crownlab {

/// A control's value as `show` and `expect` have it. Reads a file list anew. ScriptError for a kind without a value.
std::string ShownValue(const ControlRef& control);

/// Does what a person does to bring the control to `value`, with its events. ScriptError if the kind can't
/// be set, the value doesn't fit it, or a person couldn't reach it.
void SetValueFromText(const ControlRef& control, const std::string& value);

}  // namespace crownlab
