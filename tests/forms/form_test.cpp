#include "forms/form.h"

#include <gtest/gtest.h>

#include <stdexcept>

#include "forms/sample_form.h"
#include "support/test_desk.h"

namespace crownlab {
namespace {

struct TwoOfAName : Form {
    explicit TwoOfAName(Services& services) : Form(services, "frmTwo", "Two") {}
    TextBox First{*this, "txtA"};
    TextBox Second{*this, "txtA"};
};

TEST(Form, FindsItsControlsByName) {
    TestServices services;
    SampleForm form(services.Ties);
    ASSERT_NE(form.Find("txtA"), nullptr);
    EXPECT_EQ(&Base(*form.Find("txtA")), &form.txtA);
    EXPECT_EQ(form.Find("txta"), nullptr);
    EXPECT_EQ(form.Find(""), nullptr);
    EXPECT_EQ(&Base(form.Controls().front()), &form.txtA) << "in the order of their declaration";
}

TEST(Form, RefusesTwoControlsOfOneName) {
    TestServices services;
    EXPECT_THROW(TwoOfAName{services.Ties}, std::logic_error);
}

TEST(Form, RefusesAHandlerWithoutItsControl) {
    TestServices services;
    SampleForm form(services.Ties);
    EXPECT_THROW(form.OnAny("cmdGone_Click", [](const EventArgs&) {}), std::logic_error);
    EXPECT_NO_THROW(form.OnAny("Form_Resize", [](const EventArgs&) {}));
    EXPECT_TRUE(form.HasHandler("txtA_Change"));
    EXPECT_FALSE(form.HasHandler("txtA_Click"));
}

TEST(Controls, KnowWhatLiesAroundThem) {
    TestServices services;
    SampleForm form(services.Ties);
    EXPECT_EQ(form.txtA.Container, nullptr);
    EXPECT_EQ(form.optA.Container, &form.fraA);
    EXPECT_EQ(form.txtInner.Container, &form.fraInner);
    EXPECT_EQ(form.txtOnPage.Container, &form.pagA);
    EXPECT_EQ(form.pagA.Container, &form.tabA);
    EXPECT_EQ(form.mnuB.Container, &form.mnuA);
    EXPECT_EQ(form.tabA.Pages, (std::vector<TabPage*>{&form.pagA, &form.pagB}));
}

TEST(Controls, AreUsableUnlessTheyOrAContainerAreOff) {
    TestServices services;
    SampleForm form(services.Ties);
    EXPECT_TRUE(IsUsable(form.txtInner));
    form.fraA.Enabled = false;
    EXPECT_FALSE(IsUsable(form.txtInner));
    EXPECT_FALSE(IsUsable(form.optA));
    EXPECT_TRUE(IsUsable(form.optC));
    form.fraA.Enabled = true;
    form.fraInner.Visible = false;
    EXPECT_FALSE(IsUsable(form.txtInner));
    EXPECT_TRUE(IsUsable(form.optA));
    form.txtA.Enabled = false;
    EXPECT_FALSE(IsUsable(form.txtA));
    form.tabA.Index = 1;
    EXPECT_TRUE(IsUsable(form.txtOnPage)) << "another page in front doesn't hide it";
}

TEST(Controls, StartAsTheyAreDeclared) {
    TestServices services;
    SampleForm form(services.Ties);
    EXPECT_EQ(form.txtA.Text, "first");
    EXPECT_EQ(form.txtInner.Number(), 12.5);
    EXPECT_EQ(form.txtA.Number(), 0);
    EXPECT_EQ(form.cmbA.Selected, -1);
    EXPECT_EQ(form.cmbA.Text(), "");
    EXPECT_EQ(form.scrA.Value, 10) << "a bar starts at its minimum";
    EXPECT_FALSE(form.proA.Visible);
    EXPECT_EQ(form.lblA.ForeColour, kButtonTextColour);
}

TEST(Controls, ASelectionOutsideTheListShowsNothing) {
    TestServices services;
    SampleForm form(services.Ties);
    form.cmbA.Selected = 2;
    EXPECT_EQ(form.cmbA.Text(), "");
    form.cmbA.Selected = 1;
    EXPECT_EQ(form.cmbA.Text(), "two");
}

}  // namespace
}  // namespace crownlab
