#include "desktop/plot_window.h"

#include <gmock/gmock.h>

#include <QAction>
#include <QApplication>
#include <QDialog>
#include <QFileDialog>
#include <QLabel>
#include <QLineEdit>
#include <QStatusBar>
#include <QTabWidget>
#include <QTest>
#include <algorithm>
#include <filesystem>

#include "crown_grid.h"
#include "desktop/plot_view.h"
#include "desktop_session.h"
#include "forms/acts.h"
#include "mapengine/grid_file.h"
#include "plot_samples.h"
#include "surfer/plot_driver.h"

namespace crownlab {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

/// The desktop with its plot window, as the program puts them together.
struct PlotSession : DesktopSession {
    explicit PlotSession(const char* settings = "DIR\r\nSurferV8\r\n") : DesktopSession(settings) {
        Act([] {});
        Files = std::make_unique<FileTable>();
        WriteGrid(*Files, Folder / "crown.grd", CrownGrid(61, 46), GridFormat::Binary64);
    }

    void Act(const std::function<void()>& act) { Desk.Act("test.Test_Click", act); }
    /// A tool plots the grid.
    void Plot(int type = kPlotRelief, int slot = 1) {
        Act([this, type, slot] {
            const LateBound program = AttachSurfer(*App.Shell().Surfer, App.Windows());
            PlotSurfer(*App.Shell().Surfer, App.Windows(), program,
                       {.GridPath = Folder / "crown.grd",
                        .BaseName = "crown",
                        .NameAddition = {},
                        .Type = type,
                        .Slot = slot,
                        .Label = true});
        });
    }
    LateBound Attached() { return Objects.Attach("Surfer.Application"); }
    QAction& Action(const char* name) { return *Plots.findChild<QAction*>(name); }
    std::vector<std::string> Tabs() const {
        std::vector<std::string> names;
        const auto& tabs = *Plots.findChild<QTabWidget*>();
        names.reserve(static_cast<std::size_t>(tabs.count()));
        for (int i = 0; i < tabs.count(); ++i) names.push_back(tabs.tabText(i).toStdString());
        return names;
    }

    PlotWindow& Plots = ShowPlots(Desk, Engine);
    std::unique_ptr<FileTable> Files;
};

TEST(PlotWindow, ComesUpWhenAPersonStartsTheProgram) {
    PlotSession session;
    EXPECT_FALSE(session.Plots.isVisible());
    session.Choose("mnuStartSurfer");
    EXPECT_TRUE(session.Plots.isVisible());
    EXPECT_EQ(session.Plots.windowTitle(), "Surfer - [Plot1]");
    EXPECT_THAT(session.Tabs(), ElementsAre("Plot1"));
    EXPECT_TRUE(session.Plots.testAttribute(Qt::WA_ShowWithoutActivating)) << "the keyboard stays with the tool";
}

TEST(PlotWindow, ComesUpUnderVersionSixToo) {
    PlotSession session("DIR\r\nSurferV6\r\n");
    session.Choose("mnuStartSurfer");
    EXPECT_TRUE(session.Plots.isVisible());
    EXPECT_TRUE(session.Plots.windowTitle().startsWith("Surfer - "));
    EXPECT_EQ(session.Plots.View(), nullptr) << "a session without a plot";
    EXPECT_FALSE(session.Action("actSaveAs").isEnabled());
}

TEST(PlotWindow, ComesUpWhenASessionShowsItself) {
    PlotSession session;
    session.Act([&] { session.Attached().Set("Visible", true); });
    EXPECT_TRUE(session.Plots.isVisible());
    session.Plots.close();
    session.Act([&] { session.Attached().Set("Visible", true); });
    EXPECT_FALSE(session.Plots.isVisible()) << "it was visible before: tools say so at each start";
}

TEST(PlotWindow, ComesUpAndBackWhenSomethingIsPlotted) {
    PlotSession session;
    session.Plot();
    EXPECT_TRUE(session.Plots.isVisible());
    EXPECT_EQ(session.Plots.Document()->Shapes.size(), 2U);
    session.Plots.close();
    EXPECT_FALSE(session.Plots.isVisible());
    EXPECT_FALSE(session.Ended.has_value());
    session.Act([] {});
    EXPECT_FALSE(session.Plots.isVisible());
    session.Plot(kPlotContour, 2);
    EXPECT_TRUE(session.Plots.isVisible());
    session.Plots.close();
    session.Choose("mnuStartSurfer");
    EXPECT_TRUE(session.Plots.isVisible());
}

TEST(PlotWindow, ShowsWhatToolsPlotWhileTheyRun) {
    PlotSession session;
    QStringList seen;
    session.Act([&] {
        const LateBound program = session.Attached();
        const LateBound shapes = program.Object("Documents").Object("Item", {{"Index", "Plot1"}}).Object("Shapes");
        for (int i = 0; i < 3; ++i) {
            shapes.CallForObject("AddReliefMap", {{"GridFilename", session.Folder / "crown.grd"}});
            QTest::qSleep(60);
            session.Desk.Redraw();
            const QRectF window(session.Plots.View()->viewport()->rect());
            seen.append(session.Plots.isVisible() && window.contains(session.Plots.View()->OnViewport(10, 14)) ? "map"
                                                                                                               : "-");
            // Tools move a map after it was added: the window has to show that too.
            shapes.CallForObject("AddText", {{"X", 100.0 * i}, {"Y", 5.0}, {"Text", "far"}});
        }
    });
    EXPECT_EQ(seen, QStringList({"map", "map", "map"}));
    const QRectF window(session.Plots.View()->viewport()->rect());
    EXPECT_TRUE(window.contains(session.Plots.View()->OnViewport(200, 5)));
}

TEST(PlotWindow, EveryDocumentOfTheSessionHasATab) {
    PlotSession session;
    session.Act([&] {
        session.Attached().Object("Documents").Call("Add", {1});
        session.Attached().Object("Documents").Call("Add", {1});
    });
    EXPECT_THAT(session.Tabs(), ElementsAre("Plot1", "Plot2", "Plot3"));
    EXPECT_EQ(session.Plots.windowTitle(), "Surfer - [Plot3]");
    session.Plots.findChild<QTabWidget*>()->setCurrentIndex(0);
    EXPECT_EQ(session.Plots.windowTitle(), "Surfer - [Plot1]");
    session.Plot();
    EXPECT_EQ(session.Plots.windowTitle(), "Surfer - [Plot3]") << "where the map went";
}

TEST(PlotWindow, DocumentsMayVanish) {
    PlotSession session;
    session.Plot();
    const std::shared_ptr<const PlotDocument> old = session.Plots.Document();
    EXPECT_FALSE(Settled(*session.Plots.View()).isNull());
    session.Act([&] { session.Objects.Create("Surfer.Application"); });
    EXPECT_THAT(session.Tabs(), IsEmpty()) << "another session is the one that attaching finds";
    EXPECT_EQ(session.Plots.Document(), nullptr);
    EXPECT_EQ(session.Plots.windowTitle(), "Surfer - [no plot]");
    session.Action("actFit").trigger();
    session.Plots.SaveAs();
    session.Plots.Print();
    QTest::qWait(20);
    EXPECT_TRUE(session.Plots.findChildren<PlotView*>().isEmpty());
    session.Act([&] {
        session.Attached().Object("Documents").Call("Add", {1});
        session.Attached().Object("ActiveDocument").Call("Close");
    });
    EXPECT_THAT(session.Tabs(), IsEmpty());
}

TEST(PlotWindow, AViewMayGoWhileItIsUsed) {
    PlotSession session;
    session.Plot();
    // A press in the window whose act takes its document away.
    QObject::connect(&session.Action("actZoomIn"), &QAction::triggered, &session.Plots,
                     [&] { session.Act([&] { session.Objects.Create("Surfer.Application"); }); });
    session.Action("actZoomIn").trigger();
    QTest::qWait(20);
    EXPECT_EQ(session.Plots.View(), nullptr);
}

TEST(PlotWindow, TheProgramRunsAsLongAsItIsOpen) {
    PlotSession session;
    session.Plot();
    session.Window("frmStartup").close();
    QTest::qWait(20);
    EXPECT_FALSE(session.Ended.has_value());
    session.Plots.close();
    EXPECT_TRUE(QTest::qWaitFor([&] { return session.Ended == 0; }));
}

TEST(PlotWindow, StaysUsableWhileABoxWaits) {
    PlotSession session;
    session.Plot();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&session.Plots));
    double before = 0;
    double during = 0;
    const BoxAnswers answers([&](QMessageBox& box) {
        before = session.Plots.View()->Size();
        QTest::keyClick(session.Plots.View()->viewport(), Qt::Key_Plus);
        during = session.Plots.View()->Size();
        session.Plots.close();
        PressIn(box, QMessageBox::Ok);
    });
    Button answer = Button::Cancel;
    session.Act([&] { answer = session.Desk.Ask({.Text = "Digitise", .Title = "", .Buttons = {Button::Ok}}); });
    EXPECT_EQ(answers.Boxes.size(), 1U);
    EXPECT_EQ(answer, Button::Ok);
    EXPECT_NEAR(during, before * 1.25, 1e-9);
    EXPECT_FALSE(session.Plots.isVisible()) << "closed while the box waited, which didn't go with it";
}

TEST(PlotWindow, ButtonsZoom) {
    PlotSession session;
    session.Plot();
    PlotView& view = *session.Plots.View();
    const double fitted = view.Size();
    session.Action("actZoomIn").trigger();
    EXPECT_NEAR(view.Size(), 1.25 * fitted, 1e-9);
    session.Action("actZoomOut").trigger();
    EXPECT_NEAR(view.Size(), fitted, 1e-9);
    session.Action("actActualSize").trigger();
    EXPECT_NEAR(view.Size(), 1, 1e-9);
    const auto labels = session.Plots.statusBar()->findChildren<QLabel*>();
    EXPECT_TRUE(
        std::any_of(labels.begin(), labels.end(), [](const QLabel* label) { return label->text() == "100 %"; }));
    session.Action("actFit").trigger();
    EXPECT_NEAR(view.Size(), fitted, 1e-9);
}

/// The dialog of that kind that stands open over the window.
template <typename Dialog>
Dialog* OpenDialog(PlotWindow& window) {
    Dialog* found = nullptr;
    EXPECT_TRUE(QTest::qWaitFor([&] {
        for (Dialog* const dialog : window.findChildren<Dialog*>()) {
            if (dialog->isVisible()) found = dialog;
        }
        return found != nullptr;
    }));
    return found;
}

TEST(PlotWindow, SavesByItsDialog) {
    QApplication::setAttribute(Qt::AA_DontUseNativeDialogs);
    PlotSession session;
    session.Plot();
    session.Action("actSaveAs").trigger();
    auto* const dialog = OpenDialog<QFileDialog>(session.Plots);
    ASSERT_NE(dialog, nullptr);
    EXPECT_EQ(dialog->directory().absolutePath().toStdString(), session.Folder.Path()) << "where the grid lies";
    EXPECT_TRUE(dialog->selectedFiles().constFirst().endsWith("Plot1.pdf"));
    dialog->selectNameFilter("SVG (*.svg)");
    Q_EMIT dialog->filterSelected("SVG (*.svg)");
    EXPECT_TRUE(dialog->selectedFiles().constFirst().endsWith("Plot1.svg"));
    auto* const name = dialog->findChild<QLineEdit*>();
    name->selectAll();
    QTest::keyClicks(name, "sheet");
    QTest::keyClick(name, Qt::Key_Return);
    EXPECT_TRUE(FileBytes(session.Folder / "sheet.svg").starts_with("<?xml"));
    EXPECT_TRUE(session.Plots.statusBar()->currentMessage().contains("sheet.svg"));
}

TEST(PlotWindow, SaysWhyAPlotIsNotSaved) {
    PlotSession session;
    session.Plot();
    session.Plots.SaveTo(session.Plots.Document(), QString::fromStdString(session.Folder / "gone/sheet.pdf"));
    auto* const box = OpenDialog<QMessageBox>(session.Plots);
    ASSERT_NE(box, nullptr);
    EXPECT_TRUE(box->text().contains("wasn't saved")) << box->text().toStdString();
    EXPECT_TRUE(box->text().contains("gone")) << box->text().toStdString();
    EXPECT_EQ(session.Folder.EntryCount(), 2U) << "the settings and the grid";
    box->accept();
}

TEST(PlotWindow, OpensMapsOfGrids) {
    PlotSession session;
    session.Choose("mnuStartSurfer");
    session.Action("actOpenMap").trigger();
    const QWidgetList windows = QApplication::topLevelWidgets();
    const auto map = std::find_if(windows.begin(), windows.end(), [](const QWidget* window) {
        return dynamic_cast<const MapWindow*>(window) != nullptr && window->isVisible();
    });
    EXPECT_NE(map, windows.end());
}

/// Nine grids of the sample scan, by three methods in three sizes, and frmSurfFns with all of them in its list.
void GridTheScan(PlotSession& session) {
    std::filesystem::copy_file(CROWNLAB_SAMPLES "/scan.txt", session.Folder / "scan.txt");
    session.Act([&] {
        const LateBound program = session.Attached();
        int number = 0;
        for (const int nodes : {20, 60, 140}) {
            for (const int method : {1, 2, 9}) {
                program.Call("GridData", {{"DataFile", session.Folder / "scan.txt"},
                                          {"NumCols", nodes},
                                          {"NumRows", nodes + 5},
                                          {"Algorithm", method},
                                          {"ShowReport", false},
                                          {"OutGrid", session.Folder / ("g" + std::to_string(++number) + ".grd")}});
            }
        }
    });
    std::filesystem::remove(session.Folder / "crown.grd");
    session.Open("frmSurfFns");
}

void PlotBatch(PlotSession& session, const std::function<void()>& choose) {
    session.Act([&] {
        choose();
        SetText(session.Get<TextBox>("frmSurfFns", "txtNoInPlotRow"), "4");
        Press(session.Get<CommandButton>("frmSurfFns", "cmdAddAllFilenames"));
        Press(session.Get<CommandButton>("frmSurfFns", "cmdPlotGrid"));
    });
}

QImage ShownSheet(PlotSession& session, const char* name) {
    session.Plots.resize(1400, 950);
    EXPECT_TRUE(QTest::qWaitForWindowExposed(&session.Plots));
    QImage picture = Settled(*session.Plots.View());
    KeepPicture(session.Plots.grab().toImage(), name);
    return picture;
}

TEST(PlotWindow, ABatchOfNineGridsOnOneSheet) {
    PlotSession session;
    GridTheScan(session);
    PlotBatch(session, [] {});
    ASSERT_EQ(session.Plots.Document()->Shapes.size(), 18U) << "nine maps, nine labels";
    const QImage picture = ShownSheet(session, "plot-batch-relief");
    for (int slot = 1; slot <= 9; ++slot) {
        const int row = (slot - 1) / 4;
        const double x = 18.0 * (slot - 4 * row) + 10.19;
        const double y = 13.97 - 18.0 * row;
        const auto* map =
            std::get_if<PlotMap>(&session.Plots.Document()->Shapes[2 * static_cast<std::size_t>(slot) - 2]);
        ASSERT_NE(map, nullptr);
        EXPECT_NEAR(map->Left + map->XLength / 2, x, 1e-9);
        EXPECT_NEAR(map->Top - map->YLength / 2, y, 1e-9);
        const QColor middle = ColourOnPage(*session.Plots.View(), picture, x, y);
        EXPECT_GT(middle.red(), middle.blue()) << "ivory in the middle of map " << slot;
        EXPECT_EQ(ColourOnPage(*session.Plots.View(), picture, x - 8.7, y), QColor(Qt::white)) << "between maps";
    }
}

TEST(PlotWindow, ABatchOfSurfacesWithScaleBars) {
    PlotSession session;
    GridTheScan(session);
    PlotBatch(session, [&] {
        SelectOption(session.Get<OptionButton>("frmSurfFns", "opt3DSurface"));
        SetChecked(session.Get<CheckBox>("frmSurfFns", "chkScaleBar"), true);
        SetText(session.Get<TextBox>("frmSurfFns", "txtScaleBar"), "0.5");
        SetChecked(session.Get<CheckBox>("frmSurfFns", "chkShowAxes"), false);
    });
    ASSERT_EQ(session.Plots.Document()->Shapes.size(), 18U);
    const QImage picture = ShownSheet(session, "plot-batch-surfaces");
    for (int slot = 1; slot <= 9; ++slot) {
        const int row = (slot - 1) / 4;
        EXPECT_NE(ColourOnPage(*session.Plots.View(), picture, 18.0 * (slot - 4 * row) + 10.19, 13.97 - 18.0 * row),
                  QColor(Qt::white))
            << slot;
    }
}

TEST(PlotWindow, Screenshot) {
    PlotSession session;
    for (const int type : {kPlotRelief, kPlotContour, kPlotImage, kPlotSurface}) session.Plot(type, type);
    session.Plots.resize(1100, 500);
    EXPECT_FALSE(Settled(*session.Plots.View()).isNull());
    KeepPicture(session.Plots.grab().toImage(), "plot-window");
}

}  // namespace
}  // namespace crownlab
