#include "desktop/map_look_panel.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDoubleSpinBox>
#include <QFormLayout>
#include <QImage>
#include <QPixmap>

#include "desktop/shown_text.h"

namespace crownlab {
namespace {

/// A palette as it looks, low on the left.
QIcon Swatch(MapPalette palette) {
    const PaletteTable& colours = PaletteColours(palette);
    QImage strip(static_cast<int>(colours.size()), 1, QImage::Format_RGB32);
    for (int i = 0; i < strip.width(); ++i) {
        const MapColour& colour = colours[static_cast<std::size_t>(i)];
        strip.setPixel(i, 0, qRgb(colour.Red, colour.Green, colour.Blue));
    }
    return QPixmap::fromImage(strip.scaled(48, 14));
}

QDoubleSpinBox* MakeNumber(const char* name, double low, double high, int decimals) {
    auto* const box = new QDoubleSpinBox;
    box->setObjectName(name);
    box->setRange(low, high);
    box->setDecimals(decimals);
    box->setStepType(QAbstractSpinBox::AdaptiveDecimalStepType);
    box->setKeyboardTracking(false);
    return box;
}

}  // namespace

MapLookPanel::MapLookPanel(QWidget* parent)
    : QGroupBox("Look", parent),
      palette_(new QComboBox),
      lines_(new QCheckBox("over relief and colours")),
      step_(MakeNumber("spinStep", 0, 1e6, 4)),
      factor_(MakeNumber("spinFactor", 0.01, 1000, 2)) {
    palette_->setObjectName("comboPalette");
    palette_->setIconSize({48, 14});
    for (const MapPalette palette : kMapPalettes) {
        palette_->addItem(Swatch(palette), ShownText(PaletteName(palette)), static_cast<int>(palette));
    }
    lines_->setObjectName("checkLines");
    step_->setSpecialValueText("round");
    step_->setToolTip("Height from one contour line to the next");
    factor_->setValue(1);
    factor_->setPrefix(QStringLiteral("\u00d7 "));
    factor_->setToolTip("Relief and surface are drawn with heights that are so many times larger");
    auto* const form = new QFormLayout(this);
    form->addRow("Colours", palette_);
    form->addRow("Contours", lines_);
    form->addRow("Contour step", step_);
    form->addRow("Heights", factor_);
    connect(palette_, &QComboBox::currentIndexChanged, this, [this] { OnChange(); });
    connect(lines_, &QCheckBox::toggled, this, [this] { OnChange(); });
    connect(step_, &QDoubleSpinBox::valueChanged, this, [this] { OnChange(); });
    connect(factor_, &QDoubleSpinBox::valueChanged, this, [this] { OnChange(); });
}

MapLook MapLookPanel::Look(MapView view) const {
    return {.View = view,
            .Palette = static_cast<MapPalette>(palette_->currentData().toInt()),
            .ContourLines = lines_->isChecked(),
            .ContourStep = step_->value(),
            .HeightFactor = factor_->value()};
}

void MapLookPanel::SetView(MapView view, bool surface) {
    palette_->setEnabled(surface || view == MapView::Image);
    lines_->setEnabled(!surface && view != MapView::Contours);
    step_->setEnabled(!surface);
    factor_->setEnabled(surface || view == MapView::Relief);
}

}  // namespace crownlab
