#include "desktop/plot_view.h"

#include <gmock/gmock.h>

#include <QTest>

#include "plot_samples.h"

namespace crownlab {
namespace {

TEST(PlotView, ShowsASheet) {
    PlotView view(CrownSheet());
    view.resize(1500, 800);
    view.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&view));
    KeepPicture(Settled(view), "plot-sheet");
}

}  // namespace
}  // namespace crownlab
