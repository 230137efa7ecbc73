#pragma once

#include <functional>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include "desktop/side_window.h"

class QAction;
class QLabel;
class QTabWidget;
class QToolBar;

namespace crownlab {

class DesktopDesk;
class EngineSession;
class MapEngine;
class PlotView;
struct PlotDocument;

/// The window of the map engine's plot documents: a tab for each, with zooming, saving and printing. It comes up, and
/// back after it was closed, when something is plotted or a session shows itself, without taking the keyboard from
/// the tool. Closing it only hides it: the documents are the session's.
class PlotWindow : public SideWindow {
public:
    PlotWindow();

    /// Shows what changed in the session since the last call. Cheap if nothing did.
    void Follow(const EngineSession& session);

    /// The document in front, nullptr if there is none.
    std::shared_ptr<const PlotDocument> Document() const;
    PlotView* View() const;
    /// Saves a document; says in a box why it can't.
    void SaveTo(const std::shared_ptr<const PlotDocument>& document, const QString& path);
    /// The dialogs for the document in front.
    void SaveAs();
    void Print();

    /// Opens a map of a grid that the person chooses. Without it there is no button for that.
    void SetOpenMap(std::function<void()> open);

private:
    void AddActions();
    QAction* AddAction(const QString& name, const QString& text, const QString& tip, std::function<void()> act);
    void TakeDocuments(const std::vector<std::shared_ptr<const PlotDocument>>& documents);
    bool TakePlotted();
    void ShowQuietly();
    PlotView* ViewAt(int tab) const;
    void ShowState();
    void Say(const QString& sentence);

    QTabWidget* tabs_;
    QLabel* size_;
    QToolBar* bar_;
    /// What was seen of the session when it was last followed.
    const EngineSession* session_ = nullptr;
    bool visible_ = false;
    std::map<const PlotDocument*, std::size_t> shapes_;
};

/// Makes the window that shows the plots of the engine's session as long as the desk runs, whose it is.
PlotWindow& ShowPlots(DesktopDesk& desk, MapEngine& engine);

}  // namespace crownlab
