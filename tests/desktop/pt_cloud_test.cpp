// The window of point clouds as a person has it before him: how it opens, grows, and shows a long run.
#include <gmock/gmock.h>

#include <QApplication>
#include <QElapsedTimer>
#include <QGroupBox>
#include <QLineEdit>
#include <QListWidget>
#include <QProgressBar>
#include <QTabWidget>
#include <algorithm>
#include <array>
#include <cmath>
#include <set>

#include "basis/number_text.h"
#include "desktop_session.h"
#include "forms/acts.h"

namespace crownlab {
namespace {

using ::testing::IsEmpty;

constexpr const char* kForm = "frmPtCloud";
/// How often a run may redraw its window.
constexpr qint64 kRedrawPause = 40;  // milliseconds

/// A waved surface of `columns` by `rows` points, 0.01 apart.
std::string WavedCloud(int columns, int rows) {
    constexpr double spacing = 0.01;
    std::string text;
    for (int row = 0; row < rows; ++row) {
        for (int column = 0; column < columns; ++column) {
            const double x = spacing * column;
            const double y = spacing * row;
            const double z = std::round(1e4 * std::sin(3 * x) * std::cos(2 * y)) / 1e4;
            text += GeneralText(x) + "," + GeneralText(y) + "," + GeneralText(z) + "\r\n";
        }
    }
    return text;
}

/// What a person sees of a widget: how often it was painted, shown and hidden, and `look` at each paint.
template <typename Widget, typename Value>
class Watch : public QObject {
public:
    using Look = Value (*)(const Widget&);

    Watch(Widget& widget, Look look) : widget_(widget), look_(look) { widget.installEventFilter(this); }

    bool eventFilter(QObject*, QEvent* event) override {
        if (event->type() == QEvent::Show) ++Shows;
        if (event->type() == QEvent::Hide) ++Hides;
        if (event->type() == QEvent::Paint) Painted.push_back(look_(widget_));
        return false;
    }

    int Shows = 0;
    int Hides = 0;
    std::vector<Value> Painted;

private:
    Widget& widget_;
    Look look_;
};

int BarValue(const QProgressBar& bar) { return bar.value(); }
bool Painting(const QWidget&) { return true; }
int CountShown(const QLineEdit& box) { return box.text().toInt(); }

/// The session with the window open and one waved cloud in its batch.
class PtCloud : public ::testing::Test {
protected:
    void OpenWith(int columns, int rows) {
        PutFile(Session.Folder / "waves.txt", WavedCloud(columns, rows));
        Session.Open(kForm);
        Session.Desk.Act("test", [this] { SelectEntry(Session.Get<FileList>(kForm, "File2"), "waves.txt"); });
        Session.Click(kForm, "cmdAddFilename");
        ASSERT_EQ(Find<QLineEdit>("txtNoFiles").text(), "1");
        QTest::qWait(50);
    }
    template <typename Widget>
    Widget& Find(const char* name) {
        return Session.Find<Widget>(kForm, name);
    }

    DesktopSession Session;
};

TEST_F(PtCloud, IsOpenedByItsMenuItem) {
    Session.Choose("mnuPtCloud");
    ASSERT_TRUE(Session.IsOpen(kForm));
    EXPECT_EQ(Session.Window(kForm).windowTitle(), "Point Clouds");
    EXPECT_TRUE(Find<QProgressBar>("pbarPtsPrcd").isHidden());
    Session.Click(kForm, "cmdExit");
    EXPECT_FALSE(Session.IsOpen(kForm));
}

TEST_F(PtCloud, FitsASmallScreenAndGivesItsListsTheRoomOfALargeOne) {
    FormWindow& window = Session.Open(kForm);
    constexpr QSize screen(1280, 800);
    constexpr QSize frames(20, 60);  // of the window manager, and a panel
    const QSize room = screen - frames;
    EXPECT_TRUE(window.size().boundedTo(room) == window.size()) << window.width() << " x " << window.height();
    window.resize(room);
    QTest::qWait(20);
    const QSize folders = Find<QWidget>("Dir2").size();
    const QSize files = Find<QWidget>("File2").size();
    window.resize(room + QSize(300, 300));
    QTest::qWait(20);
    for (const auto& [list, before] : {std::pair{"Dir2", folders}, std::pair{"File2", files}}) {
        EXPECT_EQ(Find<QWidget>(list).height(), before.height() + 300) << list;
        EXPECT_GE(Find<QWidget>(list).width(), before.width() + 50) << list;
    }
}

TEST_F(PtCloud, TheTabKeyGoesThroughTheWindowAsItIsRead) {
    FormWindow& window = Session.Open(kForm);
    Session.Click(kForm, "chkDefaultSet");
    Find<QWidget>("Drive2").setFocus();
    QStringList order;
    for (QString name = "Drive2"; !order.contains(name); name = QApplication::focusWidget()->objectName()) {
        order << name;
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
    }
    const QString wanted =
        "Drive2 Dir2 cmbFileType File2 DirC Text2 cmdAddFilename cmdClearFilenames txtNoFiles "
        "qt_tabwidget_tabbar chkMould txtSearchRadius chkDefaultSet chkWriteRej txtBinSize txtSearchRadiusInc "
        "chkFindNeigh optThresh txtThresh txtProp cmdRemoveUndercuts txtBlnBinSize chkBlankedAreaPts "
        "cmdCreateBlankingFile txtNoPts txtNoPtsPrcd cmdExit";
    EXPECT_EQ(order.join(" "), wanted);
    EXPECT_TRUE(window.isActiveWindow());
}

TEST_F(PtCloud, AdvancedSettingsAreGreyWithTheDefaultOnes) {
    Session.Open(kForm);
    const std::array<const char*, 4> inside{"txtBinSize", "chkFindNeigh", "optThresh", "txtProp"};
    for (const char* const name : inside) EXPECT_FALSE(Find<QWidget>(name).isEnabled()) << name;
    Session.Click(kForm, "chkDefaultSet");
    EXPECT_TRUE(Find<QGroupBox>("Frame8").isEnabled());
    for (const char* const name : inside) EXPECT_TRUE(Find<QWidget>(name).isEnabled()) << name;
    Session.Click(kForm, "chkDefaultSet");
    for (const char* const name : inside) EXPECT_FALSE(Find<QWidget>(name).isEnabled()) << name;
}

TEST_F(PtCloud, AnAreaIsDigitisedWhileItsBoxWaits) {
    OpenWith(3, 3);
    PutFile(Session.Folder / "waves.grd", "DSAA\n4 3\n0 3\n0 2\n1 1\n1 1 1 1\n1 1 1 1\n1 1 1 1\n");
    Find<QTabWidget>("layoutTabs").setCurrentIndex(3);
    Session.Click(kForm, "optBlankInside");
    BoxAnswers boxes([this](QMessageBox& box) {
        PutFile(Session.Folder / "digit.dat", "0.5,0.5\n2.5,0.5\n2.5,1.5\n");
        PressIn(box, QMessageBox::Ok);
    });
    Session.Click(kForm, "cmdBlank");
    ASSERT_EQ(boxes.Boxes.size(), 1u);
    EXPECT_EQ(boxes.Boxes[0].Title, "Digitise map");
    EXPECT_EQ(
        FileBytes(Session.Folder / "wavesblnpts.bln"),
        " 4            1\r\n .5            .5 \r\n 2.5           .5 \r\n 2.5           1.5 \r\n .5            .5 \r\n");
    EXPECT_FALSE(FileBytes(Session.Folder / "wavesb.grd").empty());
    EXPECT_EQ(Find<QLineEdit>("txtNoFiles").text(), "0");
}

TEST_F(PtCloud, ExtractingWithoutAWishShowsNoBox) {
    OpenWith(3, 3);
    Find<QTabWidget>("layoutTabs").setCurrentIndex(3);
    BoxAnswers boxes([](QMessageBox& box) { PressIn(box, QMessageBox::Ok); });
    const std::size_t entries = Session.Folder.EntryCount();
    Session.Click(kForm, "cmdExtract");
    QTest::qWait(20);
    EXPECT_THAT(boxes.Boxes, IsEmpty());
    EXPECT_EQ(Session.Folder.EntryCount(), entries);
    EXPECT_EQ(Find<QLineEdit>("txtNoFiles").text(), "1");
}

TEST_F(PtCloud, AWaitPointerThatAToolLeavesEndsWithItsHandler) {
    Session.Open(kForm);
    Find<QTabWidget>("layoutTabs").setCurrentIndex(2);
    Session.Click(kForm, "cmdJoinFiles");
    EXPECT_EQ(Session.App.Windows().Find(kForm)->MousePointer, kPointerHourglass);
    EXPECT_EQ(QApplication::overrideCursor(), nullptr);
}

/// A run over 300,000 points that looks at thousands of points for each: long enough to be watched.
class PtCloudRun : public PtCloud {
protected:
    void Run() {
        OpenWith(600, 500);
        Session.Click(kForm, "chkDefaultSet");
        Session.Type(kForm, "txtSearchRadius", "0.15");
        Session.Type(kForm, "txtBinSize", "0.2");
        QElapsedTimer time;
        Watch bar(Find<QProgressBar>("pbarPtsPrcd"), BarValue);
        Watch count(Find<QLineEdit>("txtNoPtsPrcd"), CountShown);
        Watch list(*Find<QListWidget>("File2").viewport(), Painting);
        time.start();
        Session.Click(kForm, "cmdRemoveUndercuts");
        Time = time.elapsed();
        Bar = bar.Painted;
        BarShows = bar.Shows;
        BarHides = bar.Hides;
        Count = count.Painted;
        ListPaints = list.Painted.size();
    }

    qint64 Time = 0;  ///< of the whole run, in milliseconds
    std::vector<int> Bar;
    std::vector<int> Count;
    int BarShows = 0;
    int BarHides = 0;
    std::size_t ListPaints = 0;
};

TEST_F(PtCloudRun, ShowsItsProgressWhileItLasts) {
    Run();
    const std::set<int> steps(Bar.begin(), Bar.end());
    EXPECT_GE(std::count_if(steps.begin(), steps.end(), [](int v) { return v > 0 && v < 1000; }), 3) << Time << " ms";
    EXPECT_TRUE(std::is_sorted(Bar.begin(), Bar.end())) << "never runs back";
    std::set<int> counts(Count.begin(), Count.end());
    EXPECT_GE(std::count_if(counts.begin(), counts.end(), [](int n) { return n > 0 && n < 300000; }), 3);
    for (const int shown : counts) EXPECT_EQ(shown % 100, 0);
    EXPECT_EQ(Find<QLineEdit>("txtNoPts").text(), "300000");
    EXPECT_EQ(Find<QLineEdit>("txtNoPtsPrcd").text(), "300000");
    EXPECT_TRUE(Find<QProgressBar>("pbarPtsPrcd").isHidden());
    EXPECT_EQ(Find<QLineEdit>("txtNoFiles").text(), "0");
}

TEST_F(PtCloudRun, DoesNotFlicker) {
    Run();
    EXPECT_EQ(BarShows, 1);
    EXPECT_EQ(BarHides, 1);
    EXPECT_LE(static_cast<qint64>(Bar.size()), Time / kRedrawPause + 2);
    EXPECT_LE(ListPaints, 2U) << "what doesn't change isn't painted again";
}

TEST_F(PtCloud, MovesNothingWhenTheBarComesAndGoes) {
    Session.Open(kForm);
    auto& bar = Session.Get<ProgressBar>(kForm, "pbarPtsPrcd");
    const std::array<const char*, 6> around{"txtNoPts", "txtNoPtsPrcd", "cmdExit", "layoutTabs", "Dir2", "File2"};
    std::array<QRect, around.size()> before;
    for (std::size_t i = 0; i < around.size(); ++i) before[i] = Find<QWidget>(around[i]).geometry();
    Session.Desk.Act("test", [&bar] { bar.Visible = true; });
    QTest::qWait(20);
    ASSERT_TRUE(Find<QProgressBar>("pbarPtsPrcd").isVisible());
    for (std::size_t i = 0; i < around.size(); ++i) {
        EXPECT_EQ(Find<QWidget>(around[i]).geometry(), before[i]) << around[i];
    }
}

}  // namespace
}  // namespace crownlab
