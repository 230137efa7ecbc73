#include "desktop/map_windows.h"

#include <QMessageBox>

namespace crownlab {
namespace {

void BringUp(MapWindow& window) {
    if (window.isMinimized()) {
        window.showNormal();
    } else {
        window.show();
    }
    window.raise();
    window.activateWindow();
}

void TellOver(QWidget* asker, const QString& sentence) {
    auto* const box = new QMessageBox(QMessageBox::Warning, "Map", sentence, QMessageBox::Ok, asker);
    box->setTextFormat(Qt::PlainText);
    box->setAttribute(Qt::WA_DeleteOnClose);
    box->open();
}

}  // namespace

MapWindow* MapWindows::Find(const std::function<bool(const MapWindow&)>& fits) const {
    for (const QPointer<MapWindow>& window : windows_) {
        if (window != nullptr && window->isVisible() && fits(*window)) return window;
    }
    return nullptr;
}

MapWindow* MapWindows::MakeWindow() {
    auto* const window = new MapWindow(files_);
    std::erase_if(windows_, [](const QPointer<MapWindow>& known) { return known == nullptr; });
    windows_.emplace_back(window);
    adopt_(*window);
    return window;
}

MapWindow* MapWindows::Open(const std::string& grid, QWidget* asker) {
    MapWindow* window = nullptr;
    if (!grid.empty()) {
        window = Find([&grid](const MapWindow& open) { return open.GridPath() == grid && !open.HasUnsavedPoints(); });
    }
    const bool isNew = window == nullptr;
    if (isNew) window = MakeWindow();
    const QString problem = grid.empty() ? QString() : window->OpenGrid(grid);
    if (!problem.isEmpty()) {
        if (isNew) delete window;
        TellOver(asker, problem);
        return nullptr;
    }
    BringUp(*window);
    return window;
}

MapWindow* MapWindows::OpenForPoints(const DigitiseOffer& offer, QWidget* asker) {
    const bool sameAsLast = forPoints_ != nullptr && forPoints_->isVisible() && forPoints_->GridPath() == offer.Grid &&
                            lastOffer_.PointFile == offer.PointFile && lastOffer_.Grid == offer.Grid;
    if (!sameAsLast) {
        const bool free = forPoints_ != nullptr && forPoints_->isVisible() && !forPoints_->HasUnsavedPoints();
        if (free) {
            const QString problem = forPoints_->OpenGrid(offer.Grid);
            if (!problem.isEmpty()) {
                TellOver(asker, problem);
                return nullptr;
            }
        } else {
            MapWindow* const opened = Open(offer.Grid, asker);
            if (opened == nullptr) return nullptr;
            forPoints_ = opened;
        }
    }
    lastOffer_ = offer;
    forPoints_->StartWait(offer);
    BringUp(*forPoints_);
    return forPoints_;
}

void MapWindows::EndWait() {
    if (forPoints_ != nullptr) forPoints_->EndWait();
}

}  // namespace crownlab
