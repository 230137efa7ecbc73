#include "plot_samples.h"

#include <gtest/gtest.h>

#include <QDir>
#include <QTest>
#include <QWidget>
#include <algorithm>
#include <array>

#include "crown_grid.h"
#include "desktop/plot_view.h"

namespace crownlab {

Grid LevelGrid(double z, int columns, int rows) {
    Grid grid({.Columns = columns, .Rows = rows, .XMin = 0, .XMax = 3, .YMin = 0, .YMax = 2});
    std::fill(grid.Z.begin(), grid.Z.end(), z);
    return grid;
}

PlotMap MapAt(MapKind kind, const Grid& grid, double left, double top, const std::string& path) {
    PlotMap map = MakeMap(kind, path, grid);
    map.Left = left;
    map.Top = top;
    return map;
}

void HideAxes(PlotMap& map) {
    for (MapAxis& axis : map.Axes) axis = {.ShowLabels = false, .MajorTickType = 1, .LineStyle = "Invisible"};
}

std::shared_ptr<PlotDocument> CrownSheet() {
    auto sheet = std::make_shared<PlotDocument>();
    sheet->Name = "Plot1";
    const Grid crown = CrownGrid(121, 91);
    constexpr std::array kinds{MapKind::Relief, MapKind::Contour, MapKind::Image, MapKind::Surface};
    for (std::size_t slot = 0; slot < 2 * kinds.size(); ++slot) {
        const double column = static_cast<double>(slot % kinds.size()) + 1;
        const std::size_t line = slot / kinds.size();
        const auto row = static_cast<double>(line);
        PlotMap map = MakeMap(kinds[slot % kinds.size()], "m" + std::to_string(slot + 1) + ".grd", crown);
        map.Left = 18 * column + 10.19 - map.XLength / 2;
        map.Top -= 18 * row;
        map.Layer.ZMapPerPU = map.Layer.XMapPerPU;
        map.Layer.ShowColorScale = map.Kind == MapKind::Contour && row == 0;
        if (row > 0) HideAxes(map);
        if (row > 0) map.ScaleBars.push_back({.CycleSpacing = 0.5, .LabelIncrement = 0.5, .NumCycles = 8});
        sheet->Shapes.emplace_back(map);
        PlotText label;
        label.X = 18 * column + 10.44 - map.XLength / 2;
        label.Y = 13.5 - map.YLength / 2 - 18 * row;
        label.Text = map.GridFilename;
        sheet->Shapes.emplace_back(label);
    }
    return sheet;
}

QImage Settled(PlotView& view) {
    QTest::qWait(10);
    EXPECT_TRUE(QTest::qWaitFor([&view] {
        view.viewport()->repaint();
        return view.IsSettled();
    }));
    return view.viewport()->grab().toImage();
}

QColor ColourOnPage(const PlotView& view, const QImage& shown, double x, double y) {
    return shown.pixelColor((view.OnViewport(x, y) * shown.devicePixelRatio()).toPoint());
}

void KeepPicture(const QImage& picture, const char* name) {
    QDir().mkpath(CROWNLAB_SCREENSHOTS);
    EXPECT_TRUE(picture.save(QString("%1/%2.png").arg(CROWNLAB_SCREENSHOTS, name)));
}

}  // namespace crownlab
