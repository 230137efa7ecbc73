#include <benchmark/benchmark.h>

#include <cstdio>

#include "application/application.h"
#include "basis/paths.h"
#include "bench_surfaces.h"
#include "forms/acts.h"
#include "viewer/clump.h"
#include "viewer/clump_files.h"
#include "viewer/frm_csv_view.h"

namespace crownlab::bench {
namespace {

/// Resident memory of the process in bytes.
double MemoryInUse() {
    long total = 0;
    long resident = 0;
    std::FILE* const file = std::fopen("/proc/self/statm", "r");
    if (file == nullptr) return 0;
    if (std::fscanf(file, "%ld %ld", &total, &resident) != 2) resident = 0;
    std::fclose(file);
    return static_cast<double>(resident) * 4096;
}

FrmCSVView& OpenViewer(Application& application) {
    application.Start();
    application.Windows().Show("frmCSVView");
    auto& form = static_cast<FrmCSVView&>(*application.Windows().Find("frmCSVView"));
    form.chkViewOnClick.Checked = false;
    return form;
}

/// The whole patch count as a press of the button runs it, with the orientation's picture and the slots.
void PatchCount(benchmark::State& state) {
    const ScratchFolder folder;
    const int side = static_cast<int>(state.range(0));
    // With few decimals a fine grid has level steps, and thousands of patches.
    WriteSurfaceText(SmoothSurface(side), folder.Path("surface.csv"), 12);
    const double before = MemoryInUse();
    SilentDesk desk;
    NoMappingProgram program;
    ActiveObjects objects(program);
    Application application(desk, folder.Folder(), objects);
    FrmCSVView& form = OpenViewer(application);
    SetPath(form.Dir1, folder.Folder());
    SelectEntry(form.File1, "surface.csv");
    form.chkClumpSaveImage.Checked = false;
    cmdReadCSV_Click(form);
    // Files are measured on their own: an unwritable name ends the run just before they are written.
    form.State.Names.Dir = "/dev/null/";
    bool counted = true;
    for (auto _ : state) {
        try {
            cmdProcClump_Click(form);
            counted = false;
        } catch (const Failure& failure) {
            counted = counted && failure.Kind() == FailureKind::PathNotFound;
        }
    }
    if (!counted || form.State.Clump.ClumpSizes.empty()) state.SkipWithError("the count didn't reach its files");
    const double cells = static_cast<double>(side) * side;
    state.counters["patches"] = static_cast<double>(form.State.Clump.ClumpSizes.size());
    state.counters["labels"] = form.State.NumLabels;
    state.counters["bytes_a_cell"] = (MemoryInUse() - before) / cells;
    state.SetComplexityN(side * side);
}
BENCHMARK(PatchCount)->Arg(500)->Arg(1000)->Arg(2000)->Unit(benchmark::kMillisecond)->Complexity();

/// Chains as deep as they get: every label equals the one before it.
void ShortenTable(benchmark::State& state) {
    const int labels = static_cast<int>(state.range(0));
    std::vector<std::int16_t> chain = EmptyEquivTable();
    for (int label = 2; label <= labels; ++label)
        chain[static_cast<std::size_t>(label)] = static_cast<std::int16_t>(label - 1);
    std::vector<std::int16_t> table;
    for (auto _ : state) {
        table = chain;
        ShortenEquivTable(table, labels, labels, 1);
        benchmark::DoNotOptimize(table.data());
    }
    if (table[static_cast<std::size_t>(labels)] != 1) state.SkipWithError("the chain wasn't shortened");
    state.SetComplexityN(labels);
}
BENCHMARK(ShortenTable)->Arg(1000)->Arg(3000)->Arg(9999)->Unit(benchmark::kMicrosecond)->Complexity();

void WriteCellsFile(benchmark::State& state) {
    const ScratchFolder folder;
    const int side = static_cast<int>(state.range(0));
    const SurfaceGrid surface = SmoothSurface(side);
    LabelGrid labels = EmptyLabels(side, side, surface.Places);
    for (std::size_t at = 0; at < labels.Labels.size(); ++at) {
        labels.Labels[at] = surface.Z[at] == kEmptyCellZ ? kNoLabel : static_cast<std::int16_t>(at % 300 + 1);
    }
    ClumpResult result;
    result.ClumpInfo = "bench";
    const ClumpReport report{
        .Folder = WithSeparator(folder.Folder()), .BaseName = "cells", .Result = &result, .Sizes = {}};
    FileTable files;
    for (auto _ : state) WriteClumpCells(files, report, labels);
    const std::string text = ReadWholeFile(folder.Path("cells-bench.csv"));
    if (text.empty() || text.substr(text.size() - 2) != "\r\n") state.SkipWithError("the file isn't whole");
    state.SetBytesProcessed(static_cast<std::int64_t>(text.size()) * static_cast<std::int64_t>(state.iterations()));
    state.SetComplexityN(side * side);
}
BENCHMARK(WriteCellsFile)->Arg(500)->Arg(1000)->Arg(2000)->Unit(benchmark::kMillisecond)->Complexity();

}  // namespace
}  // namespace crownlab::bench
