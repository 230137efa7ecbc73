#include "basis/number_text.h"
#include "basis/paths.h"
#include "basis/rounding.h"
#include "forms/desk.h"
#include "viewer/frm_csv_view.h"
#include "viewer/frm_csv_view_handlers.h"
#include "viewer/random_teeth.h"
#include "viewer/tooth_counts.h"

namespace crownlab {
namespace {

/// Counts that an extraction goes by: a ToothCount.csv kept under this name.
constexpr const char* kCountsOfSample = "netregu_e1000_ToothCount.csv";

std::vector<std::string> FilesToCount(const FrmCSVView& form) {
    if (!form.chkCTFilesAll.Checked) return {form.Text1.Text};
    std::vector<std::string> names = ListModelFiles(form.File1.Path);
    if (names.empty()) names.emplace_back(kDefaultModelFile);
    return names;
}

/// Takes `picks` teeth of one model file into the sample; returns how many.
std::size_t ExtractFrom(FrmCSVView& form, const ModelFileCount& model, std::int32_t picks, const std::string& stem) {
    if (picks == 0) return 0;
    const std::string path = JoinPath(form.File1.Path, model.File);
    const std::vector<double> numbers = PickTeeth(model.Count, picks, form.State.Random);
    const std::string text = ReadWholeFile(path);
    const std::vector<PickedTooth> teeth = FindTeeth(text, numbers, path);
    AppendToSample(*form.App.Files, model.File, teeth, stem + ".csv", stem + "_pos.csv");
    return teeth.size();
}

}  // namespace

void cmdCTFiles_Click(FrmCSVView& form) {
    form.MousePointer = kPointerHourglass;
    if (!form.chkCTFilesAll.Checked && NoFileChosen(form)) return;
    const std::string folder = form.File1.Path;
    std::vector<ModelFileCount> counts;
    for (const std::string& name : FilesToCount(form)) {
        form.txtTempCTFiles.Text = name;
        form.App.Screen->Redraw();
        counts.push_back({.File = name, .Count = CountTeeth(ReadWholeFile(JoinPath(folder, name)))});
    }
    WriteToothCounts(*form.App.Files, JoinPath(folder, "ToothCount.csv"), counts);
    form.MousePointer = kPointerNormal;
}

void cmdCTFExtract_Click(FrmCSVView& form) {
    form.MousePointer = kPointerHourglass;
    const std::vector<ModelFileCount> counts = ReadToothCounts(JoinPath(form.File1.Path, kCountsOfSample));
    const std::int32_t sampleSize = ToInt32(form.txtCTFENo.Number(), "sample size");
    const std::vector<std::int32_t> shares = SampleShares(counts, sampleSize);
    const std::string stem = JoinPath(form.File1.Path, "netregu_e" + GeneralText(sampleSize));
    SeedRandom(form.State.Random, PresentClock());
    std::size_t total = 0;
    for (std::size_t i = 0; i < counts.size(); ++i) {
        form.txtExtractCurr.Text = counts[i].File;
        form.App.Screen->Redraw();
        total += ExtractFrom(form, counts[i], shares[i], stem);
        form.txtExtractTotal.Text = GeneralText(static_cast<double>(total));
    }
    form.MousePointer = kPointerNormal;
}

void RegisterModelFiles(FrmCSVView& form) {
    form.On("cmdCTFiles_Click", cmdCTFiles_Click);
    form.On("cmdCTFExtract_Click", cmdCTFExtract_Click);
}

}  // namespace crownlab
