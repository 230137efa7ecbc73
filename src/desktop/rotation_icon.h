#pragma once

#include <QColor>
#include <QIcon>

namespace crownlab {

/// An arrow that goes round by `degrees`, clockwise if positive.
QIcon RotationIcon(int degrees, const QColor& colour);

}  // namespace crownlab
