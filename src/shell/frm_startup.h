#pragma once

#include <span>

#include "forms/form.h"

namespace crownlab {

struct ShellState;

/// The main window. Its load is the start of the program.
struct FrmStartup : Form {
    FrmStartup(Services& services, ShellState& shell);

    ShellState& Shell;

    MenuItem mnuFile{*this, "mnuFile", "&File"};
    MenuItem mnuNew{mnuFile, "mnuNew", "&New"};
    MenuItem mnuDefDir{mnuFile, "mnuDefDir", "&Set default directory"};
    MenuItem mnuSurfVers{mnuFile, "mnuSurfVers", "Surfer &version"};
    MenuItem mnuSurf6{mnuSurfVers, "mnuSurf6", "Surfer6", true, false};
    MenuItem mnuSurf8{mnuSurfVers, "mnuSurf8", "Surfer8", true, true};
    MenuItem mnuStartSurfer{mnuFile, "mnuStartSurfer", "S&tart Surfer"};
    MenuItem mnuExit{mnuFile, "mnuExit", "E&xit"};
    MenuItem mnuUtilities{*this, "mnuUtilities", "&Utilities"};
    MenuItem mnuConversion{mnuUtilities, "mnuConversion", "&File format conversion"};
    MenuItem mnuSurfFns{mnuUtilities, "mnuSurfFns", "&Surfer Functions"};
    MenuItem mnuCSVView{mnuUtilities, "mnuCSVView", "&CSV viewer"};
    MenuItem mnuPtCloud{mnuUtilities, "mnuPtCloud", "&Point clouds"};
    MenuItem mnuToothFeat{*this, "mnuToothFeat", "&Tooth features"};
    MenuItem mnuAppAng{mnuToothFeat, "mnuAppAng", "&Approach angle"};
    MenuItem mnuCapture{mnuToothFeat, "mnuCapture", "&Capture area"};
    MenuItem mnuCurvSlice{mnuToothFeat, "mnuCurvSlice", "C&urvature"};
    MenuItem mnuCuspOR{mnuToothFeat, "mnuCuspOR", "Cusp &occlusion relief"};
    MenuItem mnuCuspVol{mnuToothFeat, "mnuCuspVol", "Cusp &volume"};
    MenuItem mnuRake{mnuToothFeat, "mnuRake", "&Rake angle"};
    MenuItem mnuOutlines{*this, "mnuOutlines", "&Outlines"};
    MenuItem mnuEnamel{mnuOutlines, "mnuEnamel", "Enamel ridge outlines"};
    MenuItem mnuPlane{*this, "mnuPlane", "&Plane"};
    MenuItem mnuPlaneFit{mnuPlane, "mnuPlaneFit", "&Plane fit"};
    MenuItem mnuTransform{*this, "mnuTransform", "Trans&form"};
    MenuItem mnuRotate{mnuTransform, "mnuRotate", "&Rotate"};
    MenuItem mnuLandmarks{*this, "mnuLandmarks", "&Landmarks"};
    MenuItem mnuLandFind{mnuLandmarks, "mnuLandFind", "&Land find"};
    MenuItem mnuHelp{*this, "mnuHelp", "&Help"};
    MenuItem mnuAbout{mnuHelp, "mnuAbout", "&About"};

    Label Label2{*this, "Label2", "Click on name for a description:"};
    Label lblConversion{*this, "lblConversion", "Conversion"};
    Label lblTooth{*this, "lblTooth", "Tooth features"};
    Label lblOutlines{*this, "lblOutlines", "Outlines"};
    Label lblPlane{*this, "lblPlane", "Plane"};
    Label lblLandmark{*this, "lblLandmark", "Landmark"};
    Label lblTransform{*this, "lblTransform", "Transform"};
    Label Label1{*this, "Label1", "Description:"};
    Label lblDescrip{*this, "lblDescrip"};
    Line Line1{*this, "Line1"};
    Line Line2{*this, "Line2"};
    Line Line3{*this, "Line3"};
    Line Line4{*this, "Line4"};
    CheckBox chkSurferPID{*this, "chkSurferPID", "Use Surfer PID"};
    TextBox txtSurferPID{*this, "txtSurferPID"};
};

/// Start of the program: reads the settings and sets the version menus. FileNotFound or InputPastEnd end it.
void Form_Load(FrmStartup& form);
/// Closes five tools and then ends the program by a failure: the sixth window it names doesn't exist.
void mnuNew_Click(FrmStartup& form);
void mnuSurf6_Click(FrmStartup& form);
void mnuSurf8_Click(FrmStartup& form);
void mnuExit_Click(FrmStartup& form);
void Label2_Click(FrmStartup& form);

/// A menu item of the main window and the window that it opens.
struct MenuWindow {
    const char* Item;
    const char* Window;
};
/// All of them in the order of the menus.
std::span<const MenuWindow> MenuWindows();

/// Gives all clickable names the system's button text colour.
void ResetLabelColours(FrmStartup& form);

}  // namespace crownlab
