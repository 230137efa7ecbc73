#pragma once

#include "forms/form.h"
#include "shell/file_batch.h"
#include "surfer/automation.h"

namespace crownlab {

struct ShellState;

/// The batch front end of all converters: it gathers files, and decides which converter runs over them.
struct FrmConversion : Form {
    FrmConversion(Services& services, ShellState& shell);

    ShellState& Shell;
    FileBatch Batch;
    /// Count of the batch's names. The converters take it from its box before they begin.
    int NoFiles = 0;
    /// The file that is worked on, from 1; a map's place on the sheet.
    int CurrentFile = 0;
    std::string FileExtension;   ///< last four characters of the name added last
    std::string OutputAddition;  ///< goes behind the base name in outputs; as it was when the last name was added
    LateBound SurferApp;         ///< this window's own session

    // What becomes what.
    Label lblFromFileType{*this, "lblFromFileType", "From"};
    ComboBox cmbFromFileType{
        *this,
        "cmbFromFileType",
        {"Tiff text file (*.txt)", "Text file (Hawk) (*.txt)", "CSV file (*.csv,*.dat)", "Surfer grid file (*.grd)",
         "Picza file (*.pix)", "VRML file (*.wrl)", "Show all files (*.*)"}};
    Label lblToFileType{*this, "lblToFileType", "To"};
    ComboBox cmbToFileType{*this, "cmbToFileType"};
    CommandButton cmdConvert{*this, "cmdConvert", "Convert"};
    CommandButton cmdExit{*this, "cmdExit", "Exit"};

    // Chooser and batch.
    DriveList Drive1{*this, "Drive1"};
    DirList Dir1{*this, "Dir1"};
    FileList File1{*this, "File1"};
    CommandButton Command3{*this, "Command3", "Dir"};
    TextBox txtPath{*this, "txtPath"};
    TextBox Text1{*this, "Text1"};
    CommandButton cmdAddFilename{*this, "cmdAddFilename", "Add filename"};
    CommandButton cmdAddAllFilenames{*this, "cmdAddAllFilenames", "Add all filenames"};
    CommandButton cmdClearFilenames{*this, "cmdClearFilenames", "Clear filenames"};
    Label lblNoFiles{*this, "lblNoFiles", "No. files"};
    TextBox txtNoFiles{*this, "txtNoFiles", "0"};
    Label lblProgress{*this, "lblProgress", "Progress"};
    TextBox txtProgress{*this, "txtProgress"};
    Label lblCurrentFilename{*this, "lblCurrentFilename", "Current file"};
    TextBox txtCurrentFilename{*this, "txtCurrentFilename"};
    CheckBox chkAddOutText{*this, "chkAddOutText", "Add to output filename"};
    TextBox txtAddOutText{*this, "txtAddOutText", "_"};
    CheckBox chkStartSurfer{*this, "chkStartSurfer", "Start new Surfer (v8)"};

    // Plot.
    Frame Frame3{*this, "Frame3", "Plot output"};
    CheckBox chkPlotSurfer{Frame3, "chkPlotSurfer", "Plot in Surfer"};
    OptionButton optRelief{Frame3, "optRelief", "Relief", true};
    OptionButton optContour{Frame3, "optContour", "Contour"};
    OptionButton optImage{Frame3, "optImage", "Image"};
    OptionButton opt3DSurface{Frame3, "opt3DSurface", "3D surface"};
    CheckBox chkLabelSurfer{Frame3, "chkLabelSurfer", "Label"};

    // Points to grid.
    Frame Frame4{*this, "Frame4", "Gridding method (TXT to GRD)"};
    OptionButton optKrig{Frame4, "optKrig", "Kriging", true};
    OptionButton optInvDist{Frame4, "optInvDist", "Inverse distance"};
    CheckBox chkMould{Frame4, "chkMould", "Mould scan"};
    Frame Frame5{*this, "Frame5", "Method"};
    OptionButton optInterval{Frame5, "optInterval", "Intervals", true};
    Label lblXInt{Frame5, "lblXInt", "X"};
    TextBox txtXInt{Frame5, "txtXInt", "0.030"};
    Label lblYInt{Frame5, "lblYInt", "Y"};
    TextBox txtYInt{Frame5, "txtYInt", "0.030"};
    OptionButton optMaxNoRows{Frame5, "optMaxNoRows", "Max. no. rows/cols"};
    TextBox txtMaxNoRows{Frame5, "txtMaxNoRows", "200"};
    CommandButton cmdExamineFile{*this, "cmdExamineFile", "Examine first file"};
    Label lblNoPts{*this, "lblNoPts", "No. pts"};
    TextBox txtNoPts{*this, "txtNoPts"};
    Label lblRX{*this, "lblRX", "X range"};
    TextBox txtRXMin{*this, "txtRXMin"};
    TextBox txtRXMax{*this, "txtRXMax"};
    Label lblRY{*this, "lblRY", "Y range"};
    TextBox txtRYMin{*this, "txtRYMin"};
    TextBox txtRYMax{*this, "txtRYMax"};
    Label lblNoOutputPts{*this, "lblNoOutputPts", "No. output pts"};
    TextBox txtNoOutputPts{*this, "txtNoOutputPts"};

    // Text of an image: its page says what the numbers of the text are in map units.
    TabControl SSTab1{*this, "SSTab1"};
    TabPage SSTab1_Page0{SSTab1, "SSTab1_Page0", "Field of view"};
    OptionButton optInFOV{SSTab1_Page0, "optInFOV", "Field of view", true};
    Label lblX_Field{SSTab1_Page0, "lblX_Field", "X field of view"};
    TextBox X_Field{SSTab1_Page0, "X_Field"};
    Label lblY_Field{SSTab1_Page0, "lblY_Field", "Y field of view"};
    TextBox Y_Field{SSTab1_Page0, "Y_Field"};
    Label lblZ_Field{SSTab1_Page0, "lblZ_Field", "Z range (0 to 255)"};
    TextBox Z_Field{SSTab1_Page0, "Z_Field"};
    TabPage SSTab1_Page1{SSTab1, "SSTab1_Page1", "Voxel size"};
    OptionButton optInVox{SSTab1_Page1, "optInVox", "Voxel size"};
    Label lblX_Input_Int{SSTab1_Page1, "lblX_Input_Int", "X voxel size"};
    TextBox X_Input_Int{SSTab1_Page1, "X_Input_Int"};
    Label lblY_Input_Int{SSTab1_Page1, "lblY_Input_Int", "Y voxel size"};
    TextBox Y_Input_Int{SSTab1_Page1, "Y_Input_Int"};
    Label lblZ_Input_Height{SSTab1_Page1, "lblZ_Input_Height", "Z height (0 to 255)"};
    TextBox Z_Input_Height{SSTab1_Page1, "Z_Input_Height"};
    TabPage SSTab1_Page2{SSTab1, "SSTab1_Page2", "Grid"};
    OptionButton optInGRD{SSTab1_Page2, "optInGRD", "Surfer grid"};
    Label lblInGRD{SSTab1_Page2, "lblInGRD",
                   "A grid has its own units and needs no sizes. A Tiff text needs one of the other two pages."};

    // Models.
    Frame Frame1{*this, "Frame1", "Convert to WRL options"};
    CheckBox chkMorphoBrWRL{Frame1, "chkMorphoBrWRL", "MorphoBrowser wrl format"};
    OptionButton optOutAuto{Frame1, "optOutAuto", "Auto", true};
    OptionButton optOutmm{Frame1, "optOutmm", "mm"};
    OptionButton optOutum{Frame1, "optOutum", "µm"};

    // Grid to points.
    Frame Frame6{*this, "Frame6", "GRD to DAT options"};
    CheckBox chkRemoveBPts{Frame6, "chkRemoveBPts", "Remove blanked points"};
    CheckBox chkRenameExt{Frame6, "chkRenameExt", "Rename as"};
    TextBox txtRenameExt{Frame6, "txtRenameExt", ".txt"};

    // Picza.
    Frame Frame2{*this, "Frame2", "Format (Picza to CSV)"};
    OptionButton Option3{Frame2, "Option3", "Full CSV (all data pts)", true};
    OptionButton Option4{Frame2, "Option4", "Part CSV (only Picza pts)"};
};

void cmbFromFileType_Click(FrmConversion& form);
void cmdAddFilename_Click(FrmConversion& form);
void cmdAddAllFilenames_Click(FrmConversion& form);
void cmdClearFilenames_Click(FrmConversion& form);
void cmdConvert_Click(FrmConversion& form);
void cmdExamineFile_Click(FrmConversion& form);
void SSTab1_Click(FrmConversion& form);

// Each file of the window ties its own handlers to their controls.
void RegisterExamine(FrmConversion& form);
void RegisterConvert(FrmConversion& form);

}  // namespace crownlab
