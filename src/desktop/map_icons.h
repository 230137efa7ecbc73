#pragma once

#include <QIcon>

namespace crownlab {

/// Pictures on the buttons of a map window, drawn for any size of screen pixels.
enum class MapIcon { Relief, Image, Contours, Surface, Hand, Digitise, ZoomIn, ZoomOut, Fit, Open };
QIcon MakeMapIcon(MapIcon which);

}  // namespace crownlab
