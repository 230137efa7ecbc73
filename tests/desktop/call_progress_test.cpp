// The line that tells how far a call of the mapping program is.
#include <gmock/gmock.h>

#include <QFile>
#include <QPushButton>
#include <QScreen>
#include <QTest>
#include <QTimer>
#include <chrono>
#include <set>
#include <thread>

#include "desktop_session.h"
#include "probe_session.h"

namespace crownlab {
namespace {

QString LineText(const FormWindow& window) {
    const auto* const line = window.findChild<QWidget*>("progressLine");
    return line != nullptr && line->isVisible() ? line->accessibleName() : QString();
}

class CallProgressLine : public ::testing::Test {
protected:
    /// A call that takes so long, telling every 50 ms how far it is; `during` runs at the share.
    void Call(int milliseconds, const std::function<void(double share)>& during) {
        const auto begun = std::chrono::steady_clock::now();
        for (int done = 0; done < milliseconds;) {
            std::this_thread::sleep_for(std::chrono::milliseconds(50));
            done = static_cast<int>(
                std::chrono::duration_cast<std::chrono::milliseconds>(std::chrono::steady_clock::now() - begun)
                    .count());
            const double share = static_cast<double>(done) / milliseconds;
            Session.Desk.CallRuns("GridData", share);
            during(share);
        }
        Session.Desk.CallEnded();
    }

    ProbeSession Session;
};

TEST_F(CallProgressLine, ComesAfterHalfASecondAndGoesWithTheCall) {
    std::vector<QString> texts;
    const QSize before = Session.Window().size();
    const QRect button = Session.Find<QPushButton>("cmdRun").geometry();
    Session.On("cmdRun_Click", [&] {
        Call(1000, [&](double) { texts.push_back(LineText(Session.Window())); });
        texts.push_back(LineText(Session.Window()));
    });
    Session.Click("cmdRun");
    ASSERT_GT(texts.size(), 12u);
    EXPECT_EQ(texts[0], "");
    EXPECT_EQ(texts[5], "") << "after 300 ms";
    EXPECT_EQ(texts.back(), "");
    const QString late = texts[texts.size() - 3];
    EXPECT_TRUE(late.startsWith("Surfer: GridData ")) << late.toStdString();
    EXPECT_TRUE(late.endsWith(" %"));
    EXPECT_GT(late.section(' ', 2, 2).toInt(), 50);
    EXPECT_EQ(Session.Window().size(), before);
    EXPECT_EQ(Session.Find<QPushButton>("cmdRun").geometry(), button) << "nothing has moved";
}

TEST_F(CallProgressLine, PaintsTheWindowAndTakesNoInput) {
    int others = 0;
    Session.On("cmdOther_Click", [&others] { ++others; });
    int othersWhileItRuns = -1;
    Session.On("cmdRun_Click", [&] {
        bool kept = false;
        Queue(Session.Window(), [&] { Session.Click("cmdOther"); });
        Call(1000, [&](double share) {
            if (share < 0.8 || kept) return;
            kept = true;
            const QImage shown = Session.Window().screen()->grabWindow(Session.Window().winId()).toImage();
            EXPECT_TRUE(shown.save(QString("%1/progress-line.png").arg(CROWNLAB_SCREENSHOTS)));
            // The bar in its colour over most of the lower edge, on the screen itself.
            const QColor bar = shown.pixelColor(shown.width() / 2, shown.height() - 2);
            EXPECT_EQ(bar, Session.Window().palette().color(QPalette::Highlight));
            EXPECT_NE(shown.pixelColor(shown.width() - 3, shown.height() - 2), bar);
        });
        othersWhileItRuns = others;
        EXPECT_TRUE(kept);
    });
    Session.Click("cmdRun");
    EXPECT_EQ(othersWhileItRuns, 0);
}

TEST_F(CallProgressLine, StaysAwayInShortCalls) {
    Session.On("cmdRun_Click", [&] {
        for (int i = 0; i < 4; ++i) Call(200, [&](double) { EXPECT_EQ(LineText(Session.Window()), ""); });
    });
    Session.Click("cmdRun");
}

TEST_F(CallProgressLine, StandsInTheWindowThatActs) {
    Session.Window("frmSecond").activateWindow();
    bool seen = false;
    Session.On("cmdRun_Click", [&] {
        Call(800, [&](double) {
            seen = seen || LineText(Session.Window()) != "";
            EXPECT_EQ(LineText(Session.Window("frmSecond")), "");
        });
    });
    Session.Click("cmdRun");
    EXPECT_TRUE(seen);
}

TEST(CallProgressOfTheEngine, IsSeenInASlowGridding) {
    DesktopSession session;
    // Enough points that a node of each of many is a system to solve.
    std::string points;
    for (int i = 0; i < 20000; ++i) {
        points += std::to_string((i * 7919) % 20011) + "," + std::to_string((i * 104729) % 19997) + "," +
                  std::to_string(i % 97) + "\r\n";
    }
    PutFile(session.Folder / "points.dat", points);
    FormWindow& window = session.Open("frmPtCloud");
    std::set<QString> texts;
    QTimer look;
    QObject::connect(&look, &QTimer::timeout, [&] {
        if (const QString text = LineText(window); !text.isEmpty()) texts.insert(text);
    });
    look.start(10);
    window.Act(session.Get<CommandButton>("frmPtCloud", "cmdRemoveUndercuts"), "Click", [&session] {
        session.Objects.Attach("Surfer.Application")
            .Call("GridData", {{"DataFile", session.Folder / "points.dat"},
                               {"NumCols", 700},
                               {"NumRows", 700},
                               {"Algorithm", 2},
                               {"OutGrid", session.Folder / "out.grd"}});
    });
    EXPECT_TRUE(QFile::exists(QString::fromStdString(session.Folder / "out.grd")));
    EXPECT_GT(texts.size(), 3u) << "it goes on";
    for (const QString& text : texts) EXPECT_TRUE(text.startsWith("Surfer: GridData ")) << text.toStdString();
    EXPECT_EQ(LineText(window), "");
}

}  // namespace
}  // namespace crownlab
