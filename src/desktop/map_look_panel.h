#pragma once

#include <QGroupBox>
#include <functional>

#include "desktop/map_canvas.h"

class QCheckBox;
class QComboBox;
class QDoubleSpinBox;
class QLabel;

namespace crownlab {

/// How a map shows its grid, as a person sets it; all but the kind of view.
class MapLookPanel : public QGroupBox {
public:
    explicit MapLookPanel(QWidget* parent = nullptr);

    /// What is set, for that kind of view.
    MapLook Look(MapView view) const;
    /// What means nothing for the view that is shown is greyed.
    void SetView(MapView view, bool surface);

    std::function<void()> OnChange;

private:
    QComboBox* palette_;
    QCheckBox* lines_;
    QDoubleSpinBox* step_;
    QDoubleSpinBox* factor_;
};

}  // namespace crownlab
