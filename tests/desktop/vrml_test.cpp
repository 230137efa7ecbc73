// The VRML view, where OpenGL is to be had and where it isn't.
#include <gmock/gmock.h>

#include <QApplication>
#include <QMouseEvent>
#include <QTest>
#include <QWheelEvent>

#include "desktop/vrml_widget.h"
#include "probe_session.h"

namespace crownlab {
namespace {

constexpr const char* kBlueBox =
    "#VRML V2.0 utf8\n"
    "Background { skyColor [ 1 1 1 ] }\n"
    "Viewpoint { position 0 0 30 }\n"
    "Shape { appearance Appearance { material Material { diffuseColor 0 0.25 1 } } geometry Box { size 2 2 2 } }\n";

class VrmlViews : public ::testing::Test {
protected:
    VrmlViews() {
        Probe().OnAny("View1_SceneLoaded", [this](const EventArgs&) {
            ++loaded;
            ++Probe().View1.FitCount;
        });
        Session.Window();
    }
    FrmProbe& Probe() { return Session.Probe(); }
    VrmlWidget& View() { return Session.Find<VrmlWidget>("View1"); }
    /// Loads a file of that content as a handler does.
    void Load(const std::string& content) {
        PutFile(Session.Folder / "model.wrl", content);
        Session.Desk.Act("test", [this] {
            Probe().View1.SceneFile = Session.Folder / "model.wrl";
            ++Probe().View1.LoadCount;
        });
    }
    /// Pixels of the view that are more blue than red.
    int BluePixels() {
        QTest::qWait(50);
        const QImage image = View().grab().toImage();
        int blue = 0;
        for (int y = 0; y < image.height(); ++y) {
            for (int x = 0; x < image.width(); ++x) {
                const QColor colour = image.pixelColor(x, y);
                if (colour.blue() > colour.red() + 60) ++blue;
            }
        }
        return blue;
    }

    ProbeSession Session;
    int loaded = 0;
};

TEST_F(VrmlViews, SayThatNothingIsShownAtFirst) { EXPECT_EQ(View().Sentence(), "No model is shown yet."); }

TEST_F(VrmlViews, TellTheFormOfAFileThatWasRead) {
    Load(kBlueBox);
    EXPECT_EQ(loaded, 1);
    EXPECT_EQ(Probe().View1.FitCount, 1u);
    Load(kBlueBox);
    EXPECT_EQ(loaded, 2) << "the same file is read anew";
}

TEST_F(VrmlViews, DrawTheModelOrSayWhyNot) {
    Load(kBlueBox);
    if (!VrmlWidget::CanDraw()) {
        EXPECT_EQ(View().Sentence(), "model.wrl was written, but can't be shown: there is no OpenGL here.");
        return;
    }
    EXPECT_EQ(View().Sentence(), "");
    // Fitted, the box fills much of the view; from the file's viewpoint it would be a speck.
    const int all = View().width() * View().height();
    EXPECT_GT(BluePixels(), all / 10);
}

TEST_F(VrmlViews, ShowWhatIsNearerAndTheSkyBehind) {
    // The far box stands last in the file: drawn over the near one it would be seen.
    Load(std::string(kBlueBox) +
         "Transform { translation 0 0 -6 children Shape { appearance Appearance { material Material { diffuseColor 1 0 "
         "0 } }"
         " geometry Box { size 1 1 1 } } }\n");
    if (!VrmlWidget::CanDraw()) return;
    QTest::qWait(50);
    const QImage image = View().grab().toImage();
    const QColor middle = image.pixelColor(image.rect().center());
    EXPECT_GT(middle.blue(), middle.red() + 60);
    EXPECT_EQ(image.pixelColor(2, 2), QColor(Qt::white)) << "the file's sky, not the window's grey";
}

TEST_F(VrmlViews, AreMovedByTheMouse) {
    Load(kBlueBox);
    if (!VrmlWidget::CanDraw()) return;
    const int before = BluePixels();
    QWidget* const canvas = View().childAt(View().rect().center());
    const QPointF middle = canvas->rect().center();
    QWheelEvent away(middle, canvas->mapToGlobal(middle), {}, QPoint(0, -1200), Qt::NoButton, Qt::NoModifier,
                     Qt::NoScrollPhase, false);
    QApplication::sendEvent(canvas, &away);
    const int farther = BluePixels();
    EXPECT_LT(farther, before / 2) << "the wheel takes it farther";
    EXPECT_GT(farther, 0);
    QTest::mousePress(canvas, Qt::RightButton, {}, QPoint(10, 10));
    QMouseEvent move(QEvent::MouseMove, QPointF(canvas->width() + 200, 10),
                     canvas->mapToGlobal(QPointF(canvas->width() + 200, 10)), Qt::NoButton, Qt::RightButton,
                     Qt::NoModifier);
    QApplication::sendEvent(canvas, &move);
    EXPECT_EQ(BluePixels(), 0) << "the right button shifts it out of sight";
    Session.Desk.Act("test", [this] { ++Probe().View1.FitCount; });
    EXPECT_GE(BluePixels(), before / 2) << "Fit brings it back";
}

TEST_F(VrmlViews, ABadFileIsASentence) {
    for (const char* const content :
         {"", "no VRML at all\n", "#VRML V2.0 utf8\nShape { geometry Box { size 2 2", "#VRML V2.0 utf8\nShape }",
          "#VRML V2.0 utf8\nGroup { children Shape { geometry ElevationGrid { xDimension 3 zDimension 2000000 } } }\n",
          "#VRML V2.0 utf8\nShape { geometry ElevationGrid { xDimension -1 zDimension -5 height [ 1 2 3 4 5 ] } }\n"}) {
        Load(kBlueBox);
        ASSERT_EQ(View().Sentence().contains("isn't shown"), false);
        const int before = loaded;
        Load(content);
        EXPECT_EQ(loaded, before) << content;
        EXPECT_TRUE(View().Sentence().startsWith("model.wrl isn't shown: it ")) << View().Sentence().toStdString();
        EXPECT_EQ(BluePixels(), 0);
    }
}

TEST_F(VrmlViews, AMissingFileIsASentence) {
    Session.Desk.Act("test", [this] {
        Probe().View1.SceneFile = Session.Folder / "none.wrl";
        ++Probe().View1.LoadCount;
    });
    EXPECT_EQ(loaded, 0);
    EXPECT_EQ(View().Sentence(), "none.wrl isn't shown: it can't be opened.");
}

}  // namespace
}  // namespace crownlab
