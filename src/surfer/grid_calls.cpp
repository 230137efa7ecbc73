#include "surfer/grid_calls.h"

#include "surfer/session.h"

namespace crownlab {

void BlankGrid(const Session& session, const std::string& inGrid, const std::string& blankFile,
               const std::string& outGrid) {
    if (session.IsSix()) session.SurferApp.Call("GridBlank", {inGrid, blankFile, outGrid, 1});
    if (!session.IsEight()) return;
    session.SurferApp.Call("GridBlank", {{"InGrid", inGrid}, {"BlankFile", blankFile}, {"OutGrid", outGrid}});
}

void ConvertGridByPosition(const Session& session, const std::string& inGrid, const std::string& outFile) {
    if (session.IsSix()) session.SurferApp.Call("GridConvert", {inGrid, outFile, 3});
    if (session.IsEight()) session.SurferApp.Call("GridConvert", {inGrid, outFile, 4});
}

void ConvertGridByName(const Session& session, const std::string& inGrid, const std::string& outFile) {
    if (session.IsSix()) session.SurferApp.Call("GridConvert", {inGrid, outFile, 3});
    if (!session.IsEight()) return;
    session.SurferApp.Call("GridConvert", {{"InGrid", inGrid}, {"OutGrid", outFile}, {"OutFmt", 4}});
}

void MirrorGrid(const Session& session, const std::string& inGrid, GridMirror mirror, const std::string& outGrid) {
    const int operation = mirror == GridMirror::Columns ? 4 : 5;
    session.SurferApp.Call("GridTransform", {{"InGrid", inGrid}, {"Operation", operation}, {"OutGrid", outGrid}});
}

void RotateGrid(const Session& session, const std::string& inGrid, double degrees, const std::string& outGrid) {
    session.SurferApp.Call("GridTransform",
                           {{"InGrid", inGrid}, {"Operation", 3}, {"Rotation", degrees}, {"OutGrid", outGrid}});
}

void OffsetGrid(const Session& session, const std::string& inGrid, double x, double y, const std::string& outGrid) {
    session.SurferApp.Call(
        "GridTransform", {{"InGrid", inGrid}, {"Operation", 1}, {"XOffset", x}, {"YOffset", y}, {"OutGrid", outGrid}});
}

void TerrainSlope(const Session& session, const std::string& inGrid, const std::string& outGrid) {
    const Argument none{Absent{}};
    if (session.IsSix()) session.SurferApp.Call("GridCalculus", {inGrid, 1, none, none, 0, none, none, none, outGrid});
    if (!session.IsEight()) return;
    session.SurferApp.Call("GridCalculus", {{"InGrid", inGrid}, {"Operation", 4}, {"OutGrid", outGrid}});
}

void TerrainAspect(const Session& session, const std::string& inGrid, double minSlope, const std::string& outGrid) {
    const Argument none{Absent{}};
    if (session.IsSix()) session.SurferApp.Call("GridCalculus", {inGrid, 1, none, none, 1, none, none, none, outGrid});
    if (!session.IsEight()) return;
    session.SurferApp.Call(
        "GridCalculus",
        {{"InGrid", inGrid}, {"Operation", 5}, {"Param1", minSlope}, {"OutGrid", outGrid}, {"OutFmt", 3}});
}

void ExtractGrid(const Session& session, const std::string& inGrid, const GridPart& range, double step,
                 const std::string& outGrid) {
    if (session.IsSix()) {
        session.SurferApp.Call("GridExtract", {inGrid, range.FirstRow, range.FirstColumn, range.LastRow,
                                               range.LastColumn, step, step, outGrid});
    }
    if (!session.IsEight()) return;
    session.SurferApp.Call("GridExtract", {{"InGrid", inGrid},
                                           {"r1", range.FirstRow},
                                           {"r2", range.LastRow},
                                           {"rFreq", step},
                                           {"c1", range.FirstColumn},
                                           {"c2", range.LastColumn},
                                           {"cFreq", step},
                                           {"OutGrid", outGrid}});
}

void GridFormula(const Session& session, const std::string& function, const std::string& inGridA,
                 const std::string& inGridB, const std::string& outGridC) {
    if (session.IsSix()) {
        const Argument second = inGridB.empty() ? Argument(Absent{}) : Argument(inGridB);
        session.SurferApp.Call("GridMath", {inGridA, second, outGridC, Absent{}, function});
    }
    if (!session.IsEight()) return;
    Arguments arguments{{"Function", function}, {"InGridA", inGridA}};
    if (!inGridB.empty()) arguments.emplace_back("InGridB", inGridB);
    arguments.emplace_back("OutGridC", outGridC);
    session.SurferApp.Call("GridMath", arguments);
}

void GridPoints(const Session& session, const std::string& dataFile, const GridShape& nodes, GriddingMethod method,
                const std::string& outGrid, const std::string& exclude) {
    const bool kriging = method == GriddingMethod::Kriging;
    if (session.IsSix()) {
        session.SurferApp.Call("GridData",
                               {dataFile, 0, 1, 2, nodes.XMin, nodes.XMax, nodes.YMin, nodes.YMax, nodes.NumCols,
                                nodes.NumRows, Absent{}, Absent{}, kriging ? 1 : 6, outGrid});
    }
    if (!session.IsEight()) return;
    Arguments arguments{{"DataFile", dataFile},
                        {"XCol", 1},
                        {"yCol", 2},
                        {"zCol", 3},
                        {"NumCols", nodes.NumCols},
                        {"NumRows", nodes.NumRows},
                        {"XMin", nodes.XMin},
                        {"XMax", nodes.XMax},
                        {"YMin", nodes.YMin},
                        {"YMax", nodes.YMax},
                        {"Algorithm", kriging ? 2 : 9},
                        {"ShowReport", false},
                        {"OutGrid", outGrid}};
    if (!exclude.empty()) arguments.emplace_back("ExclusionFilter", exclude);
    session.SurferApp.Call("GridData", arguments);
}

}  // namespace crownlab
