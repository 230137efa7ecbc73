#pragma once

#include <string>
#include <vector>

class QWidget;

namespace crownlab {

/// Lays out the widgets of the form's .ui file in `window`. Throws std::logic_error if the form has none.
void SetUpLayout(const std::string& form, QWidget& window);

/// Names of the forms that have a layout.
std::vector<std::string> LaidOutForms();

}  // namespace crownlab
