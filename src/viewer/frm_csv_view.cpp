#include "viewer/frm_csv_view.h"

#include <array>

#include "basis/rounding.h"
#include "forms/window_table.h"
#include "shell/chooser.h"
#include "viewer/frm_csv_view_handlers.h"

namespace crownlab {
namespace {

Chooser Lists(FrmCSVView& form) { return {form.Drive1, form.Dir1, form.File1, &form.Path, &form.Text1}; }

void File1_Click(FrmCSVView& form) {
    FileChosen(Lists(form));
    if (form.chkViewOnClick.Checked) cmdReadCSV_Click(form);
}

void RegisterChooser(FrmCSVView& form) {
    form.On(
        "Drive1_Change", +[](FrmCSVView& f) { DriveChosen(Lists(f)); });
    form.On(
        "Dir1_Change", +[](FrmCSVView& f) { FolderChosen(Lists(f)); });
    form.On("File1_Click", File1_Click);
    form.On("File1_DblClick", cmdReadCSV_Click);
    form.On(
        "Command3_Click", +[](FrmCSVView& f) { GoToDefaultDir(f.Shell, Lists(f)); });
    form.On(
        "cmdExit_Click", +[](FrmCSVView& f) { f.App.Windows->Unload(f.Name); });
}

}  // namespace

FrmCSVView::FrmCSVView(Services& services, ShellState& shell)
    : Form(services, "frmCSVView", "CSV Viewer"), Shell(shell) {
    picBoxU.OffScreen = true;
    RegisterChooser(*this);
    RegisterReading(*this);
    RegisterDisplay(*this);
    RegisterAspectSlope(*this);
    RegisterClump(*this);
    RegisterProcessing(*this);
    RegisterStatistics(*this);
    RegisterMultiTooth(*this);
    RegisterModelFiles(*this);
    RegisterOutputs(*this);
    RegisterBatch(*this);
    On(
        "Form_Load", +[](FrmCSVView& form) {
            form.Path.Text = form.Dir1.Path;
            form.cmbPicBoxCopyFrom.Selected = 0;
            form.cmbPicBoxCopyTo.Selected = 2;
            TakeScrollBarValues(form);
            UpdateClumpName(form);
        });
}

PictureBox& FrmCSVView::SlotBox(int slot) {
    const std::array<PictureBox*, 4> boxes{&picBoxI1, &picBoxI2, &picBoxI3, &picBoxI4};
    if (slot < 1 || slot > 4) throw Failure(FailureKind::SubscriptOutOfRange, "picBoxI");
    return *boxes[static_cast<std::size_t>(slot - 1)];
}

TextBox& FrmCSVView::ParamBox(int parameter) {
    const std::array<TextBox*, 11> boxes{&txtParam1, &txtParam2, &txtParam3, &txtParam4,  &txtParam5, &txtParam6,
                                         &txtParam7, &txtParam8, &txtParam9, &txtParam10, &txtParam11};
    if (parameter < 1 || parameter > 11) throw Failure(FailureKind::SubscriptOutOfRange, "txtParam");
    return *boxes[static_cast<std::size_t>(parameter - 1)];
}

}  // namespace crownlab
