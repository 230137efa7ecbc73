#include "desktop/plot_window.h"

#include <QAction>
#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QLabel>
#include <QMessageBox>
#include <QPointer>
#include <QPrintDialog>
#include <QPrinter>
#include <QScreen>
#include <QStatusBar>
#include <QTabWidget>
#include <QToolBar>
#include <algorithm>
#include <cmath>
#include <utility>

#include "basis/failure.h"
#include "desktop/desktop_desk.h"
#include "desktop/plot_export.h"
#include "desktop/plot_view.h"
#include "desktop/shown_text.h"
#include "mapengine/engine_session.h"
#include "mapengine/map_engine.h"

namespace crownlab {
namespace {

constexpr double kZoomStep = 1.25;
constexpr QSize kFirstSize(1000, 760);

/// "pdf" of the filter "PDF (*.pdf)".
QString EndingOf(const QString& filter) { return filter.section('.', -1).chopped(1); }

bool IsPlotEnding(const QString& ending) { return QStringList{"pdf", "svg", "png"}.contains(ending.toLower()); }

/// The folder of the first map, where its files are at home.
QString FolderOf(const PlotDocument& document) {
    for (const PlotShape& shape : document.Shapes) {
        if (const auto* map = std::get_if<PlotMap>(&shape)) {
            return QFileInfo(ShownText(map->GridFilename)).absolutePath();
        }
    }
    return QDir::currentPath();
}

}  // namespace

PlotWindow::PlotWindow() : tabs_(new QTabWidget), size_(new QLabel) {
    // Closed it comes back with the next map.
    setAttribute(Qt::WA_DeleteOnClose, false);
    tabs_->setDocumentMode(true);
    tabs_->setTabBarAutoHide(true);
    setCentralWidget(tabs_);
    bar_ = addToolBar(QStringLiteral("Plot"));
    bar_->setMovable(false);
    bar_->setToolButtonStyle(Qt::ToolButtonTextOnly);
    AddActions();
    statusBar()->addPermanentWidget(size_);
    // A tool goes on when it has plotted; what the person types belongs to its window.
    setAttribute(Qt::WA_ShowWithoutActivating);
    resize(kFirstSize.boundedTo(screen()->availableSize()));
    QObject::connect(tabs_, &QTabWidget::currentChanged, this, [this] { ShowState(); });
    ShowState();
}

QAction* PlotWindow::AddAction(const QString& name, const QString& text, const QString& tip,
                               std::function<void()> act) {
    QAction* const action = bar_->addAction(text);
    action->setObjectName(name);
    // Qt takes the dots off a button.
    action->setIconText(QString(text).remove('&'));
    action->setToolTip(tip);
    QObject::connect(action, &QAction::triggered, this, std::move(act));
    return action;
}

void PlotWindow::AddActions() {
    const auto onView = [this](void (*act)(PlotView&)) {
        return [this, act] {
            if (PlotView* const view = View()) act(*view);
        };
    };
    AddAction("actSaveAs", "&Save as...", "Save the plot as PDF, SVG or PNG", [this] {
        SaveAs();
    })->setShortcut(QKeySequence::Save);
    AddAction("actPrint", "&Print...", "Print the plot on one page", [this] {
        Print();
    })->setShortcut(QKeySequence::Print);
    bar_->addSeparator();
    AddAction("actZoomIn", "Zoom &in", "Larger (wheel, Ctrl++)", onView([](PlotView& view) { view.Zoom(kZoomStep); }))
        ->setShortcut(QKeySequence::ZoomIn);
    AddAction("actZoomOut", "Zoom &out", "Smaller (wheel, Ctrl+-)",
              onView([](PlotView& view) { view.Zoom(1 / kZoomStep); }))
        ->setShortcut(QKeySequence::ZoomOut);
    AddAction("actActualSize", "&100 %", "A centimetre of the page is one on the screen (Ctrl+1)",
              onView([](PlotView& view) { view.ShowActualSize(); }))
        ->setShortcut(QKeySequence(Qt::CTRL | Qt::Key_1));
    AddAction("actFit", "&Fit", "All of the plot (Ctrl+0)", onView([](PlotView& view) { view.Fit(); }))
        ->setShortcut(QKeySequence(Qt::CTRL | Qt::Key_0));
}

void PlotWindow::SetOpenMap(std::function<void()> open) {
    QAction* const first = bar_->actions().constFirst();
    QAction* const action =
        AddAction("actOpenMap", "Open &map...", "Show a grid in a map window of its own", std::move(open));
    bar_->insertAction(first, action);
    action->setShortcut(QKeySequence::Open);
}

PlotView* PlotWindow::ViewAt(int tab) const { return static_cast<PlotView*>(tabs_->widget(tab)); }

PlotView* PlotWindow::View() const { return static_cast<PlotView*>(tabs_->currentWidget()); }

std::shared_ptr<const PlotDocument> PlotWindow::Document() const {
    const PlotView* const view = View();
    return view == nullptr ? nullptr : view->Document();
}

void PlotWindow::Follow(const EngineSession& session) {
    const bool another = session_ != &session;
    const bool created = another && session_ != nullptr;
    if (another) visible_ = false;
    const bool appears = session.Visible && !visible_;
    session_ = &session;
    visible_ = session.Visible;
    TakeDocuments(session.Plots());
    if (TakePlotted() || created || appears) ShowQuietly();
    if (!isVisible()) return;
    if (created) raise();
    for (int i = 0; i < tabs_->count(); ++i) ViewAt(i)->Follow();
}

void PlotWindow::TakeDocuments(const std::vector<std::shared_ptr<const PlotDocument>>& documents) {
    for (int i = tabs_->count() - 1; i >= 0; --i) {
        PlotView* const view = ViewAt(i);
        if (std::find(documents.begin(), documents.end(), view->Document()) != documents.end()) continue;
        shapes_.erase(view->Document().get());
        tabs_->removeTab(i);
        // It may be painting, or the source of the event that is served just now.
        view->hide();
        view->deleteLater();
    }
    for (const std::shared_ptr<const PlotDocument>& document : documents) {
        if (!shapes_.try_emplace(document.get(), 0).second) continue;
        auto* const view = new PlotView(document);
        view->OnSize = [this] { ShowState(); };
        tabs_->setCurrentIndex(tabs_->addTab(view, ShownText(document->Name)));
    }
    ShowState();
}

bool PlotWindow::TakePlotted() {
    bool plotted = false;
    for (int i = 0; i < tabs_->count(); ++i) {
        const PlotDocument& document = *ViewAt(i)->Document();
        std::size_t& seen = shapes_[&document];
        if (document.Shapes.size() > seen) {
            plotted = true;
            tabs_->setCurrentIndex(i);
        }
        seen = document.Shapes.size();
    }
    return plotted;
}

void PlotWindow::ShowQuietly() {
    if (!isVisible()) show();
}

void PlotWindow::ShowState() {
    const PlotView* const view = View();
    const QString title = QStringLiteral("Surfer - [%1]")
                              .arg(view == nullptr ? QStringLiteral("no plot") : ShownText(view->Document()->Name));
    if (windowTitle() != title) setWindowTitle(title);
    const QString size = view == nullptr ? QString() : QStringLiteral("%1 %").arg(std::lround(view->Size() * 100));
    if (size_->text() != size) size_->setText(size);
    for (QAction* const action : bar_->actions()) {
        if (action->objectName() != "actOpenMap") action->setEnabled(view != nullptr);
    }
}

void PlotWindow::SaveTo(const std::shared_ptr<const PlotDocument>& document, const QString& path) {
    try {
        SavePlot(*document, RecordText(path));
        statusBar()->showMessage(QStringLiteral("Saved as %1").arg(QDir::toNativeSeparators(path)));
    } catch (const Failure& failure) {
        Say(QStringLiteral("The plot wasn't saved.\n%1: %2")
                .arg(ShownText(FailureName(failure.Kind())), ShownText(failure.Object())));
    } catch (const std::bad_alloc&) {
        Say(QStringLiteral("The plot wasn't saved: there isn't enough memory."));
    }
}

void PlotWindow::SaveAs() {
    const std::shared_ptr<const PlotDocument> document = Document();
    if (!document) return;
    // Not exec(): a tool may be running, and goes on.
    auto* const dialog = new QFileDialog(this, QStringLiteral("Save the plot"), FolderOf(*document));
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    dialog->setAcceptMode(QFileDialog::AcceptSave);
    dialog->setNameFilters({"PDF (*.pdf)", "SVG (*.svg)", "PNG (*.png)"});
    dialog->setDefaultSuffix("pdf");
    QObject::connect(dialog, &QFileDialog::filterSelected, dialog, [dialog](const QString& filter) {
        dialog->setDefaultSuffix(EndingOf(filter));
        const QStringList named = dialog->selectedFiles();
        if (named.isEmpty()) return;
        const QFileInfo file(named.constFirst());
        if (IsPlotEnding(file.suffix())) dialog->selectFile(file.completeBaseName() + "." + EndingOf(filter));
    });
    dialog->selectFile(ShownText(document->Name) + ".pdf");
    QObject::connect(dialog, &QFileDialog::fileSelected, this, [this, dialog, document](const QString& path) {
        const bool told = IsPlotEnding(QFileInfo(path).suffix());
        SaveTo(document, told ? path : path + "." + EndingOf(dialog->selectedNameFilter()));
    });
    dialog->open();
}

void PlotWindow::Print() {
    const std::shared_ptr<const PlotDocument> document = Document();
    if (!document) return;
    const auto printer = std::make_shared<QPrinter>(QPrinter::HighResolution);
    const QSizeF size = SavedSize(*document);
    printer->setDocName(ShownText(document->Name));
    printer->setPageOrientation(size.width() > size.height() ? QPageLayout::Landscape : QPageLayout::Portrait);
    auto* const dialog = new QPrintDialog(printer.get(), this);
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    dialog->setOptions(QPrintDialog::PrintToFile);
    QObject::connect(dialog, &QDialog::accepted, this, [this, printer, document] {
        if (!PrintPlot(*document, *printer)) Say(QStringLiteral("The plot wasn't printed: the printer can't be had."));
    });
    // It reads the printer until it is gone.
    QObject::connect(dialog, &QObject::destroyed, this, [printer] {});
    dialog->open();
}

void PlotWindow::Say(const QString& sentence) {
    auto* const box =
        new QMessageBox(QMessageBox::Warning, QStringLiteral("Crownlab"), sentence, QMessageBox::Ok, this);
    box->setAttribute(Qt::WA_DeleteOnClose);
    box->setTextFormat(Qt::PlainText);
    box->open();
}

PlotWindow& ShowPlots(DesktopDesk& desk, MapEngine& engine) {
    auto* const window = new PlotWindow;
    desk.Adopt(*window);
    desk.SetFollower([guarded = QPointer<PlotWindow>(window), &engine] {
        if (guarded != nullptr) guarded->Follow(engine.Session());
    });
    window->SetOpenMap([window, &desk] { desk.Maps().Open("", window); });
    return *window;
}

}  // namespace crownlab
