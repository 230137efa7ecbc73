#include "surfer/digitise_sites.h"

#include <algorithm>
#include <array>

#include "basis/failure.h"

namespace crownlab {
namespace {

constexpr BoundaryKind kNone = BoundaryKind::None;
constexpr BoundaryKind kRing = BoundaryKind::Ring;
constexpr BoundaryKind kLine = BoundaryKind::Line;

constexpr auto kSites = std::to_array<DigitiseSite>({
    {"frmRotateAll", "area", "Use 'Digitise' to define area of tooth to rotate.", "digit.dat", "_tap.dat", kRing,
     "_tap.bln"},
    {"frmCuspOR", "vector", "Use 'Digitise' to define two points along occlusal vector.", "digit1.dat", "_ovp.dat",
     kNone, "", 2},
    {"frmCuspOR", "profile", "Use 'Digitise' to define profile of groove.", "digit.dat", "_Profp.dat", kNone,
     "_Profp.bln", 2},
    {"frmCurvature", "vector", "Use 'Digitise' to define occlusal vector with two points.", "digit.dat", "OV.dat",
     kNone, "", 2},
    {"frmCurvature", "profile", "Use 'Digitise' to define slice profile.", "digit.dat", ".dat", kLine, ".bln"},
    {"frmCurvature", "corner", "Use 'Digitise' to define bottom left corner of cusp area.", "digit.dat", ".dat", kNone,
     ".bln", 1},
    {"frmCurvature", "area", "Use 'Digitise' to define irregular area.", "digit.dat", ".dat", kRing, ".bln"},
    {"frmCuspVol", "cusp", "Use 'Digitise' to outline cusp.", "digit.dat", "points.dat", kRing, "points.bln"},
    {"frmPlaneFit", "tips", "Use 'Digitise' to define two cusp tips.", "digit.dat", "_ctp.dat", kNone, "", 2},
    {"frmPlaneFit", "points", "Use 'Digitise' to define points to fit plane.", "digit.dat", "pl.dat"},
    {"frmRake", "area", "Use 'Digitise' to define cusp area.", "digit1.dat", "_cap.dat", kRing, "_cap.bln"},
    {"frmRake", "vector", "Use 'Digitise' to define occlusal vector.", "digit.dat", "_ovp.dat", kNone, "", 2},
    {"frmRake", "tips", "Use 'Digitise' to define two cusp tips.", "digit.dat", "_ctp.dat", kNone, "", 2},
    {"frmRake", "points",
     "Use 'Digitise' to define three points: \n1) point on crest to take rake angle from.\n2) point along crest. \n3) "
     "point on rake surface. ",
     "digit2.dat", ".dat", kNone, ".bln", 3},
    {"frmAppAng", "crest", "Use 'Digitise' to define crest.", "digit1.dat", "_crp.dat", kLine, "_crp.bln"},
    {"frmAppAng", "vector", "Use 'Digitise' to define occlusal vector.", "digit.dat", "_ovp.dat", kNone, "", 2},
    {"frmAppAng", "tips", "Use 'Digitise' to define cusp tips.", "digit.dat", "_ctp.dat", kNone, "", 2},
    {"frmCapture", "cusp", "Use 'Digitise' to define anterior and posterior of cusp area, and cusp tip.", "digit1.dat",
     "_CPlp.dat", kNone, "", 3},
    {"frmCapture", "crest", "Use 'Digitise' to define crest.", "digit2.dat", "_crp.dat", kLine, "_crp.bln"},
    {"frmCapture", "vector", "Use 'Digitise' to define occlusal vector.", "digit.dat", "_ovp.dat", kNone, "", 2},
    {"frmCapture", "tips", "Use 'Digitise' to define cusp tips.", "digit.dat", "_ctp.dat", kNone, "", 2},
    {"frmEnamOut", "outline", "Use 'Digitise' to define enamel outline #", "digit#.dat", "_crp.dat", kRing, "_crp.bln"},
    {"frmEnamOut", "vector", "Use 'Digitise' to define occlusal vector.", "digit.dat", "_ovp.dat", kNone, "", 2},
});

std::string WithNumber(std::string_view text, int number) {
    std::string filled(text);
    const std::size_t place = filled.find('#');
    if (place != std::string::npos) filled.replace(place, 1, std::to_string(number));
    return filled;
}

std::vector<std::string> Lines(std::string text) {
    std::vector<std::string> lines;
    for (std::size_t end = text.find('\n'); end != std::string::npos; end = text.find('\n')) {
        lines.push_back(text.substr(0, end));
        text.erase(0, end + 1);
    }
    lines.push_back(std::move(text));
    return lines;
}

}  // namespace

std::span<const DigitiseSite> DigitiseSites() { return kSites; }

DigitiseStep MakeDigitiseStep(std::string_view window, std::string_view what, const std::string& folder,
                              const std::string& base, int number) {
    const auto* const site = std::find_if(kSites.begin(), kSites.end(), [&](const DigitiseSite& candidate) {
        return candidate.Window == window && candidate.What == what;
    });
    if (site == kSites.end()) throw Failure(FailureKind::ObjectNotSet, std::string(window) + "." + std::string(what));
    return {.Folder = folder,
            .Base = base,
            .Prompt = Lines(WithNumber(site->Prompt, number)),
            .File = WithNumber(site->File, number),
            .CopySuffix = std::string(site->CopySuffix),
            .Boundary = site->Boundary,
            .BoundarySuffix = std::string(site->BoundarySuffix),
            .Points = site->Points};
}

}  // namespace crownlab
