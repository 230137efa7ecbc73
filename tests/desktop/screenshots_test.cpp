// Pictures of every window, of every page of the viewer with a surface in it, and of every page of the point clouds
// during and after a run, kept with the build.
#include <QAbstractButton>
#include <QDir>
#include <QFile>
#include <QLabel>
#include <QProgressBar>
#include <QTabWidget>
#include <QTimer>
#include <array>

#include "desktop_session.h"
#include "forms/acts.h"

namespace crownlab {
namespace {

/// True if all of a label's text is seen.
bool FitsText(const QLabel& label) {
    if (label.text().isEmpty() || !label.isVisible()) return true;
    const QRect room = label.contentsRect();
    if (label.wordWrap()) return label.heightForWidth(room.width()) <= label.height() + 1;
    return label.sizeHint().width() <= label.width() + 1 && label.sizeHint().height() <= label.height() + 1;
}

void ExpectNothingIsCutOff(const QWidget& window) {
    for (const QLabel* const label : window.findChildren<QLabel*>()) {
        // The path of a folder may be longer than any window.
        if (QStringList{"lblFolder", "lblDefDir", "Label2"}.contains(label->objectName())) continue;
        EXPECT_TRUE(FitsText(*label)) << label->objectName().toStdString() << " " << label->text().toStdString();
    }
    for (const QAbstractButton* const button : window.findChildren<QAbstractButton*>()) {
        if (!button->isVisible() || button->text().isEmpty()) continue;
        EXPECT_LE(button->minimumSizeHint().width(), button->width()) << button->objectName().toStdString();
    }
}

void Keep(QWidget& window, const char* name) {
    QTest::qWait(50);
    const QPixmap picture = window.grab();
    QDir().mkpath(CROWNLAB_SCREENSHOTS);
    const QString path = QString("%1/%2.png").arg(CROWNLAB_SCREENSHOTS, name);
    EXPECT_TRUE(picture.save(path)) << path.toStdString();
    ExpectNothingIsCutOff(window);
}

TEST(Screenshots, MainWindowAndDialogs) {
    DesktopSession session;
    session.Click("frmStartup", "lblTooth");
    Keep(session.Window("frmStartup"), "frmStartup");
    Keep(session.Open("frmDefDir"), "frmDefDir");
    Keep(session.Open("frmAbout"), "frmAbout");
    QDir(QString::fromStdString(session.Folder.Path())).mkdir("teeth");
    PutFile(session.Folder / "m1.csv", "1,1,1\r\n");
    Keep(session.Open("frmSaveFile"), "frmSaveFile");
}

TEST(Screenshots, EveryPageOfTheViewer) {
    DesktopSession session;
    for (const char* const name : {"crown.csv", "teeth.csv"}) {
        ASSERT_TRUE(QFile::copy(QString("%1/%2").arg(CROWNLAB_SAMPLES, name), name));
    }
    FormWindow& window = session.Open("frmCSVView");
    // The size that a person gets who opens it.
    session.Get<CheckBox>("frmCSVView", "chkViewOnClick").Checked = false;
    session.Desk.Act("test", [&] {
        SelectEntry(session.Get<FileList>("frmCSVView", "File1"), "crown.csv");
        Press(session.Get<CommandButton>("frmCSVView", "cmdReadCSV"));
        Press(session.Get<CommandButton>("frmCSVView", "cmdProcClump"));
    });
    auto& tabs = session.Find<QTabWidget>("frmCSVView", "layoutTabs");
    const std::array<const char*, 5> pages{"patches", "contour", "statistics", "teeth", "output"};
    ASSERT_EQ(tabs.count(), static_cast<int>(pages.size()));
    for (int i = 0; i < tabs.count(); ++i) {
        tabs.setCurrentIndex(i);
        if (i == 4) session.Click("frmCSVView", "cmdCopyWRL");
        Keep(window, ("frmCSVView-" + std::string(pages[static_cast<std::size_t>(i)])).c_str());
    }
    window.resize(window.minimumSizeHint());
    tabs.setCurrentIndex(0);
    Keep(window, "frmCSVView-smallest");
    std::printf("smallest %d x %d\n", window.width(), window.height());
}

/// Keeps a picture of the window while a handler runs, at a redraw of about half the points.
class HalfWay {
public:
    HalfWay(FormWindow& window, const QProgressBar& bar, const std::string& name) {
        QObject::connect(&timer_, &QTimer::timeout, [this, &window, &bar, name] {
            if (Kept || !bar.isVisible() || bar.value() < 300 || bar.value() > 900) return;
            Kept = true;
            Keep(window, name.c_str());
        });
        timer_.start(5);
    }
    bool Kept = false;

private:
    QTimer timer_;
};

/// Cleans the scan of the session's folder.
void RunUndercuts(DesktopSession& session, bool defaults) {
    session.Desk.Act("test", [&session] { SelectEntry(session.Get<FileList>("frmPtCloud", "File2"), "scan.txt"); });
    session.Desk.Act("test", [&session, defaults] {
        SetText(session.Get<TextBox>("frmPtCloud", "txtSearchRadius"), "0.080");
        // Bins far too large: the run lasts until a picture is taken.
        SetText(session.Get<TextBox>("frmPtCloud", "txtBinSize"), "1");
        SetText(session.Get<TextBox>("frmPtCloud", "txtThresh"), "0.320");
        SetChecked(session.Get<CheckBox>("frmPtCloud", "chkDefaultSet"), defaults);
    });
    session.Desk.Act("test", [&session] { Press(session.Get<CommandButton>("frmPtCloud", "cmdRemoveUndercuts")); });
}

TEST(Screenshots, EveryPageOfThePointClouds) {
    DesktopSession session;
    // CROWNLAB_SCAN names another scan to take the pictures with.
    const QString scan = qEnvironmentVariable("CROWNLAB_SCAN", QString("%1/scan.txt").arg(CROWNLAB_SAMPLES));
    ASSERT_TRUE(QFile::copy(scan, "scan.txt")) << scan.toStdString();
    FormWindow& window = session.Open("frmPtCloud");
    auto& tabs = session.Find<QTabWidget>("frmPtCloud", "layoutTabs");
    Keep(window, "frmPtCloud-opened");
    const std::array<const char*, 4> pages{"clean", "measure", "join", "surfer"};
    ASSERT_EQ(tabs.count(), static_cast<int>(pages.size()));
    for (int i = 0; i < tabs.count(); ++i) {
        tabs.setCurrentIndex(i);
        const std::string name = "frmPtCloud-" + std::string(pages[static_cast<std::size_t>(i)]);
        const HalfWay during(window, session.Find<QProgressBar>("frmPtCloud", "pbarPtsPrcd"), name + "-during");
        RunUndercuts(session, false);
        EXPECT_TRUE(during.Kept) << name;
        RunUndercuts(session, true);
        Keep(window, (name + "-after").c_str());
    }
    tabs.setCurrentIndex(0);
    window.resize(window.minimumSizeHint());
    Keep(window, "frmPtCloud-smallest");
    std::printf("smallest %d x %d\n", window.width(), window.height());
    window.resize(1280, 740);
    Keep(window, "frmPtCloud-1280x800");
}

TEST(Screenshots, BatchFunctions) {
    DesktopSession session;
    for (const char* const name : {"lower_m1.grd", "lower_m1b.grd", "lower_m2.grd"}) {
        PutFile(session.Folder / name, "DSAA\n2 2\n0 1\n0 1\n0 3\n0 1\n2 3\n");
    }
    FormWindow& window = session.Open("frmSurfFns");
    session.Click("frmSurfFns", "cmdAddAllFilenames");
    Keep(window, "frmSurfFns");
    constexpr QSize screen(1280, 900);
    EXPECT_TRUE(window.size().boundedTo(screen) == window.size()) << window.width() << " x " << window.height();
    window.resize(window.minimumSizeHint());
    Keep(window, "frmSurfFns-smallest");
    std::printf("smallest %d x %d\n", window.width(), window.height());
}

TEST(Screenshots, EveryPageOfTheConversion) {
    DesktopSession session;
    PutFile(session.Folder / "hill.txt", "0,0,1\n3.6,0,2\n0,2.7,1\n3.6,2.7,0.5\n");
    PutFile(session.Folder / "upper molar.txt", "0,0,1\n");
    QDir(QString::fromStdString(session.Folder.Path())).mkdir("teeth");
    FormWindow& window = session.Open("frmConversion");
    Keep(window, "frmConversion-opened");
    session.Desk.Act("test", [&session] {
        SelectEntry(session.Get<ComboBox>("frmConversion", "cmbFromFileType"), 1);
        SelectEntry(session.Get<ComboBox>("frmConversion", "cmbToFileType"), 0);
        Press(session.Get<CommandButton>("frmConversion", "cmdAddAllFilenames"));
        Press(session.Get<CommandButton>("frmConversion", "cmdExamineFile"));
    });
    auto& tabs = session.Find<QTabWidget>("frmConversion", "SSTab1");
    const std::array<const char*, 3> pages{"fields", "voxels", "grid"};
    ASSERT_EQ(tabs.count(), static_cast<int>(pages.size()));
    for (int i = 0; i < tabs.count(); ++i) {
        tabs.setCurrentIndex(i);
        Keep(window, ("frmConversion-" + std::string(pages[static_cast<std::size_t>(i)])).c_str());
    }
    EXPECT_TRUE(session.Get<OptionButton>("frmConversion", "optInGRD").Selected);
    window.resize(window.minimumSizeHint());
    Keep(window, "frmConversion-smallest");
    std::printf("smallest %d x %d\n", window.width(), window.height());
}

}  // namespace
}  // namespace crownlab
