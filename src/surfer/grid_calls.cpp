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
                const std::string& outGrid) {
    const bool kriging = method == GriddingMethod::Kriging;
    if (session.IsSix()) {
        session.SurferApp.Call("GridData",
                               {dataFile, 0, 1, 2, nodes.XMin, nodes.XMax, nodes.YMin, nodes.YMax, nodes.NumCols,
                                nodes.NumRows, Absent{}, Absent{}, kriging ? 1 : 6, outGrid});
    }
    if (!session.IsEight()) return;
    session.SurferApp.Call("GridData", {{"DataFile", dataFile},
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
                                        {"OutGrid", outGrid}});
}

}  // namespace crownlab
