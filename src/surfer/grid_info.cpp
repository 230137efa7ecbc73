#include "surfer/grid_info.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <filesystem>
#include <system_error>

#include "basis/field_reader.h"
#include "basis/paths.h"
#include "basis/rounding.h"
#include "basis/text.h"
#include "formats/point_extents.h"
#include "forms/form.h"
#include "surfer/session.h"

namespace crownlab {
namespace {

constexpr double kFarAway = 1'000'000;
constexpr std::size_t kExtensionLength = 4;

/// What passing over the nodes of a grid's text gathers.
struct NodeScan {
    std::uint64_t Count = 0;
    double FirstX = 0;
    double FirstY = 0;
    double SpacingX = 0;
    double SpacingY = 0;
    double XMin = kFarAway;
    double XMax = -kFarAway;
    double YMin = kFarAway;
    double YMax = -kFarAway;
};

/// The first two points give the x spacing, the first change of y ends the first row.
void TakePosition(NodeScan& scan, Session& session, double x, double y) {
    constexpr int decimals = 6;
    ++scan.Count;
    if (scan.Count == 1) {
        scan.FirstX = x;
        scan.FirstY = y;
    } else if (scan.Count == 2) {
        scan.SpacingX = std::fabs(scan.FirstX - x);
    }
    if (scan.SpacingY == 0 && y != scan.FirstY) {
        scan.SpacingY = std::fabs(RoundDecimals(scan.FirstY - y, decimals));
        session.KeptColumns = static_cast<double>(scan.Count - 1);
    }
    scan.XMin = std::min(scan.XMin, x);
    scan.XMax = std::max(scan.XMax, x);
    scan.YMin = std::min(scan.YMin, y);
    scan.YMax = std::max(scan.YMax, y);
}

void TakeHeight(Session& session, HeightLimits& own, bool& any, double z) {
    if (!(z < kBlankHeightFrom)) return;
    session.KeptZMin = std::min(session.KeptZMin, z);
    session.KeptZMax = std::max(session.KeptZMax, z);
    own.Low = any ? std::min(own.Low, z) : z;
    own.High = any ? std::max(own.High, z) : z;
    any = true;
}

void ConvertToText(const Session& session, const std::string& grid, const std::string& text) {
    if (session.IsSix()) session.SurferApp.Call("GridConvert", {grid, text, 3});
    if (session.IsEight()) session.SurferApp.Call("GridConvert", {{"InGrid", grid}, {"OutGrid", text}, {"OutFmt", 4}});
}

}  // namespace

HeightLimits ReadGridInfo(Session& session, Services& app, const std::string& gridFile) {
    session.SurferApp = AttachSurfer(session, *app.Windows);
    if (session.IsEight()) session.SurferApp.Set("Visible", true);
    const std::string text = LessLast(gridFile, kExtensionLength, "grid file") + "temp.dat";
    ConvertToText(session, gridFile, text);
    NodeScan scan;
    HeightLimits own;
    bool any = false;
    {
        const FileText content = ReadFileText(text);
        FieldReader reader(content.View(), text);
        while (!reader.NothingLeft()) {
            const double x = reader.ReadNumber();
            const double y = reader.ReadNumber();
            const double z = reader.ReadNumber();
            TakePosition(scan, session, x, y);
            TakeHeight(session, own, any, z);
        }
    }
    GridInfo info;
    info(1) = session.KeptColumns;
    info(5) = ToInt16(Divide(static_cast<double>(scan.Count), info(1), "number of columns"), "number of rows");
    info(2) = scan.XMin;
    info(3) = scan.XMax;
    info(4) = scan.SpacingX;
    info(6) = scan.YMin;
    info(7) = scan.YMax;
    info(8) = scan.SpacingY;
    info(9) = session.KeptZMin;
    info(10) = session.KeptZMax;
    session.Info = info;
    std::error_code ignored;
    std::filesystem::remove(text, ignored);
    return own;
}

}  // namespace crownlab
