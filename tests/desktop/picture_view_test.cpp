#include "desktop/picture_view.h"

#include <gmock/gmock.h>

#include <QLabel>
#include <QTest>

#include "desktop_session.h"
#include "probe_session.h"

namespace crownlab {
namespace {

using ::testing::ElementsAre;

/// Four quarters in four colours, with a margin of four white pixels at the right and below.
std::shared_ptr<const Raster> Quarters(int side) {
    auto raster = std::make_shared<Raster>(side + 4, side + 4, Colour{255, 255, 255});
    for (int y = 0; y < side; ++y) {
        for (int x = 0; x < side; ++x) {
            const auto red = static_cast<std::uint8_t>(x < side / 2 ? 200 : 0);
            const auto green = static_cast<std::uint8_t>(y < side / 2 ? 200 : 0);
            raster->At(x, y) = {red, green, 0};
        }
    }
    return raster;
}

QColor ColourAt(PictureView& view, double across, double down) {
    const QImage image = view.grab().toImage();
    const QRectF target = view.Target();
    const double ratio = image.devicePixelRatio();
    return image.pixelColor(static_cast<int>((target.x() + across * target.width()) * ratio),
                            static_cast<int>((target.y() + down * target.height()) * ratio));
}

TEST(PictureView, FillsTheToldShapeWithoutTheMargin) {
    PictureView view;
    view.resize(300, 200);
    view.SetShape({100, 100});
    view.SetPicture(Quarters(10), 10, 10);
    EXPECT_EQ(view.Target(), QRectF(50, 0, 200, 200));
    EXPECT_EQ(ColourAt(view, 0.02, 0.02), QColor(200, 200, 0));
    EXPECT_EQ(ColourAt(view, 0.97, 0.02), QColor(0, 200, 0));
    EXPECT_EQ(ColourAt(view, 0.02, 0.97), QColor(200, 0, 0));
    EXPECT_EQ(ColourAt(view, 0.97, 0.97), QColor(0, 0, 0)) << "no margin is seen";
    const QColor between = ColourAt(view, 0.5, 0.25);
    EXPECT_GT(between.red(), 0);
    EXPECT_LT(between.red(), 200) << "stretched smoothly";
}

TEST(PictureView, KeepsItsSizeHintWhenTheShapeChanges) {
    PictureView view;
    view.SetShape({313, 313});
    view.SetShape({313, 156});
    EXPECT_EQ(view.sizeHint(), QSize(313, 313));
}

TEST(PictureView, TellsPositionsInTheToldPixels) {
    PictureView view;
    view.resize(300, 200);
    view.SetShape({100, 100});
    std::vector<double> told;
    view.OnMove = [&told](double x, double y) { told = {x, y}; };
    MoveOver(view, QPointF(50, 0));
    MoveOver(view, QPointF(150, 50));
    EXPECT_THAT(told, ElementsAre(50, 25));
    told.clear();
    MoveOver(view, QPointF(20, 50));
    EXPECT_TRUE(told.empty()) << "beside the picture";
}

TEST(PictureView, ClickedInsideOnly) {
    PictureView view;
    view.resize(300, 200);
    view.SetShape({100, 100});
    int clicks = 0;
    view.OnClick = [&clicks] { ++clicks; };
    QTest::mouseClick(&view, Qt::LeftButton, {}, QPoint(100, 100));
    QTest::mouseClick(&view, Qt::LeftButton, {}, QPoint(10, 100));
    EXPECT_EQ(clicks, 1);
}

TEST(PictureView, CountsThatExceedTheRasterAreCutShort) {
    PictureView view;
    view.resize(50, 50);
    view.SetShape({50, 50});
    view.SetPicture(Quarters(4), 100, 100);
    EXPECT_FALSE(view.grab().isNull());
    view.SetPicture(nullptr, 5, 5);
    EXPECT_FALSE(view.grab().isNull());
}

TEST(PictureBoxes, HandTheirMouseToTheHandler) {
    ProbeSession session;
    std::vector<double> told;
    FrmProbe& probe = session.Probe();
    probe.OnAny("picBox(1)_MouseMove", [&](const EventArgs& args) {
        told = {args.X, args.Y};
        probe.lblNote.Caption = "moved";
    });
    auto& view = session.Find<PictureView>("picBox_1");
    MoveOver(view, QPointF(100, 100));
    // 100 by 50 told pixels fill 200 by 100, fifty from the top.
    EXPECT_THAT(told, ElementsAre(50, 25));
    EXPECT_EQ(session.Find<QLabel>("lblNote").text(), "moved");
}

}  // namespace
}  // namespace crownlab
