#include "shell/frm_about.h"

#include "basis/paths.h"
#include "forms/window_table.h"

namespace crownlab {

FrmAbout::FrmAbout(Services& services) : Form(services, "frmAbout", "About") {
    On("Form_Load", [](FrmAbout& form) { Form_Load(form); });
    On("Command1_Click", [](FrmAbout& form) { Command1_Click(form); });
}

void Form_Load(FrmAbout& form) { form.Label5.Caption = "Created: " + FileTimeText(CROWNLAB_EXECUTABLE); }

void Command1_Click(FrmAbout& form) { form.App.Windows->Unload(form.Name); }

}  // namespace crownlab
