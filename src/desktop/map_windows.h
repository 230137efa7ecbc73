#pragma once

#include <QPointer>
#include <functional>
#include <string>
#include <vector>

#include "basis/result_file.h"
#include "desktop/map_window.h"

namespace crownlab {

/// The map windows that are open.
class MapWindows {
public:
    /// `adopt` is told of each new window, before it is shown.
    explicit MapWindows(std::function<void(SideWindow&)> adopt) : adopt_(std::move(adopt)) {}

    /// The map of a grid, read anew: in the window that shows it already, else in a new one. For "" an empty window, in
    /// which a grid can be opened or dropped. nullptr where the grid can't be read; a box over `asker` says why.
    MapWindow* Open(const std::string& grid, QWidget* asker);

    /// The map on which a waiting tool wants points to be digitised: ready for it, its file name proposed. A window
    /// without unsaved points is taken over; else there is a new one. Points that were saved for the same grid and file
    /// before are still shown.
    MapWindow* OpenForPoints(const DigitiseOffer& offer, QWidget* asker);
    /// The tool that waited goes on.
    void EndWait();

private:
    MapWindow* Find(const std::function<bool(const MapWindow&)>& fits) const;
    MapWindow* MakeWindow();

    std::function<void(SideWindow&)> adopt_;
    FileTable files_;
    std::vector<QPointer<MapWindow>> windows_;
    QPointer<MapWindow> forPoints_;  ///< the last one that a tool asked for
    DigitiseOffer lastOffer_;
};

}  // namespace crownlab
