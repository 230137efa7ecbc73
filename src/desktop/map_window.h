#pragma once

#include <QPointer>
#include <functional>
#include <memory>
#include <string>

#include "desktop/digitised_points.h"
#include "desktop/map_canvas.h"
#include "desktop/side_window.h"
#include "forms/desk.h"

class QAction;
class QActionGroup;
class QLabel;
class QMessageBox;
class QStackedWidget;

namespace crownlab {

class FileTable;
class MapLookPanel;
class MapPointsPanel;
class VrmlWidget;

/// A window on a grid: relief, colours, contours, or the surface in space; and points that a person digitises on it and
/// saves beside the grid.
class MapWindow : public SideWindow {
public:
    explicit MapWindow(FileTable& files);
    ~MapWindow() override;

    /// Reads a grid and shows it, without points. Returns what is wrong with the file, empty if nothing is: what is
    /// shown stays then.
    QString OpenGrid(const std::string& path);
    const std::string& GridPath() const { return gridPath_; }

    /// A tool waits for points in a file: it is proposed for saving, and a line tells so.
    void StartWait(const DigitiseOffer& offer);
    /// The tool goes on.
    void EndWait();

    /// Shows one kind of view, or the surface in space.
    void ShowView(MapView view);
    void ShowSurface();
    void UseTool(MapTool tool);

    MapCanvas& Canvas() { return *canvas_; }
    DigitisedPoints& Points() { return points_; }
    bool HasUnsavedPoints() const { return !points_.IsSaved(); }

    /// Writes the points into the file that the panel names; asks before it takes the place of a file that nobody
    /// proposed. A failure is told in a box, and the points stay.
    void SavePoints();

protected:
    bool MayClose() override;
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dropEvent(QDropEvent* event) override;

private:
    void MakeToolBar();
    void MakeMenus();
    void MakeStatusBar();
    QWidget* MakePanel();
    QAction* AddView(const QString& text, class QMenu& menu, int icon, std::function<void()> act);

    void ApplyLook();
    void UpdateSurface(bool keepsView);
    void PointsMoved();
    void ListPoints();
    void Tell(const QString& sentence);
    QString HeightText(const PlanePoint& at) const;
    void ShowPlace(std::optional<PlanePoint> at);
    void ShowTitle();

    void AskForGrid();
    void AskForPoints();
    void AskForPicture();
    void OpenOrTell(const QString& path);
    void OpenPoints(const QString& path);
    void SavePicture(const QString& path);
    std::string TargetPath() const;
    bool WritePoints(const std::string& path);
    /// Runs `then` once no points would be lost by it: at once, or when the person has saved or given them up.
    void WhenPointsAreSafe(const std::function<void()>& then);

    FileTable& files_;
    DigitisedPoints points_;
    std::shared_ptr<const Grid> grid_;
    HeightRange range_;
    std::string gridPath_;
    std::string proposed_;  ///< file that may be written without a question
    MapView view_ = MapView::Relief;
    bool surface_ = false;
    bool surfaceIsOld_ = true;
    bool surfaceWasShown_ = false;
    double surfaceFactor_ = 1;
    bool closing_ = false;

    MapCanvas* canvas_;
    VrmlWidget* space_;
    QStackedWidget* pages_;
    MapLookPanel* lookPanel_;
    MapPointsPanel* pointsPanel_;
    QActionGroup* views_;
    QActionGroup* tools_;
    QAction* undo_;
    QAction* redo_;
    QAction* delete_;
    QAction* nextArea_;
    QAction* save_;
    QLabel* place_;
    QLabel* gridNote_;
    QPointer<QMessageBox> question_;
};

}  // namespace crownlab
