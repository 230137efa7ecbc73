#pragma once

#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <vector>

#include "mapengine/grid_file.h"
#include "mapengine/map_engine.h"
#include "support/expect_failure.h"
#include "support/temp_folder.h"

namespace crownlab {

/// A front end that notes what the engine tells it.
class NotingHost : public EngineHost {
public:
    void CallRuns(std::string_view, double) override { ++Runs; }
    void CallEnded() override { ++Ends; }
    void SetClipboardText(const std::string& text) override { Clipboard = text; }

    int Runs = 0;
    int Ends = 0;
    std::string Clipboard;
};

/// The engine as tools reach it, in a folder of its own.
class EngineTest : public ::testing::Test {
protected:
    LateBound Six() { return Objects.Attach("Surfer.APP"); }
    LateBound Eight() { return Objects.Attach("Surfer.Application"); }

    /// A grid of 4 by 3 nodes, x 0 to 6, y 10 to 13, z = column + 10 row.
    std::string PutGrid(const std::string& name = "a.grd") {
        Grid grid(GridGeometry{.Columns = 4, .Rows = 3, .XMin = 0, .XMax = 6, .YMin = 10, .YMax = 13});
        for (int row = 0; row < 3; ++row) {
            for (int column = 0; column < 4; ++column) grid.At(column, row) = column + 10 * row;
        }
        FileTable files;
        WriteGrid(files, name, grid, GridFormat::Binary64);
        return name;
    }

    static ::testing::AssertionResult Fails(const std::function<void()>& act, const std::string& words) {
        return FailsWith(FailureKind::AutomationFailed, act, words);
    }

    /// The last plot document that stands open.
    const PlotDocument& Plot() { return *Engine.Session().ActivePlot(); }
    const PlotMap& Map(std::size_t index = 0) { return std::get<PlotMap>(Plot().Shapes.at(index)); }
    const PlotText& Text(std::size_t index) { return std::get<PlotText>(Plot().Shapes.at(index)); }

    /// A position that isn't given.
    const Argument None{Absent{}};
    TempFolder Folder;
    NotingHost Host;
    MapEngine Engine{Host};
    ActiveObjects Objects{Engine};
};

}  // namespace crownlab
