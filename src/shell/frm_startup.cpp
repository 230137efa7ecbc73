#include "shell/frm_startup.h"

#include <array>

#include "basis/failure.h"
#include "basis/result_file.h"
#include "forms/desk.h"
#include "forms/window_table.h"
#include "shell/settings.h"
#include "shell/shell_state.h"
#include "surfer/session.h"

namespace crownlab {
namespace {

constexpr std::array<MenuWindow, 16> kMenuWindows{{
    {"mnuDefDir", "frmDefDir"},
    {"mnuConversion", "frmConversion"},
    {"mnuSurfFns", "frmSurfFns"},
    {"mnuCSVView", "frmCSVView"},
    {"mnuPtCloud", "frmPtCloud"},
    {"mnuAppAng", "frmAppAng"},
    {"mnuCapture", "frmCapture"},
    {"mnuCurvSlice", "frmCurvature"},
    {"mnuCuspOR", "frmCuspOR"},
    {"mnuCuspVol", "frmCuspVol"},
    {"mnuRake", "frmRake"},
    {"mnuEnamel", "frmEnamOut"},
    {"mnuPlaneFit", "frmPlaneFit"},
    {"mnuRotate", "frmRotateAll"},
    {"mnuLandFind", "frmLandFind"},
    {"mnuAbout", "frmAbout"},
}};

std::array<Label*, 6> ClickableNames(FrmStartup& form) {
    return {&form.lblConversion, &form.lblTooth,     &form.lblOutlines,
            &form.lblPlane,      &form.lblTransform, &form.lblLandmark};
}

void Describe(FrmStartup& form, Label& name, const char* description) {
    ResetLabelColours(form);
    name.ForeColour = kRed;
    form.lblDescrip.Caption = description;
}

/// Opens the tool's window, or says that this version has none of that name.
void OpenTool(FrmStartup& form, const std::string& window) {
    if (form.App.Windows->HasMaker(window)) {
        form.App.Windows->Show(window);
    } else {
        Tell(form, "This tool (" + window + ") is not part of this version yet.");
    }
}

void ChooseVersion(FrmStartup& form, MenuItem& chosen, MenuItem& other, const char* version) {
    chosen.Checked = true;
    other.Checked = false;
    form.Shell.Surfer->SurferVersion = version;
    SaveSettings(form.Shell);
}

void RegisterNames(FrmStartup& form) {
    form.On("lblConversion_Click", [](FrmStartup& f) {
        Describe(
            f, f.lblConversion,
            "Converts files between formats, e.g. comma-delimited files (*.csv), Surfer grid (*.grd), tiff text files "
            "(*.txt) and VRML files (*.wrl).");
    });
    form.On("lblLandmark_Click", [](FrmStartup& f) {
        Describe(f, f.lblLandmark,
                 "Captures landmark data from teeth in Surfer and performs translations and measures of variance and "
                 "accuracy.");
    });
    form.On("lblOutlines_Click", [](FrmStartup& f) {
        Describe(f, f.lblOutlines,
                 "Traces the enamel outlines from teeth in Surfer and translates the for use in 'Bitepath'.");
    });
    form.On("lblPlane_Click", [](FrmStartup& f) {
        Describe(f, f.lblPlane,
                 "Fits planes to points on teeth and allows comparison between plane surface and tooth surface.");
    });
    form.On("lblTooth_Click", [](FrmStartup& f) {
        Describe(f, f.lblTooth,
                 "Allows the calculation of several important functional features by interfacing with Surfer.");
    });
    form.On("lblTransform_Click", [](FrmStartup& f) {
        Describe(f, f.lblTransform, "Performs some transformations on topographic data not carried out in Surfer.");
    });
    form.On("Label2_Click", Label2_Click);
}

void RegisterTools(FrmStartup& form) {
    for (const MenuWindow& entry : kMenuWindows) {
        form.OnAny(std::string(entry.Item) + "_Click",
                   [&form, entry](const EventArgs&) { OpenTool(form, entry.Window); });
    }
    form.On("mnuStartSurfer_Click", [](FrmStartup& f) { StartSurfer(*f.Shell.Surfer, *f.App.Windows); });
}

}  // namespace

FrmStartup::FrmStartup(Services& services, ShellState& shell)
    : Form(services, "frmStartup", "The Crownlab"), Shell(shell) {
    On("Form_Load", [](FrmStartup& form) { Form_Load(form); });
    On("mnuNew_Click", mnuNew_Click);
    On("mnuSurf6_Click", mnuSurf6_Click);
    On("mnuSurf8_Click", mnuSurf8_Click);
    On("mnuExit_Click", mnuExit_Click);
    RegisterNames(*this);
    RegisterTools(*this);
}

void Form_Load(FrmStartup& form) {
    const SettingsLines lines = ReadSettings(form.Shell);
    form.Shell.DefaultDir = lines.DefaultDir;
    form.Shell.Surfer->SurferVersion = lines.VersionWord;
    form.Shell.Files->CloseAll();
    // Any other word leaves the menus as designed; that is the normal case after a change of version.
    if (lines.VersionWord == "SurferV6" || lines.VersionWord == "SurferV8") {
        form.mnuSurf6.Checked = lines.VersionWord == "SurferV6";
        form.mnuSurf8.Checked = !form.mnuSurf6.Checked;
    }
}

void mnuNew_Click(FrmStartup& form) {
    WindowTable& windows = *form.App.Windows;
    for (const char* const name : {"frmCurvature", "frmCuspVol", "frmLandFind", "frmPlaneFit", "frmRake"}) {
        if (!windows.HasMaker(name)) continue;
        windows.Load(name);
        windows.Unload(name);
    }
    throw Failure(FailureKind::ObjectNotSet, "sixth window");
}

void mnuSurf6_Click(FrmStartup& form) { ChooseVersion(form, form.mnuSurf6, form.mnuSurf8, "SurferV6"); }
void mnuSurf8_Click(FrmStartup& form) { ChooseVersion(form, form.mnuSurf8, form.mnuSurf6, "SurferV8"); }

void mnuExit_Click(FrmStartup&) { throw ExitProgram{}; }

void Label2_Click(FrmStartup& form) {
    ResetLabelColours(form);
    form.lblDescrip.Caption.clear();
}

std::span<const MenuWindow> MenuWindows() { return kMenuWindows; }

void ResetLabelColours(FrmStartup& form) {
    for (Label* const name : ClickableNames(form)) name->ForeColour = kButtonTextColour;
}

}  // namespace crownlab
