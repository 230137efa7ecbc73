// Handlers that yield, redraw, nest, and are ended while they run.
#include <gmock/gmock.h>

#include <QApplication>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QSlider>
#include <QTest>

#include "desktop_session.h"
#include "probe_session.h"

namespace crownlab {
namespace {

using ::testing::ElementsAre;

TEST(Yields, ShowWhatTheRecordsHold) {
    ProbeSession session;
    QString shown;
    session.On("cmdRun_Click", [&] {
        session.Probe().lblNote.Caption = "half way";
        session.Desk.Yield();
        shown = session.Find<QLabel>("lblNote").text();
    });
    session.Click("cmdRun");
    EXPECT_EQ(shown, "half way");
}

TEST(Yields, PaintTheWindow) {
    ProbeSession session;
    class Paints : public QObject {
    public:
        int Count = 0;
        bool eventFilter(QObject*, QEvent* event) override {
            if (event->type() == QEvent::Paint) ++Count;
            return false;
        }
    } paints;
    session.Find<QLabel>("lblNote").installEventFilter(&paints);
    QTest::qWait(20);
    std::vector<int> counts;
    session.On("cmdRun_Click", [&] {
        for (int i = 0; i < 3; ++i) {
            session.Probe().lblNote.Caption = "tooth " + std::to_string(i);
            const int before = paints.Count;
            session.Desk.Yield();
            counts.push_back(paints.Count - before);
        }
        session.Probe().lblNote.Caption = "redrawn";
        QTest::qSleep(50);
        const int before = paints.Count;
        session.Desk.Redraw();
        counts.push_back(paints.Count - before);
    });
    session.Click("cmdRun");
    EXPECT_THAT(counts, ::testing::Each(::testing::Ge(1)));
}

TEST(Yields, LetOtherButtonsRunNested) {
    ProbeSession session;
    std::vector<std::string> order;
    session.On("cmdRun_Click", [&] {
        order.emplace_back("begins");
        Queue(session.Window(), [&] { session.Click("cmdOther"); });
        session.Desk.Yield();
        order.emplace_back("ends");
    });
    session.On("cmdOther_Click", [&] { order.emplace_back("other"); });
    session.Click("cmdRun");
    EXPECT_THAT(order, ElementsAre("begins", "other", "ends"));
}

TEST(Yields, EscapeReachesTheButtonThatRuns) {
    ProbeSession session;
    bool cancelled = false;
    session.On("cmdRun_KeyDown", [&] { cancelled = true; });
    int teeth = 0;
    session.On("cmdRun_Click", [&] {
        Queue(session.Window(), [&] { QTest::keyClick(&session.Find<QPushButton>("cmdRun"), Qt::Key_Escape); });
        while (!cancelled && teeth < 1000) {
            ++teeth;
            session.Desk.Yield();
        }
    });
    session.Click("cmdRun");
    EXPECT_TRUE(cancelled);
    EXPECT_LT(teeth, 1000);
}

TEST(Yields, TheWaitPointerStaysUntilTheOutermostHandlerEnds) {
    ProbeSession session;
    std::vector<bool> waits;
    const auto note = [&waits] {
        const QCursor* const cursor = QApplication::overrideCursor();
        waits.push_back(cursor != nullptr && cursor->shape() == Qt::WaitCursor);
    };
    session.On("cmdRun_Click", [&] {
        note();
        Queue(session.Window(), [&] { session.Click("cmdOther"); });
        session.Desk.Yield();
        note();
    });
    session.On("cmdOther_Click", note);
    session.Click("cmdRun");
    note();
    EXPECT_THAT(waits, ElementsAre(true, true, true, false));
}

TEST(Yields, AWindowUnloadedByItsOwnHandlerIsGoneWhenThatEnds) {
    ProbeSession session;
    FormWindow* const shown = &session.Window();
    const QPointer<FormWindow> window = shown;
    std::weak_ptr<Form> form = session.Windows.Find("frmProbe");
    session.Window("frmSecond");
    session.On("cmdRun_Click", [&] {
        session.Windows.Unload("frmProbe");
        EXPECT_TRUE(shown->isHidden());
        for (int i = 0; i < 5; ++i) session.Desk.Yield();
        EXPECT_FALSE(window.isNull()) << "its button is still in its mouse event";
    });
    session.Click("cmdRun");
    QTest::qWait(1);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_TRUE(window.isNull());
    EXPECT_TRUE(form.expired());
    EXPECT_FALSE(session.Ended);
}

TEST(Yields, AWindowClosedAtAYieldCanBeOpenedAnewBeforeItsHandlerEnds) {
    ProbeSession session;
    FormWindow* const before = &session.Window();
    session.Window("frmSecond");
    session.On("cmdRun_Click", [&] {
        Queue(session.Window(), [&] {
            before->close();
            session.Desk.Act("test", [&] { session.Windows.Show("frmProbe"); });
        });
        session.Desk.Yield();
        EXPECT_TRUE(session.Windows.IsLoaded("frmProbe"));
    });
    session.Click("cmdRun");
    EXPECT_NE(&session.Window(), before);
    EXPECT_TRUE(session.Window().isVisible());
    QTest::qWait(1);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    session.Click("chkTick");
    EXPECT_TRUE(session.Probe().chkTick.Checked);
}

TEST(Yields, WhatHappensToAnUnloadedWindowHasNoEffect) {
    ProbeSession session;
    FormWindow* const window = &session.Window();
    session.Window("frmSecond");
    int others = 0;
    session.On("cmdOther_Click", [&] { ++others; });
    session.On("cmdRun_Click", [&] {
        auto* const other = window->findChild<QPushButton*>("cmdOther");
        session.Windows.Unload("frmProbe");
        other->click();
        window->close();
    });
    session.Click("cmdRun");
    EXPECT_EQ(others, 0);
}

TEST(Yields, TheLastWindowClosedLetsTheHandlerEndFirst) {
    ProbeSession session;
    bool ended = false;
    session.On("cmdRun_Click", [&] {
        Queue(session.Window(), [&] { session.Window().close(); });
        session.Desk.Yield();
        EXPECT_FALSE(session.Ended);
        ended = true;
    });
    session.Click("cmdRun");
    EXPECT_TRUE(ended);
}

TEST(Yields, ExitLeavesTheHandlersThatWait) {
    ProbeSession session;
    std::vector<std::string> order;
    session.On("cmdOther_Click", [] { throw ExitProgram{}; });
    session.On("cmdRun_Click", [&] {
        struct Unfinished {
            std::vector<std::string>& Order;
            ~Unfinished() { Order.emplace_back("dropped"); }
        } unfinished{order};
        Queue(session.Window(), [&] { session.Click("cmdOther"); });
        session.Desk.Yield();
        order.emplace_back("went on");
    });
    session.Click("cmdRun");
    EXPECT_THAT(order, ElementsAre("dropped"));
    EXPECT_EQ(session.Ended, 0);
    session.Click("cmdRun");
    EXPECT_THAT(order, ElementsAre("dropped")) << "nothing runs any more";
}

TEST(Redraws, AreSkippedWhenTheyFollowTooFast) {
    ProbeSession session;
    std::vector<QString> shown;
    session.On("cmdRun_Click", [&] {
        for (int i = 0; i < 3; ++i) {
            session.Probe().lblNote.Caption = std::to_string(i);
            session.Desk.Redraw();
            shown.push_back(session.Find<QLabel>("lblNote").text());
        }
        QTest::qSleep(60);
        session.Desk.Redraw();
        shown.push_back(session.Find<QLabel>("lblNote").text());
    });
    session.Click("cmdRun");
    EXPECT_THAT(shown, ElementsAre("0", "0", "0", "2"));
}

TEST(Redraws, TakeNoInput) {
    ProbeSession session;
    int others = 0;
    session.On("cmdOther_Click", [&] { ++others; });
    session.On("cmdRun_Click", [&] {
        Queue(session.Window(), [&] { session.Click("cmdOther"); });
        session.Desk.Redraw();
    });
    session.Click("cmdRun");
    EXPECT_EQ(others, 0);
}

TEST(Sliders, MovesWhileTheirHandlerRunsCountOnceAtItsEnd) {
    ProbeSession session;
    std::vector<int> begun;
    session.On("sldTooth_Change", [&] {
        begun.push_back(session.Probe().sldTooth.Value);
        if (begun.size() == 1) {
            auto& slider = session.Find<QSlider>("sldTooth");
            Queue(session.Window(), [&slider] {
                for (const int value : {4, 5, 6}) slider.setValue(value);
            });
        }
        session.Desk.Yield();
    });
    session.Find<QSlider>("sldTooth").setValue(3);
    EXPECT_THAT(begun, ElementsAre(3, 6));
    EXPECT_EQ(session.Find<QSlider>("sldTooth").value(), 6);
}

}  // namespace
}  // namespace crownlab
