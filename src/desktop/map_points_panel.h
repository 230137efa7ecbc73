#pragma once

#include <QWidget>
#include <functional>
#include <optional>

#include "desktop/digitised_points.h"

class QLabel;
class QLineEdit;
class QPushButton;
class QTableWidget;

namespace crownlab {

/// The list of the points that are digitised on a map, with what is done to them beside the mouse.
class MapPointsPanel : public QWidget {
public:
    explicit MapPointsPanel(QWidget* parent = nullptr);

    /// Lists the points; `heightOf` gives the text of the height under one, `decimals` those of x and y.
    void Show(const DigitisedPoints& points, std::optional<PointPlace> selected,
              const std::function<QString(const PlanePoint&)>& heightOf, int decimals);
    /// Where Save writes: the folder, and the name that a person may change.
    void SetTarget(const QString& folder, const QString& name);
    QString Folder() const { return folderPath_; }
    QString FileName() const;
    /// What a tool waits for, empty for nothing.
    void SetNotice(const QString& text);

    std::function<void()> OnNextArea;
    std::function<void()> OnDelete;
    std::function<void()> OnUndo;
    std::function<void()> OnSave;
    std::function<void(std::optional<PointPlace>)> OnSelect;

private:
    void TellSelection();

    QLabel* notice_;
    QTableWidget* table_;
    QLabel* empty_;
    QPushButton* nextArea_;
    QPushButton* delete_;
    QPushButton* undo_;
    QLabel* folder_;
    QString folderPath_;
    QLineEdit* name_;
    QPushButton* save_;
    std::vector<PointPlace> rows_;
    bool filling_ = false;
};

}  // namespace crownlab
