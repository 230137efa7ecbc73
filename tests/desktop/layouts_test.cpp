// Forms and their layouts fit each other.
#include <gmock/gmock.h>

#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

#include "desktop/binder.h"
#include "desktop/form_layouts.h"
#include "desktop_session.h"
#include "probe_session.h"

namespace crownlab {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::UnorderedElementsAreArray;

TEST(Layouts, EveryWindowOfTheApplicationHasOne) {
    DesktopSession session;
    EXPECT_THAT(LaidOutForms(), UnorderedElementsAreArray(session.App.Windows().Names()));
}

TEST(Layouts, FitTheirForms) {
    DesktopSession session;
    for (const std::string& name : session.App.Windows().Names()) {
        QWidget window;
        SetUpLayout(name, window);
        EXPECT_THAT(LayoutFaults(*session.App.Windows().Load(name), window), IsEmpty()) << name;
    }
}

/// What a person sets or presses says what it does and in which unit, unless its name says it already.
bool NeedsToolTip(const ControlRef& control) {
    if (PictureBox* const* const box = std::get_if<PictureBox*>(&control)) return !(*box)->OffScreen;
    return !(std::holds_alternative<Label*>(control) || std::holds_alternative<Frame*>(control) ||
             std::holds_alternative<Line*>(control) || std::holds_alternative<MenuItem*>(control));
}

TEST(Layouts, HaveToolTips) {
    DesktopSession session;
    for (const std::string& name : session.App.Windows().Names()) {
        QWidget window;
        SetUpLayout(name, window);
        for (const ControlRef& control : session.App.Windows().Load(name)->Controls()) {
            if (!NeedsToolTip(control)) continue;
            const auto* const widget = window.findChild<QWidget*>(WidgetName(Base(control).Name));
            ASSERT_NE(widget, nullptr) << Base(control).Name;
            EXPECT_FALSE(widget->toolTip().isEmpty()) << name << "." << Base(control).Name;
        }
    }
}

TEST(Layouts, UnknownFormIsRefused) {
    QWidget window;
    EXPECT_THROW(SetUpLayout("frmNone", window), std::logic_error);
}

class LayoutFaultsOf : public ::testing::Test {
protected:
    LayoutFaultsOf() { LayOutProbe("frmProbe", Window); }
    std::vector<std::string> Faults() { return LayoutFaults(Session.Probe(), Window); }
    template <typename Widget = QWidget>
    Widget& Find(const char* name) {
        return *Window.findChild<Widget*>(name);
    }

    ProbeSession Session;
    QWidget Window;
};

TEST_F(LayoutFaultsOf, AFittingLayoutAreNone) { EXPECT_THAT(Faults(), IsEmpty()); }

TEST_F(LayoutFaultsOf, AMissingWidget) {
    delete &Find("cmdRun");
    EXPECT_THAT(Faults(), ElementsAre("cmdRun has no widget of its kind"));
    EXPECT_THROW(FormWindow(Session.Probe(), Session.Desk, [](const std::string&, QWidget&) {}), std::logic_error);
}

TEST_F(LayoutFaultsOf, AWidgetOfAnotherKind) {
    Find("cmdRun").setObjectName("layoutOld");
    auto* const label = new QLabel(&Window);
    label->setObjectName("cmdRun");
    EXPECT_THAT(Faults(), ElementsAre("cmdRun has no widget of its kind"));
}

TEST_F(LayoutFaultsOf, AWidgetInAnotherFrame) {
    Find("optTwo").setParent(&Window);
    EXPECT_THAT(Faults(), ElementsAre("optTwo lies in another frame"));
}

TEST_F(LayoutFaultsOf, ATextOfTheLayout) {
    Find<QPushButton>("cmdRun").setText("Run");
    EXPECT_THAT(Faults(), ElementsAre("cmdRun has a text of its own in the layout"));
}

TEST_F(LayoutFaultsOf, AnUnknownWidget) {
    auto* const label = new QLabel(&Window);
    label->setObjectName("lblNobody");
    EXPECT_THAT(Faults(), ElementsAre("lblNobody is no control of the form"));
    label->setObjectName("layoutText");
    EXPECT_THAT(Faults(), IsEmpty());
}

}  // namespace
}  // namespace crownlab
