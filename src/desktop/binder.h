#pragma once

#include <QString>
#include <string>
#include <vector>

#include "desktop/form_window.h"
#include "forms/form.h"

namespace crownlab {

/// Object name of a control's widget: an element of a control array, "txtParam(11)", is "txtParam_11".
QString WidgetName(const std::string& control);

/// Ties the widgets of the window to the controls of its form by name, both ways, and makes its menus.
/// Returns what copies the records, one a control. Throws std::logic_error where layout and form don't fit.
std::vector<CopyRecord> BindControls(FormWindow& window, Form& form);

/// What doesn't fit between a form and the layout in `window`, a line each: a control without a widget of a
/// fitting kind or in another frame than its record, a named widget without a control (names that begin with
/// "layout" excepted), a text that belongs to the record. `window` has been laid out but not bound.
std::vector<std::string> LayoutFaults(const Form& form, const QWidget& window);

}  // namespace crownlab
