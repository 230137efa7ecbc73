// The map window: its parts and what it shows. Points and files: map_window_files.cpp.
#include "desktop/map_window.h"

#include <QActionGroup>
#include <QFileInfo>
#include <QLabel>
#include <QMenuBar>
#include <QMessageBox>
#include <QScreen>
#include <QSplitter>
#include <QStackedWidget>
#include <QStatusBar>
#include <QToolBar>
#include <QVBoxLayout>
#include <algorithm>
#include <cmath>

#include "basis/failure.h"
#include "desktop/map_icons.h"
#include "desktop/map_look_panel.h"
#include "desktop/map_points_panel.h"
#include "desktop/shown_text.h"
#include "desktop/surface_model.h"
#include "desktop/vrml_widget.h"
#include "mapengine/bilinear_height.h"
#include "mapengine/grid_file.h"

namespace crownlab {
namespace {

constexpr QSize kFirstSize(1120, 760);
constexpr double kZoomStep = 1.5;

/// Decimals that tell apart places so far from each other.
int DecimalsFor(double step) {
    if (!(step > 0)) return 0;
    return std::clamp(static_cast<int>(std::ceil(-std::log10(step))), 0, 12);
}

QString NumberText(double number, int decimals) {
    const QString text = QString::number(number, 'f', decimals);
    // A negative number that is rounded to nothing.
    const QString zero = QString::number(0.0, 'f', decimals);
    return text == "-" + zero ? zero : text;
}

}  // namespace

MapWindow::MapWindow(FileTable& files)
    : files_(files),
      canvas_(new MapCanvas(points_)),
      space_(new VrmlWidget),
      pages_(new QStackedWidget),
      views_(new QActionGroup(this)),
      tools_(new QActionGroup(this)) {
    // Numbers are written as everywhere in the program, whatever the user's language.
    setLocale(QLocale::c());
    setObjectName("mapWindow");
    setAcceptDrops(true);
    canvas_->setObjectName("mapCanvas");
    space_->setObjectName("mapSpace");
    pages_->addWidget(canvas_);
    pages_->addWidget(space_);
    auto* const split = new QSplitter;
    split->addWidget(pages_);
    split->addWidget(MakePanel());
    split->setStretchFactor(0, 1);
    split->setChildrenCollapsible(false);
    setCentralWidget(split);
    MakeToolBar();
    MakeMenus();
    MakeStatusBar();
    canvas_->OnHover = [this](std::optional<PlanePoint> at) { ShowPlace(at); };
    canvas_->OnPoints = [this] { ListPoints(); };
    ListPoints();
    ShowView(MapView::Relief);
    UseTool(MapTool::Hand);
    resize(kFirstSize.boundedTo(screen()->availableSize()));
}

MapWindow::~MapWindow() = default;

QWidget* MapWindow::MakePanel() {
    auto* const panel = new QWidget;
    auto* const column = new QVBoxLayout(panel);
    lookPanel_ = new MapLookPanel;
    lookPanel_->OnChange = [this] { ApplyLook(); };
    column->addWidget(lookPanel_);
    auto* const group = new QGroupBox("Points");
    pointsPanel_ = new MapPointsPanel;
    pointsPanel_->OnNextArea = [this] { nextArea_->trigger(); };
    pointsPanel_->OnDelete = [this] { delete_->trigger(); };
    pointsPanel_->OnUndo = [this] { undo_->trigger(); };
    pointsPanel_->OnSave = [this] { SavePoints(); };
    pointsPanel_->OnSelect = [this](std::optional<PointPlace> place) {
        canvas_->Select(place);
        delete_->setEnabled(place.has_value());
        ListPoints();
    };
    auto* const inside = new QVBoxLayout(group);
    inside->setContentsMargins(0, 0, 0, 0);
    inside->addWidget(pointsPanel_);
    column->addWidget(group, 1);
    return panel;
}

QAction* MapWindow::AddView(const QString& text, QMenu& menu, int icon, std::function<void()> act) {
    QAction* const action = menu.addAction(MakeMapIcon(static_cast<MapIcon>(icon)), text);
    action->setCheckable(true);
    views_->addAction(action);
    connect(action, &QAction::triggered, this, std::move(act));
    return action;
}

void MapWindow::MakeToolBar() {
    QMenu& file = *menuBar()->addMenu("&File");
    QMenu& edit = *menuBar()->addMenu("&Edit");
    QMenu& view = *menuBar()->addMenu("&View");
    QToolBar& bar = *addToolBar("Map");
    bar.setObjectName("mapToolBar");
    bar.setMovable(false);
    bar.setContextMenuPolicy(Qt::PreventContextMenu);
    bar.setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
    const auto add = [this](QMenu& menu, MapIcon icon, const char* name, const QString& text, const QKeySequence& keys,
                            auto act) {
        QAction* const action = menu.addAction(MakeMapIcon(icon), text, keys, this, act);
        action->setObjectName(name);
        return action;
    };
    bar.addAction(add(file, MapIcon::Open, "actionOpen", "Open grid...", QKeySequence::Open, [this] { AskForGrid(); }));
    bar.addSeparator();
    const auto addView = [this, &view, &bar](MapIcon icon, const char* name, const QString& text,
                                             std::function<void()> act) {
        QAction* const action = AddView(text, view, static_cast<int>(icon), std::move(act));
        action->setObjectName(name);
        bar.addAction(action);
    };
    addView(MapIcon::Relief, "actionRelief", "Relief", [this] { ShowView(MapView::Relief); });
    addView(MapIcon::Image, "actionImage", "Colours", [this] { ShowView(MapView::Image); });
    addView(MapIcon::Contours, "actionContours", "Contours", [this] { ShowView(MapView::Contours); });
    addView(MapIcon::Surface, "actionSurface", "3D surface", [this] { ShowSurface(); });
    bar.addSeparator();
    view.addSeparator();
    for (const auto& [icon, name, text, tool] :
         {std::tuple(MapIcon::Hand, "actionHand", "Move", MapTool::Hand),
          std::tuple(MapIcon::Digitise, "actionDigitise", "Digitise", MapTool::Digitise)}) {
        QAction* const action = add(edit, icon, name, text, {}, [this, chosen = tool] { UseTool(chosen); });
        action->setCheckable(true);
        tools_->addAction(action);
        bar.addAction(action);
    }
    edit.addSeparator();
    bar.addSeparator();
    const auto zoom = [this](double factor) {
        if (surface_) {
            space_->Approach(1 / factor);
        } else {
            canvas_->Zoom(factor);
        }
    };
    bar.addAction(
        add(view, MapIcon::ZoomIn, "actionZoomIn", "Larger", QKeySequence::ZoomIn, [zoom] { zoom(kZoomStep); }));
    bar.addAction(add(view, MapIcon::ZoomOut, "actionZoomOut", "Smaller", QKeySequence::ZoomOut,
                      [zoom] { zoom(1 / kZoomStep); }));
    bar.addAction(add(view, MapIcon::Fit, "actionFit", "Fit", QKeySequence("Ctrl+0"), [this] {
        if (surface_) {
            space_->Fit();
        } else {
            canvas_->Fit();
        }
    }));
}

void MapWindow::MakeMenus() {
    const QList<QAction*> menus = menuBar()->actions();
    QMenu& file = *menus[0]->menu();
    QMenu& edit = *menus[1]->menu();
    const auto add = [this](QMenu& menu, const char* name, const QString& text, const QKeySequence& keys, auto act) {
        QAction* const action = menu.addAction(text, keys, this, act);
        action->setObjectName(name);
        return action;
    };
    file.addSeparator();
    add(file, "actionOpenPoints", "Open points...", {}, [this] { AskForPoints(); });
    save_ = add(file, "actionSave", "Save points", QKeySequence::Save, [this] { SavePoints(); });
    file.addSeparator();
    add(file, "actionSavePicture", "Save picture...", {}, [this] { AskForPicture(); });
    file.addSeparator();
    add(file, "actionClose", "Close", QKeySequence::Close, [this] { close(); });

    undo_ = add(edit, "actionUndo", "Undo", QKeySequence::Undo, [this] {
        points_.Undo();
        PointsMoved();
    });
    redo_ = add(edit, "actionRedo", "Redo", QKeySequence::Redo, [this] {
        points_.Redo();
        PointsMoved();
    });
    edit.addSeparator();
    delete_ = add(edit, "actionDelete", "Delete point", QKeySequence(Qt::Key_Delete), [this] {
        if (canvas_->Selected()) points_.Remove(*canvas_->Selected());
        canvas_->Select(std::nullopt);
        PointsMoved();
    });
    add(edit, "actionClear", "Delete all points", {}, [this] {
        points_.Replace({{}});
        PointsMoved();
    });
    nextArea_ = add(edit, "actionNextArea", "Next area", QKeySequence("Ctrl+Return"), [this] {
        points_.StartNextArea();
        PointsMoved();
    });
}

void MapWindow::MakeStatusBar() {
    place_ = new QLabel;
    place_->setObjectName("labelPlace");
    gridNote_ = new QLabel;
    gridNote_->setObjectName("labelGrid");
    statusBar()->addWidget(place_, 1);
    statusBar()->addPermanentWidget(gridNote_);
}

QString MapWindow::OpenGrid(const std::string& path) {
    std::shared_ptr<const Grid> grid;
    try {
        grid = std::make_shared<const Grid>(ReadGrid(path));
    } catch (const Failure& failure) {
        return ShownText(failure.Object());
    } catch (const std::bad_alloc&) {
        return ShownText(path) + " needs more memory than there is.";
    }
    grid_ = std::move(grid);
    gridPath_ = path;
    range_ = Heights(*grid_);
    proposed_.clear();
    points_.Reset();
    const QFileInfo file(ShownText(path));
    pointsPanel_->SetTarget(file.absolutePath(), "digit.dat");
    canvas_->SetGrid(grid_);
    surfaceIsOld_ = true;
    surfaceWasShown_ = false;
    if (surface_) UpdateSurface(false);
    const int decimals = DecimalsFor((range_.High - range_.Low) / 2000);
    const QString heights =
        IsBlank(range_.Low)
            ? QString("blank")
            : QString("height %1 to %2").arg(NumberText(range_.Low, decimals), NumberText(range_.High, decimals));
    gridNote_->setText(QString("%1 x %2 nodes, %3").arg(grid_->Shape.Columns).arg(grid_->Shape.Rows).arg(heights));
    PointsMoved();
    return {};
}

void MapWindow::ShowView(MapView view) {
    view_ = view;
    surface_ = false;
    views_->actions()[static_cast<int>(view)]->setChecked(true);
    pages_->setCurrentWidget(canvas_);
    tools_->setEnabled(true);
    lookPanel_->SetView(view_, false);
    ApplyLook();
}

void MapWindow::ShowSurface() {
    surface_ = true;
    views_->actions().last()->setChecked(true);
    pages_->setCurrentWidget(space_);
    tools_->setEnabled(false);
    lookPanel_->SetView(view_, true);
    ShowPlace(std::nullopt);
    if (surfaceIsOld_) UpdateSurface(surfaceWasShown_);
}

void MapWindow::UseTool(MapTool tool) {
    tools_->actions()[tool == MapTool::Hand ? 0 : 1]->setChecked(true);
    canvas_->SetTool(tool);
}

void MapWindow::ApplyLook() {
    canvas_->SetLook(lookPanel_->Look(view_));
    surfaceIsOld_ = true;
    if (surface_) UpdateSurface(surfaceWasShown_);
}

void MapWindow::UpdateSurface(bool keepsView) {
    if (!grid_) return;
    const MapLook look = lookPanel_->Look(view_);
    // A surface of another height is looked at anew: it could reach out of sight.
    keepsView = keepsView && look.HeightFactor == surfaceFactor_;
    surfaceFactor_ = look.HeightFactor;
    SoSeparator* const model = MakeSurfaceModel(*grid_, look.Palette, look.HeightFactor);
    surfaceWasShown_ = space_->ShowModel(*model, keepsView);
    ReleaseModel(*model);
    surfaceIsOld_ = false;
}

QString MapWindow::HeightText(const PlanePoint& at) const {
    const double z = grid_ ? BilinearHeight(*grid_, at.x, at.y) : kBlankHeight;
    return IsBlank(z) ? QStringLiteral("\u2013") : NumberText(z, DecimalsFor((range_.High - range_.Low) / 20000));
}

void MapWindow::ShowPlace(std::optional<PlanePoint> at) {
    if (!at) return place_->clear();
    const int decimals = DecimalsFor(0.1 / canvas_->Transform().ScaleX);
    place_->setText(QString("x  %1     y  %2     height  %3")
                        .arg(NumberText(at->x, decimals), NumberText(at->y, decimals), HeightText(*at)));
}

void MapWindow::ListPoints() {
    const double side =
        grid_ ? std::max(grid_->Shape.XMax - grid_->Shape.XMin, grid_->Shape.YMax - grid_->Shape.YMin) : 1;
    pointsPanel_->Show(
        points_, canvas_->Selected(), [this](const PlanePoint& at) { return HeightText(at); },
        DecimalsFor(side / 20000));
    undo_->setEnabled(points_.CanUndo());
    redo_->setEnabled(points_.CanRedo());
    delete_->setEnabled(canvas_->Selected().has_value());
    nextArea_->setEnabled(!points_.Areas().back().empty());
    save_->setEnabled(points_.Count() > 0);
    ShowTitle();
}

void MapWindow::PointsMoved() {
    canvas_->PointsChanged();
    ListPoints();
}

void MapWindow::ShowTitle() {
    const QString name = gridPath_.empty() ? QString("Map") : QFileInfo(ShownText(gridPath_)).fileName() + " - Map";
    setWindowTitle(name + "[*]");
    setWindowModified(HasUnsavedPoints());
}

}  // namespace crownlab
