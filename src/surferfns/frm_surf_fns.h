#pragma once

#include <string>

#include "forms/form.h"
#include "shell/file_batch.h"
#include "surferfns/plot_sheet.h"

namespace crownlab {

struct Session;
struct ShellState;

/// Common operations of the mapping program, over a list of grids.
struct FrmSurfFns : Form {
    FrmSurfFns(Services& services, ShellState& shell);

    ShellState& Shell;
    /// Entries 1 to FileCount count; what a person writes into txtNoFiles may differ from what the batch holds.
    FileBatch Batch;
    int FileCount = 0;

    Label lblDescription{*this, "lblDescription", "Automates several common Surfer functions."};

    // Chooser and batch.
    Label lblFileType{*this, "lblFileType", "File type"};
    ComboBox cmbFileType{
        *this, "cmbFileType", {"Surfer grid file (*.grd)", "Hawk text file (*.txt)", "Show all files (*.*)"}};
    DriveList Drive2{*this, "Drive2"};
    DirList Dir2{*this, "Dir2"};
    FileList File2{*this, "File2", "*.grd"};
    CommandButton DirC{*this, "DirC", "Dir"};
    CommandButton cmdRefreshDir{*this, "cmdRefreshDir", "Ref"};
    Label Label2{*this, "Label2"};
    TextBox Text2{*this, "Text2", "*.grd"};
    CommandButton cmdAddFilename{*this, "cmdAddFilename", "Add filename"};
    CommandButton cmdAddAllFilenames{*this, "cmdAddAllFilenames", "Add all filenames"};
    CommandButton cmdClearFilenames{*this, "cmdClearFilenames", "Clear filenames"};
    CheckBox chkClearFilenames{*this, "chkClearFilenames", "Clear filenames after fn", true};
    Label lblNoFiles{*this, "lblNoFiles", "No. files"};
    TextBox txtNoFiles{*this, "txtNoFiles", "0"};
    CheckBox chkStartSurfer{*this, "chkStartSurfer", "Start new Surfer (v8)"};
    CommandButton cmdExit{*this, "cmdExit", "Exit"};

    // Smoothing and curvature.
    Frame fraSmooth{*this, "fraSmooth", "Smooth grid"};
    CommandButton cmdSmooth{fraSmooth, "cmdSmooth", "Smooth"};
    OptionButton optDefFilter{fraSmooth, "optDefFilter", "Define filter"};
    OptionButton optPDFilter{fraSmooth, "optPDFilter", "Pre-defined filters (v8 only)", true};
    ComboBox cmbPDFilter{fraSmooth,
                         "cmbPDFilter",
                         {"Moving average (nxn)", "Distance weighting (nxn)", "Inverse distance (nxn)",
                          "Gaussian LP (nxn)", "5 node + average (5x5)", "5 node x average (5x5)",
                          "9 node average (3x3)", "Gaussian (3x3)", "Low pass 1 (3x3)", "Low pass 2 (3x3)",
                          "Low pass 3 (3x3)", "High pass 1 (3x3)", "High pass 2 (3x3)", "High pass 3 (3x3)"}};
    Label lblFilterSize{fraSmooth, "lblFilterSize", "Filter size (n)"};
    TextBox txtFilterSize{fraSmooth, "txtFilterSize", "3"};
    Label lblWeight{fraSmooth, "lblWeight", "Weight/power"};
    TextBox txtWeight{fraSmooth, "txtWeight", "3"};
    Label lblCWeight{fraSmooth, "lblCWeight", "Central weight"};
    TextBox txtCWeight{fraSmooth, "txtCWeight", "3"};
    Label lblNoTimes{fraSmooth, "lblNoTimes", "No. times"};
    TextBox txtNoTimes{fraSmooth, "txtNoTimes", "1"};
    CheckBox chkCurvature{fraSmooth, "chkCurvature", "Curvature"};

    // Whole-grid processes.
    Frame fraProcess{*this, "fraProcess", "Process grid"};
    CommandButton cmdProcess{fraProcess, "cmdProcess", "Process"};
    OptionButton optTerrain{fraProcess, "optTerrain", "Terrain"};
    ComboBox cmbProcess{fraProcess, "cmbProcess", {"Terrain slope", "Terrain aspect"}};
    Label lblTAMinSlope{fraProcess, "lblTAMinSlope", "Terrain aspect min slope"};
    TextBox txtTAMinSlope{fraProcess, "txtTAMinSlope", "10"};
    OptionButton optMirror{fraProcess, "optMirror", "Mirror", true};
    Frame fraMirror{fraProcess, "fraMirror"};
    OptionButton optMirrorX{fraMirror, "optMirrorX", "X", true};
    OptionButton optMirrorY{fraMirror, "optMirrorY", "Y"};
    OptionButton optMirrorZ{fraMirror, "optMirrorZ", "Z"};
    OptionButton optRotate{fraProcess, "optRotate", "Rotate CW"};
    Frame fraRotate{fraProcess, "fraRotate"};
    OptionButton optRotate90{fraRotate, "optRotate90", "90", true};
    OptionButton optRotate180{fraRotate, "optRotate180", "180"};
    OptionButton optRotate270{fraRotate, "optRotate270", "270"};
    OptionButton optInverse{fraProcess, "optInverse", "Inverse"};
    OptionButton optMouldRotate{fraProcess, "optMouldRotate", "Mould rotation"};

    // Regrid and resolution.
    Frame fraRegrid{*this, "fraRegrid", "Regrid at exact resolution"};
    CommandButton cmdRegridExactResol{fraRegrid, "cmdRegridExactResol", "Regrid"};
    OptionButton optRegridGrd{fraRegrid, "optRegridGrd", "Use grid files", true};
    OptionButton optRegridTxt{fraRegrid, "optRegridTxt", "Use txt files"};
    Label lblRegridDelChar{fraRegrid, "lblRegridDelChar", "Del from grd fname"};
    TextBox txtRegridDelChar{fraRegrid, "txtRegridDelChar", "1"};
    Label lblExactNoRC{fraRegrid, "lblExactNoRC", "Exact no. rows/cols"};
    TextBox txtExactNoRC{fraRegrid, "txtExactNoRC", "150"};
    Frame fraFixResolution{*this, "fraFixResolution", "Round spacing and origin"};
    CommandButton cmdFixResolution{fraFixResolution, "cmdFixResolution", "Fix resolution"};
    Label lblVolumeFolder{fraFixResolution, "lblVolumeFolder", "Folder of volume.dat (v6):"};
    /// Names the folder in which version 6 leaves its volume figures. No handler changes it.
    Label Label1{fraFixResolution, "Label1", "Occlusal vector"};

    // Blank and extract.
    Frame fraBlank{*this, "fraBlank", "Digitise and blank area"};
    CommandButton cmdBlank{fraBlank, "cmdBlank", "Blank"};
    OptionButton optBlankOutside{fraBlank, "optBlankOutside", "Outside", true};
    OptionButton optBlankInside{fraBlank, "optBlankInside", "Inside"};
    OptionButton optBlankMultiInside{fraBlank, "optBlankMultiInside", "Multiple inside (bubbles)"};
    CheckBox chkMultiBlankRegrid{fraBlank, "chkMultiBlankRegrid", "Regrid and blank"};
    CheckBox chkBlankUseBlnFile{fraBlank, "chkBlankUseBlnFile", "Use existing bln file"};
    Label lblBlankDelChar{fraBlank, "lblBlankDelChar", "Del. no. char. from grd fname (same fname=0, del. 'b150'=4)"};
    TextBox txtBlankDelChar{fraBlank, "txtBlankDelChar", "4"};
    Frame fraExtract{*this, "fraExtract", "Extract smaller grid"};
    CommandButton cmdExtract{fraExtract, "cmdExtract", "Extract"};
    CheckBox chkRedArea{fraExtract, "chkRedArea", "Reduce grid area"};
    Frame fraRedArea{fraExtract, "fraRedArea"};
    OptionButton optRedAreaDig{fraRedArea, "optRedAreaDig", "Digitise area"};
    OptionButton optRedAreaMax{fraRedArea, "optRedAreaMax", "Max unblanked area", true};
    CheckBox chkRedRow{fraExtract, "chkRedRow", "Reduce no. row/col"};
    Frame fraRedRow{fraExtract, "fraRedRow"};
    OptionButton optRedRowFactor{fraRedRow, "optRedRowFactor", "Factor", true};
    TextBox txtRedRowFactor{fraRedRow, "txtRedRowFactor", "2"};
    OptionButton optRedRowMax{fraRedRow, "optRedRowMax", "Max no."};
    TextBox txtRedRowMax{fraRedRow, "txtRedRowMax", "100"};

    // Rezero and compare.
    Frame fraReZero{*this, "fraReZero", "Rezero grid"};
    CommandButton cmdReZero{fraReZero, "cmdReZero", "Rezero"};
    Frame fraCompare{*this, "fraCompare", "Compare two grids"};
    Label lblCompare{fraCompare, "lblCompare",
                     "Compares each grid with the next grid added, e.g. a topographic grid with a plane grid."};
    CommandButton cmdCompareGrids{fraCompare, "cmdCompareGrids", "Compare"};
    OptionButton optCompareMax{fraCompare, "optCompareMax", "Maximum", true};
    OptionButton optCompareMin{fraCompare, "optCompareMin", "Minimum"};
    Label lblCompGridOutGridText{fraCompare, "lblCompGridOutGridText", "Add to output filename"};
    TextBox txtCompGridOutGridText{fraCompare, "txtCompGridOutGridText", "_top+plane"};

    // Area and volume.
    Frame fraCalculate{*this, "fraCalculate", "Calculate"};
    CommandButton cmdSAVol{fraCalculate, "cmdSAVol", "SA and Vol"};

    // Plot sheets.
    Frame fraPlot{*this, "fraPlot", "Plot output"};
    CheckBox chkPlotSurfer{fraPlot, "chkPlotSurfer", "Plot in Surfer", true};
    CheckBox chkLabelSurfer{fraPlot, "chkLabelSurfer", "Label", true};
    CheckBox chkShowAxes{fraPlot, "chkShowAxes", "Show axes", true};
    CheckBox chkScaleBar{fraPlot, "chkScaleBar", "Scale bar"};
    TextBox txtScaleBar{fraPlot, "txtScaleBar", "0.05"};
    OptionButton optRelief{fraPlot, "optRelief", "Relief", true};
    OptionButton optContour{fraPlot, "optContour", "Contour"};
    OptionButton optImage{fraPlot, "optImage", "Image"};
    OptionButton opt3DSurface{fraPlot, "opt3DSurface", "3D surface"};
    Label lblNoInPlotRow{fraPlot, "lblNoInPlotRow", "No. in row"};
    TextBox txtNoInPlotRow{fraPlot, "txtNoInPlotRow", "6"};
    Label lblPlotSpacX{fraPlot, "lblPlotSpacX", "Spacing X"};
    TextBox txtPlotSpacX{fraPlot, "txtPlotSpacX", "18"};
    Label lblPlotSpacY{fraPlot, "lblPlotSpacY", "Spacing Y"};
    TextBox txtPlotSpacY{fraPlot, "txtPlotSpacY", "18"};
    Frame fraLighting{fraPlot, "fraLighting", "Lighting"};
    Label lblAzimuth{fraLighting, "lblAzimuth", "Azimuth"};
    TextBox txtAzimuth{fraLighting, "txtAzimuth", "135"};
    Label lblZenith{fraLighting, "lblZenith", "Zenith"};
    TextBox txtZenith{fraLighting, "txtZenith", "45"};
    Frame fraProjection{fraPlot, "fraProjection", "Projection"};
    OptionButton optProjP{fraProjection, "optProjP", "Pers", true};
    OptionButton optProjO{fraProjection, "optProjO", "Orth"};
    Frame fraView{fraPlot, "fraView", "View"};
    Label lblRot{fraView, "lblRot", "Rotation"};
    TextBox txtRot{fraView, "txtRot", "45"};
    Label lblTilt{fraView, "lblTilt", "Tilt"};
    TextBox txtTilt{fraView, "txtTilt", "30"};
    Label lblPresetViews{fraPlot, "lblPresetViews", "Preset views"};
    CommandButton cmdPresetA{fraPlot, "cmdPresetA", "Above"};
    CommandButton cmdPresetD{fraPlot, "cmdPresetD", "Default"};
    CommandButton cmdPlotGrid{fraPlot, "cmdPlotGrid", "Plot grid"};
};

// Frame (frm_surf_fns.cpp).
void cmdAddFilename_Click(FrmSurfFns& form);
void cmdAddAllFilenames_Click(FrmSurfFns& form);
void cmdClearFilenames_Click(FrmSurfFns& form);
void cmdRefreshDir_Click(FrmSurfFns& form);
Session& SessionOf(FrmSurfFns& form);
/// The start of every tool: pointer, session, FileCount from its box, and the selected name if it is 0.
void StartTool(FrmSurfFns& form);
/// The end of every tool: an empty batch and the normal pointer.
void EndTool(FrmSurfFns& form);
/// The same for the tools that leave the batch alone where chkClearFilenames is clear.
void EndToolAsChosen(FrmSurfFns& form);
/// Shows a message that ends a tool; the pointer is normal by then, and the batch stays.
void Refuse(FrmSurfFns& form, const std::string& text, const std::string& title = {});
/// The file at that place of the batch, from 1. SubscriptOutOfRange.
BatchFile& FileAt(FrmSurfFns& form, int place);

// Plots (frm_surf_fns_plot.cpp).
/// The type of map that the option buttons name.
int ChosenPlotType(const FrmSurfFns& form);
/// Plots a grid as map number `slot` of the sheet, as the window's controls say.
void PlotSurfer(FrmSurfFns& form, const std::string& gridPath, const std::string& baseName, int plotType, int slot = 1);

// Tools; each runs over the files of the batch.
void cmdSmooth_Click(FrmSurfFns& form);
void chkCurvature_Click(FrmSurfFns& form);
void cmdRegridExactResol_Click(FrmSurfFns& form);
void cmdFixResolution_Click(FrmSurfFns& form);
void cmdSAVol_Click(FrmSurfFns& form);
void cmdPlotGrid_Click(FrmSurfFns& form);
void cmdProcess_Click(FrmSurfFns& form);
void cmdBlank_Click(FrmSurfFns& form);
void cmdExtract_Click(FrmSurfFns& form);
void cmdReZero_Click(FrmSurfFns& form);
void cmdCompareGrids_Click(FrmSurfFns& form);

// Each file of the window ties its own handlers to their controls.
void RegisterSmooth(FrmSurfFns& form);
void RegisterRegrid(FrmSurfFns& form);
void RegisterFixResolution(FrmSurfFns& form);
void RegisterArea(FrmSurfFns& form);
void RegisterPlot(FrmSurfFns& form);
void RegisterProcess(FrmSurfFns& form);
void RegisterBlank(FrmSurfFns& form);
void RegisterExtract(FrmSurfFns& form);
void RegisterLevel(FrmSurfFns& form);

}  // namespace crownlab
