#include "convert/frm_conversion.h"

#include <algorithm>
#include <array>

#include "basis/failure.h"
#include "convert/file_types.h"
#include "forms/acts.h"
#include "forms/desk.h"
#include "forms/window_table.h"
#include "shell/chooser.h"

namespace crownlab {
namespace {

Chooser Lists(FrmConversion& form) { return {form.Drive1, form.Dir1, form.File1, &form.txtPath, &form.Text1}; }

void File1_Click(FrmConversion& form) { FileChosen(Lists(form)); }

void Form_Load(FrmConversion& form) {
    form.NoFiles = 0;
    form.txtPath.Text = form.Dir1.Path;
}

bool IsNoName(const std::string& name) {
    constexpr std::array<const char*, 5> patterns{"*.pix", "*.dat", "*.csv", "*.grd", "*.txt"};
    return name.empty() || std::find(patterns.begin(), patterns.end(), name) != patterns.end();
}

/// Puts a name behind those that the count tells of. A converter may have taken another count from its box, where
/// people can type: a smaller one cuts the list off, a larger one tells of names that aren't there.
void Append(FrmConversion& form, const BatchFile& file) {
    if (form.NoFiles < 0 || form.NoFiles > static_cast<int>(form.Batch.size())) {
        throw Failure(FailureKind::SubscriptOutOfRange, "txtNoFiles");
    }
    form.Batch.resize(static_cast<std::size_t>(form.NoFiles));
    form.Batch.push_back(file);
    ++form.NoFiles;
}

/// The three options lie on pages of their own; selecting one clears the others all the same.
void SelectInput(FrmConversion& form, OptionButton& chosen) {
    for (OptionButton* const option : {&form.optInFOV, &form.optInVox, &form.optInGRD}) {
        option->Selected = option == &chosen;
    }
}

void RegisterChooser(FrmConversion& form) {
    form.On(
        "Drive1_Change", +[](FrmConversion& f) { DriveChosen(Lists(f)); });
    form.On(
        "Dir1_Change", +[](FrmConversion& f) { FolderChosen(Lists(f)); });
    form.On("File1_Click", File1_Click);
    form.On("File1_DblClick", cmdAddFilename_Click);
    form.On(
        "Command3_Click", +[](FrmConversion& f) { GoToDefaultDir(f.Shell, Lists(f)); });
    form.On("cmbFromFileType_Click", cmbFromFileType_Click);
}

void RegisterInputPages(FrmConversion& form) {
    form.On("SSTab1_Click", SSTab1_Click);
    form.On(
        "optInFOV_Click", +[](FrmConversion& f) { SelectInput(f, f.optInFOV); });
    form.On(
        "optInVox_Click", +[](FrmConversion& f) { SelectInput(f, f.optInVox); });
    form.On(
        "optInGRD_Click", +[](FrmConversion& f) { SelectInput(f, f.optInGRD); });
}

}  // namespace

FrmConversion::FrmConversion(Services& services, ShellState& shell)
    : Form(services, "frmConversion", "File Format Conversion"), Shell(shell) {
    On("Form_Load", Form_Load);
    RegisterChooser(*this);
    RegisterInputPages(*this);
    On("cmdAddFilename_Click", cmdAddFilename_Click);
    On("cmdAddAllFilenames_Click", cmdAddAllFilenames_Click);
    On("cmdClearFilenames_Click", cmdClearFilenames_Click);
    On(
        "cmdExit_Click", +[](FrmConversion& form) { form.App.Windows->Unload(form.Name); });
    RegisterExamine(*this);
    RegisterConvert(*this);
}

void cmbFromFileType_Click(FrmConversion& form) {
    form.cmbToFileType.Items.clear();
    form.cmbToFileType.Selected = -1;
    const SourceType* const type = FindSourceType(form.cmbFromFileType.Text());
    if (type == nullptr) return;
    form.cmbToFileType.Items.assign(type->Targets.begin(), type->Targets.end());
    SetPattern(form.File1, type->Pattern);
}

void cmdAddFilename_Click(FrmConversion& form) {
    if (IsNoName(form.Text1.Text)) {
        form.MousePointer = kPointerNormal;
        return Tell(form, "Choose filename", "Filename");
    }
    if (form.NoFiles > 0 && Contains(form.Batch, form.File1.Path, form.Text1.Text)) {
        return Tell(form, "Filename already added", "Filename");
    }
    const BatchFile file = MakeBatchFile(form.File1.Path, form.Text1.Text);
    Append(form, file);
    form.FileExtension = file.Ext;
    form.OutputAddition = form.chkAddOutText.Checked ? form.txtAddOutText.Text : std::string();
    form.txtNoFiles.Text = std::to_string(form.NoFiles);
}

void cmdAddAllFilenames_Click(FrmConversion& form) {
    Refresh(form.File1);
    // A copy: a message about a name lets others of the window's lists be read meanwhile.
    const std::vector<std::string> names = form.File1.Entries;
    if (names.empty()) return;
    const auto choose = [&form](const std::string& name) {
        form.File1.FileName = name;
        Fire(form.File1, "Click");
    };
    for (const std::string& name : names) {
        choose(name);
        cmdAddFilename_Click(form);
    }
    choose(names.front());
}

void cmdClearFilenames_Click(FrmConversion& form) {
    form.MousePointer = kPointerHourglass;
    form.NoFiles = 0;
    form.Batch.clear();
    form.txtNoFiles.Text = "0";
    form.MousePointer = kPointerNormal;
}

void SSTab1_Click(FrmConversion& form) {
    const std::array<OptionButton*, 3> options{&form.optInFOV, &form.optInVox, &form.optInGRD};
    SelectInput(form, *options.at(static_cast<std::size_t>(form.SSTab1.Index)));
}

}  // namespace crownlab
