#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "formats/point_text.h"
#include "forms/form.h"
#include "shell/file_batch.h"

namespace crownlab {

struct ShellState;

/// The tools that clean, decimate and measure point clouds.
struct FrmPtCloud : Form {
    FrmPtCloud(Services& services, ShellState& shell);

    ShellState& Shell;
    FileBatch Batch;
    /// Grids that cmdBlank and cmdExtract read and write, one a file of the batch.
    std::vector<std::string> GridInPath;
    std::vector<std::string> GridOutPath;

    Label lblDescription{*this, "lblDescription",
                         "Carries out cleaning and decimating of point clouds, including removing undercuts."};

    // Chooser and batch.
    Label lblFileType{*this, "lblFileType", "File type"};
    ComboBox cmbFileType{
        *this, "cmbFileType", {"Text file (*.txt,*.dat)", "VRML file Polygons (*.wrl)", "Show all files (*.*)"}};
    DriveList Drive2{*this, "Drive2"};
    DirList Dir2{*this, "Dir2"};
    FileList File2{*this, "File2", "*.txt;*.dat"};
    CommandButton DirC{*this, "DirC", "Dir"};
    Label Label2{*this, "Label2"};
    TextBox Text2{*this, "Text2", "*.txt,*.dat"};
    CommandButton cmdAddFilename{*this, "cmdAddFilename", "Add filename"};
    CommandButton cmdClearFilenames{*this, "cmdClearFilenames", "Clear filenames"};
    Label lblNoFiles{*this, "lblNoFiles", "No. files"};
    TextBox txtNoFiles{*this, "txtNoFiles", "0"};
    Label lblNoPts{*this, "lblNoPts", "No. points in file"};
    TextBox txtNoPts{*this, "txtNoPts"};
    Label lblNoPtsPrcd{*this, "lblNoPtsPrcd", "Points processed"};
    TextBox txtNoPtsPrcd{*this, "txtNoPtsPrcd"};
    ProgressBar pbarPtsPrcd{*this, "pbarPtsPrcd"};
    CommandButton cmdExit{*this, "cmdExit", "Exit"};

    // Surfer.
    Frame fraSurfer{*this, "fraSurfer", "Surfer"};
    CheckBox chkStartSurfer{fraSurfer, "chkStartSurfer", "Start new Surfer (v8)"};
    CheckBox chkPlotSurfer{fraSurfer, "chkPlotSurfer", "Plot in Surfer", true};
    CheckBox chkLabelSurfer{fraSurfer, "chkLabelSurfer", "Label", true};
    OptionButton optRelief{fraSurfer, "optRelief", "Relief", true};
    OptionButton optContour{fraSurfer, "optContour", "Contour"};

    // Undercuts.
    Frame fraUndercuts{*this, "fraUndercuts", "Undercuts"};
    CommandButton cmdRemoveUndercuts{fraUndercuts, "cmdRemoveUndercuts", "Remove undercuts"};
    Label lblSearchRadius{fraUndercuts, "lblSearchRadius", "Primary search radius"};
    TextBox txtSearchRadius{fraUndercuts, "txtSearchRadius", "0.020"};
    CheckBox chkDefaultSet{fraUndercuts, "chkDefaultSet", "Use default settings", true};
    CheckBox chkWriteRej{fraUndercuts, "chkWriteRej", "Write rejected points to sep file", true};
    CheckBox chkMould{*this, "chkMould", "Mould scan"};
    Frame Frame8{fraUndercuts, "Frame8", "Advanced settings"};
    Label lblBinSize{Frame8, "lblBinSize", "Bin size"};
    TextBox txtBinSize{Frame8, "txtBinSize", "0.030"};
    Label txtSearchRadInc{Frame8, "txtSearchRadInc", "Inc search radius by prop of radius"};
    TextBox txtSearchRadiusInc{Frame8, "txtSearchRadiusInc", "0.25"};
    CheckBox chkFindNeigh{Frame8, "chkFindNeigh", "Always find neighbour", true};
    OptionButton optThresh{Frame8, "optThresh", "Threshold of height from max height", true};
    TextBox txtThresh{Frame8, "txtThresh", "0.05"};
    OptionButton optProp{Frame8, "optProp", "Proportion of max height in search area"};
    TextBox txtProp{Frame8, "txtProp", "0.9"};

    // Outline.
    Frame fraOutline{*this, "fraOutline", "Blanking outline"};
    CommandButton cmdCreateBlankingFile{fraOutline, "cmdCreateBlankingFile", "Create blanking file"};
    Label lblBlnBinSize{fraOutline, "lblBlnBinSize", "Bin size"};
    TextBox txtBlnBinSize{fraOutline, "txtBlnBinSize", "0.1"};
    CheckBox chkBlankedAreaPts{fraOutline, "chkBlankedAreaPts", "Create points file with points in blanked area", true};

    // Points to VRML polygons.
    Frame fraPointsToWrl{*this, "fraPointsToWrl", "Points to VRML polygons"};
    Label lblPointsToWrl{fraPointsToWrl, "lblPointsToWrl", "Input points file, then wrl polygon file"};
    CommandButton cmdPointsToWrl{fraPointsToWrl, "cmdPointsToWrl", "Convert"};
    OptionButton optXYZT{fraPointsToWrl, "optXYZT", "x,y,z,t", true};
    OptionButton optXYZ{fraPointsToWrl, "optXYZ", "x,y,z"};
    CheckBox chkOnlyPolyPts{fraPointsToWrl, "chkOnlyPolyPts", "Only write to file points used in polygons", true};

    // Enamel thickness.
    Frame fraEnamThick{*this, "fraEnamThick", "Enamel thickness"};
    Label lblEnamThick{fraEnamThick, "lblEnamThick",
                       "Input surface of interest point cloud file first, then surface to find distance to"};
    CommandButton cmdEnamThickCalc{fraEnamThick, "cmdEnamThickCalc", "Calculate"};
    Label lblBinSizeE{fraEnamThick, "lblBinSizeE", "Bin size"};
    TextBox txtBinSizeE{fraEnamThick, "txtBinSizeE", "0.25"};

    // Join and tip calibration.
    Frame fraJoin{*this, "fraJoin", "Join"};
    CommandButton cmdJoinFiles{fraJoin, "cmdJoinFiles", "Join files"};
    CheckBox chkReZero{fraJoin, "chkReZero", "Re-zero x,y,z after joined", true};
    Frame fraTipCal{*this, "fraTipCal", "Tip calibration"};
    CommandButton cmdTipCal{fraTipCal, "cmdTipCal", "Adjust for tip calibration"};
    Label lblTipNo{fraTipCal, "lblTipNo", "Tip"};
    ComboBox cmbTipNo{
        fraTipCal, "cmbTipNo", {"t0", "t5", "t8", "t1", "t2", "t3", "t4", "t6", "t7", "t9", "t10", "t11", "t12"}};
    Label lblTipCalX{fraTipCal, "lblTipCalX", "x"};
    TextBox txtTipCalX{fraTipCal, "txtTipCalX", "0.000"};
    Label lblTipCalY{fraTipCal, "lblTipCalY", "y"};
    TextBox txtTipCalY{fraTipCal, "txtTipCalY", "0.000"};
    Label lblTipCalZ{fraTipCal, "lblTipCalZ", "z"};
    TextBox txtTipCalZ{fraTipCal, "txtTipCalZ", "0.000"};

    // Blank and extract.
    Frame fraBlank{*this, "fraBlank", "Blank area"};
    CommandButton cmdBlank{fraBlank, "cmdBlank", "Digitise and blank grid"};
    OptionButton optBlankOutside{fraBlank, "optBlankOutside", "Outside", true};
    OptionButton optBlankInside{fraBlank, "optBlankInside", "Inside"};
    Frame fraExtract{*this, "fraExtract", "Extract"};
    CommandButton cmdExtract{fraExtract, "cmdExtract", "Extract smaller grid"};
    CheckBox chkRedArea{fraExtract, "chkRedArea", "Reduce grid area"};
    CheckBox chkRedRow{fraExtract, "chkRedRow", "Reduce no. rows/cols"};
    TextBox txtRedRow{fraExtract, "txtRedRow", "2"};
    Label lblVolumeFolder{fraExtract, "lblVolumeFolder", "Folder of volume.dat (v6):"};
    /// Names the folder in which version 6 leaves its volume figures. No handler changes it.
    Label Label1{fraExtract, "Label1", "Occlusal vector"};
};

// Frame (frm_pt_cloud.cpp).
void cmdAddFilename_Click(FrmPtCloud& form);
void cmdClearFilenames_Click(FrmPtCloud& form);
/// Adds the selected name if the batch is empty, as the one-file tools do first.
void AddIfNoFiles(FrmPtCloud& form);
/// Sets the progress bar to the start of a run over `total` points.
void StartProgress(FrmPtCloud& form, std::size_t total);
/// Shows a running count when it is a multiple of 100 or the total, and redraws the window then.
void ShowProgress(FrmPtCloud& form, std::size_t done, std::size_t total);

// Tools; each runs over the files of the batch.
void cmdRemoveUndercuts_Click(FrmPtCloud& form);
void chkDefaultSet_Click(FrmPtCloud& form);
void cmdCreateBlankingFile_Click(FrmPtCloud& form);
void cmdPointsToWrl_Click(FrmPtCloud& form);
void cmdEnamThickCalc_Click(FrmPtCloud& form);
void cmdJoinFiles_Click(FrmPtCloud& form);
void cmdTipCal_Click(FrmPtCloud& form);
void cmbTipNo_Click(FrmPtCloud& form);
void cmdBlank_Click(FrmPtCloud& form);
void cmdExtract_Click(FrmPtCloud& form);

// Each file of the window ties its own handlers to their controls.
void RegisterUndercuts(FrmPtCloud& form);
void RegisterOutline(FrmPtCloud& form);
void RegisterPointsToWrl(FrmPtCloud& form);
void RegisterThickness(FrmPtCloud& form);
void RegisterJoin(FrmPtCloud& form);
void RegisterGridTools(FrmPtCloud& form);

}  // namespace crownlab
