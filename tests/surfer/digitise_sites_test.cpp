#include "surfer/digitise_sites.h"

#include <gtest/gtest.h>

#include <set>
#include <string>

#include "support/expect_failure.h"

namespace crownlab {
namespace {

TEST(DigitiseSites, EachPlaceIsToldOnce) {
    std::set<std::string> seen;
    for (const DigitiseSite& site : DigitiseSites()) {
        EXPECT_TRUE(seen.insert(std::string(site.Window) + "." + std::string(site.What)).second) << site.What;
        EXPECT_TRUE(site.Prompt.starts_with("Use 'Digitise' to ")) << site.Prompt;
        EXPECT_EQ(site.Boundary != BoundaryKind::None && site.BoundarySuffix.empty(), false) << site.What;
    }
    EXPECT_EQ(seen.size(), 23U);
}

TEST(DigitiseSites, AStepHasItsNames) {
    const DigitiseStep step = MakeDigitiseStep("frmCapture", "crest", "/teeth/", "m1");
    EXPECT_EQ(step.Prompt, std::vector<std::string>{"Use 'Digitise' to define crest."});
    EXPECT_EQ(step.DigitPath(), "/teeth/digit2.dat");
    EXPECT_EQ(step.CopyPath(), "/teeth/m1_crp.dat");
    EXPECT_EQ(step.BoundaryPath(), "/teeth/m1_crp.bln");
    EXPECT_EQ(step.Boundary, BoundaryKind::Line);
    EXPECT_EQ(step.Points, 0);
}

TEST(DigitiseSites, ALongPromptHasAllItsLines) {
    const DigitiseStep step = MakeDigitiseStep("frmRake", "points", "", "m1");
    EXPECT_EQ(step.Prompt, (std::vector<std::string>{
                               "Use 'Digitise' to define three points: ", "1) point on crest to take rake angle from.",
                               "2) point along crest. ", "3) point on rake surface. "}));
    EXPECT_EQ(step.Points, 3);
}

TEST(DigitiseSites, AnOutlineHasItsNumber) {
    const DigitiseStep step = MakeDigitiseStep("frmEnamOut", "outline", "", "m1", 12);
    EXPECT_EQ(step.Prompt, std::vector<std::string>{"Use 'Digitise' to define enamel outline 12"});
    EXPECT_EQ(step.File, "digit12.dat");
    EXPECT_EQ(step.Boundary, BoundaryKind::Ring);
}

TEST(DigitiseSites, AnUnknownPlaceFails) {
    EXPECT_TRUE(FailsWith(FailureKind::ObjectNotSet, [] { MakeDigitiseStep("frmRake", "nothing", "", ""); }));
}

}  // namespace
}  // namespace crownlab
