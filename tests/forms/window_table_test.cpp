#include "forms/window_table.h"

#include <gtest/gtest.h>

#include <memory>
#include <stdexcept>

#include "forms/acts.h"
#include "forms/sample_form.h"
#include "support/expect_failure.h"
#include "support/test_desk.h"

namespace crownlab {
namespace {

using Texts = std::vector<std::string>;

/// Its button runs what a test gives it, and it tells when it goes.
struct BusyForm : Form {
    BusyForm(Services& services, bool* gone) : Form(services, "frmBusy", "Busy"), Gone(gone) {
        OnAny("cmdA_Click", [this](const EventArgs&) { Act(*this); });
    }
    BusyForm(const BusyForm&) = delete;
    BusyForm& operator=(const BusyForm&) = delete;
    ~BusyForm() override { *Gone = true; }

    bool* Gone;
    std::function<void(BusyForm&)> Act;
    TextBox txtA{*this, "txtA"};
    CommandButton cmdA{*this, "cmdA"};
};

class WindowTableTest : public ::testing::Test {
protected:
    WindowTableTest() {
        Windows.AddMaker("frmSample", [this] { return std::make_shared<SampleForm>(Services_.Ties); });
        Windows.AddMaker("frmBusy", [this] { return std::make_shared<BusyForm>(Services_.Ties, &Gone); });
    }
    BusyForm& Busy() { return static_cast<BusyForm&>(*Windows.Find("frmBusy")); }

    TestServices Services_;
    WindowTable& Windows = Services_.Windows;
    bool Gone = false;
};

TEST_F(WindowTableTest, LoadsEachWindowOnceAndHidden) {
    const std::shared_ptr<Form> first = Windows.Load("frmSample");
    EXPECT_EQ(Windows.Load("frmSample"), first);
    EXPECT_FALSE(first->Shown);
    EXPECT_EQ(static_cast<SampleForm&>(*first).Events, Texts{"Form_Load"}) << "the load handler runs once";
    EXPECT_TRUE(Windows.IsLoaded("frmSample"));
    EXPECT_EQ(Services_.Screen.Shown, Texts{});
}

TEST_F(WindowTableTest, ShowBringsTheSameWindowToTheFront) {
    Windows.Show("frmSample");
    const std::shared_ptr<Form> first = Windows.Find("frmSample");
    Windows.Show("frmSample");
    EXPECT_EQ(Windows.Find("frmSample"), first);
    EXPECT_TRUE(first->Shown);
    EXPECT_EQ(Services_.Screen.Shown, (Texts{"frmSample", "frmSample"}));
}

TEST_F(WindowTableTest, UnloadStartsAfresh) {
    Windows.Show("frmSample");
    const std::shared_ptr<Form> first = Windows.Find("frmSample");
    static_cast<SampleForm&>(*first).txtA.Text = "changed";
    Windows.Unload("frmSample");
    EXPECT_FALSE(Windows.IsLoaded("frmSample"));
    EXPECT_EQ(static_cast<SampleForm&>(*first).Events.back(), "Form_Unload");
    EXPECT_EQ(Services_.Screen.Unloaded, Texts{"frmSample"});
    EXPECT_EQ(Windows.Get<TextBox>("frmSample", "txtA").Text, "first");
    Windows.Unload("frmGone");
    EXPECT_EQ(Services_.Screen.Unloaded, Texts{"frmSample"}) << "what isn't loaded isn't unloaded";
}

TEST_F(WindowTableTest, ReachesControlsByNameAndKind) {
    EXPECT_EQ(Windows.Get<CheckBox>("frmSample", "chkA").Caption, "Check");
    EXPECT_TRUE(Windows.IsLoaded("frmSample")) << "loaded to be reached";
    EXPECT_TRUE(FailsWith(
        FailureKind::ObjectNotSet, [&] { Windows.Get<TextBox>("frmSample", "chkA"); }, "frmSample.chkA"));
    EXPECT_TRUE(FailsWith(FailureKind::ObjectNotSet, [&] { Windows.Get<TextBox>("frmSample", "gone"); }));
    EXPECT_TRUE(FailsWith(
        FailureKind::ObjectNotSet, [&] { Windows.Load("frmGone"); }, "frmGone"));
}

TEST_F(WindowTableTest, KnowsItsNames) {
    EXPECT_EQ(Windows.Names(), (Texts{"frmBusy", "frmSample"}));
    EXPECT_TRUE(Windows.HasMaker("frmBusy"));
    EXPECT_FALSE(Windows.HasMaker("frmGone"));
    Windows.Load("frmSample");
    EXPECT_EQ(Windows.Loaded().size(), 1U);
}

TEST_F(WindowTableTest, AWindowWhoseLoadFailsNeverCameUp) {
    bool fail = true;
    Windows.AddMaker("frmFails", [&] {
        auto form = std::make_shared<BusyForm>(Services_.Ties, &Gone);
        form->OnAny("Form_Load", [&](const EventArgs&) {
            if (fail) throw Failure(FailureKind::FileNotFound, "a.csv");
        });
        return form;
    });
    EXPECT_TRUE(FailsWith(FailureKind::FileNotFound, [&] { Windows.Show("frmFails"); }));
    EXPECT_FALSE(Windows.IsLoaded("frmFails"));
    EXPECT_TRUE(Gone);
    fail = false;
    Windows.Show("frmFails");
    EXPECT_TRUE(Windows.IsLoaded("frmFails"));
}

TEST_F(WindowTableTest, AnUnloadedWindowLivesUntilItsHandlerReturns) {
    Windows.Load("frmBusy");
    bool aliveAfterUnload = false;
    Busy().Act = [&](BusyForm& form) {
        Windows.Unload("frmBusy");
        EXPECT_FALSE(Windows.IsLoaded("frmBusy"));
        form.txtA.Text = "still here";
        aliveAfterUnload = !Gone;
    };
    Press(Busy().cmdA);
    EXPECT_TRUE(aliveAfterUnload);
    EXPECT_TRUE(Gone);
}

TEST_F(WindowTableTest, OpeningItMeanwhileMakesANewOne) {
    Windows.Load("frmBusy");
    Busy().Act = [&](BusyForm& form) {
        Windows.Unload("frmBusy");
        Windows.Show("frmBusy");
        EXPECT_NE(&Busy(), &form);
        form.txtA.Text = "old";
        EXPECT_EQ(Busy().txtA.Text, "");
    };
    Press(Busy().cmdA);
    EXPECT_TRUE(Gone) << "the old one";
    EXPECT_TRUE(Windows.IsLoaded("frmBusy"));
}

TEST_F(WindowTableTest, NestedHandlersKeepTheirWindow) {
    Windows.Load("frmBusy");
    int depth = 0;
    Busy().Act = [&](BusyForm& form) {
        EXPECT_EQ(Windows.RunningHandlers(), depth + 1);
        if (++depth < 3) {
            Press(form.cmdA);
        } else {
            Windows.Unload("frmBusy");
        }
        EXPECT_FALSE(Gone);
    };
    Press(Busy().cmdA);
    EXPECT_EQ(depth, 3);
    EXPECT_TRUE(Gone);
    EXPECT_EQ(Windows.RunningHandlers(), 0);
}

TEST_F(WindowTableTest, AFailureNamesTheInnermostHandler) {
    Windows.Load("frmBusy");
    Windows.Load("frmSample");
    auto& sample = static_cast<SampleForm&>(*Windows.Find("frmSample"));
    sample.OnAny("txtA_Change", [](const EventArgs&) { throw Failure(FailureKind::Overflow, "NumX"); });
    Busy().Act = [&](BusyForm&) { SetText(sample.txtA, "x"); };
    EXPECT_FALSE(Dispatch(Services_.Screen, "frmBusy.cmdA_Click", [&] { Press(Busy().cmdA); }));
    EXPECT_EQ(Services_.Screen.Failures, Texts{"Overflow in frmSample.txtA_Change: NumX"});
    EXPECT_EQ(Windows.RunningHandlers(), 0);
    EXPECT_EQ(sample.txtA.Text, "x") << "state changed so far stays";
}

TEST_F(WindowTableTest, DispatchNamesTheActWhereNoHandlerRan) {
    EXPECT_FALSE(Dispatch(Services_.Screen, "frmA.cmdB_Click", [] { throw Failure(FailureKind::PathNotFound, "x"); }));
    EXPECT_EQ(Services_.Screen.Failures, Texts{"PathNotFound in frmA.cmdB_Click: x"});
    EXPECT_TRUE(Dispatch(Services_.Screen, "frmA.cmdB_Click", [] {}));
}

TEST_F(WindowTableTest, DispatchShowsOtherExceptionsToo) {
    EXPECT_FALSE(Dispatch(Services_.Screen, "a", [] { throw std::bad_alloc(); }));
    EXPECT_FALSE(Dispatch(Services_.Screen, "a", [] { throw std::length_error("long"); }));
    EXPECT_FALSE(Dispatch(Services_.Screen, "a", [] { throw std::runtime_error("strange"); }));
    EXPECT_EQ(Services_.Screen.Failures,
              (Texts{"OutOfMemory in a: memory", "OutOfMemory in a: long", "InvalidCall in a: strange"}));
    EXPECT_THROW(Dispatch(Services_.Screen, "a", [] { throw ExitProgram{}; }), ExitProgram);
}

TEST_F(WindowTableTest, TellShowsABoxWithOneButton) {
    const std::shared_ptr<Form> form = Windows.Load("frmSample");
    Tell(*form, "text");
    Tell(*form, "text", "title");
    ASSERT_EQ(Services_.Screen.Boxes.size(), 2U);
    EXPECT_EQ(Services_.Screen.Boxes[0].Title, "");
    EXPECT_EQ(Services_.Screen.Boxes[1].Title, "title");
    EXPECT_EQ(Services_.Screen.Boxes[1].Buttons, std::vector<Button>{Button::Ok});
}

}  // namespace
}  // namespace crownlab
