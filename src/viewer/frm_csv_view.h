#pragma once

#include "forms/form.h"
#include "viewer/viewer_state.h"

namespace crownlab {

struct ShellState;
enum class CellRule;

/// The viewer and analyser of tooth surfaces held as x, y, z text.
struct FrmCSVView : Form {
    FrmCSVView(Services& services, ShellState& shell);

    ShellState& Shell;
    ViewerState State;

    // File chooser and reading.
    DriveList Drive1{*this, "Drive1"};
    DirList Dir1{*this, "Dir1"};
    FileList File1{*this, "File1", "*.csv;*.dat;*.txt"};
    TextBox Path{*this, "Path"};
    TextBox Text1{*this, "Text1"};
    CommandButton Command3{*this, "Command3", "Dir"};
    CommandButton cmdReadCSV{*this, "cmdReadCSV", "Read CSV"};
    CommandButton cmdViewCSV{*this, "cmdViewCSV", "View CSV"};
    CommandButton cmdOutputCSV{*this, "cmdOutputCSV", "Output CSV"};
    CommandButton cmdExit{*this, "cmdExit", "Exit"};
    CheckBox chkViewOnClick{*this, "chkViewOnClick", "View on click", true};
    CheckBox chkOrigModelFile{*this, "chkOrigModelFile", "Original model file"};
    CheckBox chkThresholdB{*this, "chkThresholdB", "Threshold <="};
    TextBox txtThresholdB{*this, "txtThresholdB", "0"};

    Frame fraGridSize{*this, "fraGridSize", "Grid size"};
    OptionButton optDefaultGridSize{fraGridSize, "optDefaultGridSize", "Default (24 × 24)"};
    OptionButton optMinGridSize{fraGridSize, "optMinGridSize", "Minimum", true};
    OptionButton optMinGridSize1{fraGridSize, "optMinGridSize1", "Minimum + 1"};
    OptionButton optOtherGridSize{fraGridSize, "optOtherGridSize", "Other"};
    TextBox txtGridSizeX{fraGridSize, "txtGridSizeX"};
    Label lblGridSize{fraGridSize, "lblGridSize", "×"};
    TextBox txtGridSizeY{fraGridSize, "txtGridSizeY"};

    // Boxes. picBoxU is the off-screen raster from which image files are saved.
    PictureBox picBoxU{*this, "picBoxU"};
    PictureBox picBoxD{*this, "picBoxD", 313, 313};
    Label lblX_D{*this, "lblX_D"};
    Label lblY_D{*this, "lblY_D"};
    Label lblZ_D{*this, "lblZ_D"};
    Label lblXR_D{*this, "lblXR_D"};
    Label lblYR_D{*this, "lblYR_D"};
    Label lblZR_D{*this, "lblZR_D"};
    PictureBox picBoxW{*this, "picBoxW", 249, 249};
    Label lblX_W{*this, "lblX_W"};
    Label lblY_W{*this, "lblY_W"};
    Label lblZ_W{*this, "lblZ_W"};
    Label lblXR_W{*this, "lblXR_W"};
    Label lblYR_W{*this, "lblYR_W"};
    Label lblZR_W{*this, "lblZR_W"};
    PictureBox picBoxP{*this, "picBoxP", 249, 249};
    Label lblX_P{*this, "lblX_P"};
    Label lblY_P{*this, "lblY_P"};
    Label lblZ_P{*this, "lblZ_P"};
    Label lblXR_P{*this, "lblXR_P"};
    Label lblYR_P{*this, "lblYR_P"};
    Label lblZR_P{*this, "lblZR_P"};
    PictureBox picBoxI1{*this, "picBoxI(1)", 161, 161};
    PictureBox picBoxI2{*this, "picBoxI(2)", 161, 161};
    PictureBox picBoxI3{*this, "picBoxI(3)", 161, 161};
    PictureBox picBoxI4{*this, "picBoxI(4)", 161, 161};
    CommandButton cmdICopy{*this, "cmdICopy", "Copy to work"};
    Label lblCopyFrom{*this, "lblCopyFrom", "Copy box"};
    ComboBox cmbPicBoxCopyFrom{*this, "cmbPicBoxCopyFrom", {"W", "P", "1", "2", "3", "4"}};
    Label lblCopyTo{*this, "lblCopyTo", "to"};
    ComboBox cmbPicBoxCopyTo{*this, "cmbPicBoxCopyTo", {"W", "P", "1", "2", "3", "4"}};
    CommandButton cmdCopyPicBox{*this, "cmdCopyPicBox", "Copy"};

    // Orientation and slope.
    Frame fraAspectSlope{*this, "fraAspectSlope", "Orientation/slope"};
    OptionButton optProcAspect{fraAspectSlope, "optProcAspect", "Orientation", true};
    TextBox txtAspectNoCat{fraAspectSlope, "txtAspectNoCat", "8"};
    OptionButton optProcSlope{fraAspectSlope, "optProcSlope", "Slope"};
    TextBox txtSlopeNoCat{fraAspectSlope, "txtSlopeNoCat", "4"};
    OptionButton optProcShadRel{fraAspectSlope, "optProcShadRel", "ShadRel"};
    CheckBox chkUseMinSlope{fraAspectSlope, "chkUseMinSlope", "Min slope"};
    TextBox txtMinSlope{fraAspectSlope, "txtMinSlope", "10"};
    CheckBox chkVoidHoriz{fraAspectSlope, "chkVoidHoriz", "Void horiz areas"};
    CheckBox chkAspectSlopeSaveImage{fraAspectSlope, "chkAspectSlopeSaveImage", "Save o/s image", true};
    CommandButton cmdProcAspectSlope{fraAspectSlope, "cmdProcAspectSlope", "Curr. file"};
    CommandButton cmdProcAspectSlopeAllFiles{fraAspectSlope, "cmdProcAspectSlopeAllFiles", "All files"};

    Frame fraShadRel{*this, "fraShadRel", "Shaded relief"};
    Label lblSRHoriz{fraShadRel, "lblSRHoriz", "Horiz"};
    TextBox txtSRHoriz{fraShadRel, "txtSRHoriz", "315"};
    ScrollBar vscSRHoriz{fraShadRel, "vscSRHoriz", 0, 359};
    Label lblSRVert{fraShadRel, "lblSRVert", "Vert"};
    TextBox txtSRVert{fraShadRel, "txtSRVert", "45"};
    ScrollBar vscSRVert{fraShadRel, "vscSRVert", 0, 90};
    Label lblSRb{fraShadRel, "lblSRb", "b"};
    TextBox txtSRb{fraShadRel, "txtSRb", "5"};
    ScrollBar vscSRb{fraShadRel, "vscSRb", 0, 50};
    Label lblSRw{fraShadRel, "lblSRw", "w"};
    TextBox txtSRw{fraShadRel, "txtSRw", "0"};
    ScrollBar vscSRw{fraShadRel, "vscSRw", 0, 1};
    PictureBox picSRLight{fraShadRel, "picSRLight", 41, 41};
    Label lblAspectRotate{fraShadRel, "lblAspectRotate", "Aspect rotate"};

    // Patch count.
    Frame fraClump{*this, "fraClump", "OPC (Clumping)"};
    OptionButton optClumpAspectSlope{fraClump, "optClumpAspectSlope", "Orientation/slope", true};
    OptionButton optClumpContour{fraClump, "optClumpContour", "Contour"};
    OptionButton optClumpCurrentView{fraClump, "optClumpCurrentView", "Current view"};
    Label lblMinClumpSize{fraClump, "lblMinClumpSize", "Min. patch"};
    TextBox txtMinClumpSize{fraClump, "txtMinClumpSize", "2"};
    Label lblClumpStart{fraClump, "lblClumpStart", "Start"};
    TextBox txtClumpStart{fraClump, "txtClumpStart", "0"};
    CheckBox chkClumpSaveImage{fraClump, "chkClumpSaveImage", "Save patch image", true};
    CheckBox chkClumpSingResFile{fraClump, "chkClumpSingResFile", "Save all results to single file"};
    Label lblClumpNameID{fraClump, "lblClumpNameID"};
    Label lblNoClumpsName{fraClump, "lblNoClumpsName", "No. patches"};
    Label lblNoClumps{fraClump, "lblNoClumps"};
    Label lblPDClumpedName{fraClump, "lblPDClumpedName", "Patch divers."};
    Label lblPDClumped{fraClump, "lblPDClumped"};
    CommandButton cmdProcClump{fraClump, "cmdProcClump", "Curr. file"};
    CommandButton cmdProcClumpAllFiles{fraClump, "cmdProcClumpAllFiles", "All files"};

    // Contour, kernels, cusps.
    Frame fraContour{*this, "fraContour", "Contour"};
    OptionButton optContourScaleZ{fraContour, "optContourScaleZ", "xy int ×", true};
    TextBox txtContourScaleZ{fraContour, "txtContourScaleZ", "2"};
    OptionButton optContourScaleR{fraContour, "optContourScaleR", "z range /"};
    TextBox txtContourScaleR{fraContour, "txtContourScaleR", "10"};
    CheckBox chkContourSaveImage{fraContour, "chkContourSaveImage", "Save contour image", true};
    CommandButton cmdProcContour{fraContour, "cmdProcContour", "Curr. file"};
    CommandButton cmdProcContourAllFiles{fraContour, "cmdProcContourAllFiles", "All files"};

    Frame fraProc{*this, "fraProc", "Proc"};
    CommandButton cmdIProc2{fraProc, "cmdIProc2", "Proc2"};
    CommandButton cmdIProc3{fraProc, "cmdIProc3", "Proc3"};
    CommandButton cmdILaPlacian{fraProc, "cmdILaPlacian", "LaPlacian"};
    ComboBox cmbKernelSize{fraProc, "cmbKernelSize", {"3 x 3", "5 x 5", "7 x 7"}, 0};

    Frame fraCMin{*this, "fraCMin", "Min cusp detect"};
    OptionButton optCMinNA{fraCMin, "optCMinNA", "N/A"};
    OptionButton optCMinAbs{fraCMin, "optCMinAbs", "Abs", true};
    TextBox txtCMinAbs{fraCMin, "txtCMinAbs", "0.1"};
    OptionButton optCMinProp{fraCMin, "optCMinProp", "Prop"};
    TextBox txtCMinProp{fraCMin, "txtCMinProp", "0.1"};

    Frame fraCDiff{*this, "fraCDiff", "Diff b/w cusps"};
    OptionButton optCDiffNA{fraCDiff, "optCDiffNA", "N/A"};
    OptionButton optCDiffAbs{fraCDiff, "optCDiffAbs", "Abs", true};
    TextBox txtCDiffAbs{fraCDiff, "txtCDiffAbs", "0.1"};
    OptionButton optCDiffProp{fraCDiff, "optCDiffProp", "Prop"};
    TextBox txtCDiffProp{fraCDiff, "txtCDiffProp", "0.1"};

    Frame fraImageOutput{*this, "fraImageOutput", "Output image"};
    CommandButton cmdImageOutput{fraImageOutput, "cmdImageOutput", "Output image"};
    CommandButton cmdImageProcOutput{fraImageOutput, "cmdImageProcOutput", "Output processed image"};
    Label lblImageProcExportAddText{fraImageOutput, "lblImageProcExportAddText", "Added to name"};
    TextBox txtImageProcExportAddText{fraImageOutput, "txtImageProcExportAddText", "C"};

    // Statistics.
    Frame fraStats{*this, "fraStats", "Statistics"};
    CommandButton cmdCalcStats{fraStats, "cmdCalcStats", "Calculate"};
    Label lblSA{fraStats, "lblSA", "SA"};
    TextBox txtSA{fraStats, "txtSA"};
    Label lblVol{fraStats, "lblVol", "Vol"};
    TextBox txtVol{fraStats, "txtVol"};
    Label lblSAVolRat{fraStats, "lblSAVolRat", "SA/Vol"};
    TextBox txtSAVolRat{fraStats, "txtSAVolRat"};
    CommandButton cmdCalcStatsAll{fraStats, "cmdCalcStatsAll", "All teeth"};
    CheckBox chkCSMaxHt{fraStats, "chkCSMaxHt", "MaxHt", true};
    CheckBox chkCSSA{fraStats, "chkCSSA", "SA", true};
    CheckBox chkCSVol{fraStats, "chkCSVol", "Vol", true};
    CheckBox chkCSSAVolRat{fraStats, "chkCSSAVolRat", "SA/Vol", true};
    CheckBox chkCSLaP{fraStats, "chkCSLaP", "LaPlac"};
    OptionButton optCSMaxHtSort{fraStats, "optCSMaxHtSort", "by MaxHt", true};
    OptionButton optCSSASort{fraStats, "optCSSASort", "by SA"};
    OptionButton optCSVolSort{fraStats, "optCSVolSort", "by Vol"};
    OptionButton optCSSAVolRatSort{fraStats, "optCSSAVolRatSort", "by SA/Vol"};
    OptionButton optCSLaPSort{fraStats, "optCSLaPSort", "by LaPlac"};
    CheckBox chkCSSort{fraStats, "chkCSSort", "Sort", true};
    CheckBox chkCSShowSorted{fraStats, "chkCSShowSorted", "Show sorted", true};
    CommandButton cmdCSSort{fraStats, "cmdCSSort", "Sort"};
    CommandButton Command1{fraStats, "Command1", "Orig Order"};

    Frame fraShannon{*this, "fraShannon", "Shannon"};
    CommandButton cmdShannonInfo{fraShannon, "cmdShannonInfo", "Height"};
    Label lblShannonInfoName{fraShannon, "lblShannonInfoName", "Shannon Ht"};
    Label lblShannonInfo{fraShannon, "lblShannonInfo"};

    // Multi-tooth files.
    Frame fraMulti{*this, "fraMulti", "Multi-tooth file"};
    CommandButton cmdReadMultiCSV{fraMulti, "cmdReadMultiCSV", "Read multi- tooth file"};
    CheckBox chkSplitMTAIF{fraMulti, "chkSplitMTAIF", "Split file to max:", true};
    TextBox txtMTAIF{fraMulti, "txtMTAIF", "10000"};
    Label lblNoTeethName{fraMulti, "lblNoTeethName", "Number of teeth in file:"};
    Label lblNoTeeth{fraMulti, "lblNoTeeth", "0"};
    CommandButton cmdViewMultiCSV{fraMulti, "cmdViewMultiCSV", "View multi-teeth"};
    OptionButton optViewTeethAll{fraMulti, "optViewTeethAll", "View all teeth", true};
    OptionButton optViewTeethSubset{fraMulti, "optViewTeethSubset", "View teeth:"};
    TextBox txtViewTeethStart{fraMulti, "txtViewTeethStart"};
    TextBox txtViewTeethEnd{fraMulti, "txtViewTeethEnd"};
    OptionButton optViewTeethOne{fraMulti, "optViewTeethOne", "View tooth:"};
    TextBox txtViewTeethOne{fraMulti, "txtViewTeethOne"};
    Label lblPause{fraMulti, "lblPause", "Pause between teeth:"};
    TextBox txtPause{fraMulti, "txtPause", "0.002"};
    Label lblCurrTooth{fraMulti, "lblCurrTooth", "Tooth number:"};
    TextBox txtCurrTooth{fraMulti, "txtCurrTooth"};
    Slider sldToothNo{fraMulti, "sldToothNo"};
    CheckBox chkZScaleAllT{fraMulti, "chkZScaleAllT", "Use same gray scale for all teeth"};

    Frame fraParams{*this, "fraParams", "Parameters"};
    Label lblParam1{fraParams, "lblParam(1)", "1"};
    TextBox txtParam1{fraParams, "txtParam(1)"};
    Label lblParam2{fraParams, "lblParam(2)", "2"};
    TextBox txtParam2{fraParams, "txtParam(2)"};
    Label lblParam3{fraParams, "lblParam(3)", "3"};
    TextBox txtParam3{fraParams, "txtParam(3)"};
    Label lblParam4{fraParams, "lblParam(4)", "4"};
    TextBox txtParam4{fraParams, "txtParam(4)"};
    Label lblParam5{fraParams, "lblParam(5)", "5"};
    TextBox txtParam5{fraParams, "txtParam(5)"};
    Label lblParam6{fraParams, "lblParam(6)", "6"};
    TextBox txtParam6{fraParams, "txtParam(6)"};
    Label lblParam7{fraParams, "lblParam(7)", "7"};
    TextBox txtParam7{fraParams, "txtParam(7)"};
    Label lblParam8{fraParams, "lblParam(8)", "8"};
    TextBox txtParam8{fraParams, "txtParam(8)"};
    Label lblParam9{fraParams, "lblParam(9)", "9"};
    TextBox txtParam9{fraParams, "txtParam(9)"};
    Label lblParam10{fraParams, "lblParam(10)", "10"};
    TextBox txtParam10{fraParams, "txtParam(10)"};
    Label lblParam11{fraParams, "lblParam(11)", "11"};
    TextBox txtParam11{fraParams, "txtParam(11)"};

    Frame fraCTFiles{*this, "fraCTFiles", "Model files"};
    CommandButton cmdCTFiles{fraCTFiles, "cmdCTFiles", "CTFiles"};
    CheckBox chkCTFilesAll{fraCTFiles, "chkCTFilesAll", "All files"};
    TextBox txtTempCTFiles{fraCTFiles, "txtTempCTFiles"};
    CommandButton cmdCTFExtract{fraCTFiles, "cmdCTFExtract", "Extract"};
    TextBox txtCTFENo{fraCTFiles, "txtCTFENo", "1000"};
    Label lblExtractCurr{fraCTFiles, "lblExtractCurr", "Current"};
    TextBox txtExtractCurr{fraCTFiles, "txtExtractCurr"};
    Label lblExtractTotal{fraCTFiles, "lblExtractTotal", "Total"};
    TextBox txtExtractTotal{fraCTFiles, "txtExtractTotal"};

    // Mirror, rotate, outputs.
    Frame fraMirror{*this, "fraMirror", "Mirror CSV"};
    CommandButton cmdMirrorHoriz{fraMirror, "cmdMirrorHoriz", "Horiz"};
    CommandButton cmdMirrorVert{fraMirror, "cmdMirrorVert", "Vert"};
    Frame fraRotate{*this, "fraRotate", "Rotate CSV"};
    CommandButton cmdRotateCW{fraRotate, "cmdRotateCW"};
    CommandButton cmdRotateACW{fraRotate, "cmdRotateACW"};
    CommandButton cmdRotate180{fraRotate, "cmdRotate180"};
    Frame fraSingle{*this, "fraSingle", "Single tooth"};
    CommandButton cmdOutputSingleCSV{fraSingle, "cmdOutputSingleCSV", "csv"};
    CommandButton cmdOutputSingleTIF{fraSingle, "cmdOutputSingleTIF", "tif"};
    CommandButton cmdOutputSingleWRL{fraSingle, "cmdOutputSingleWRL", "wrl"};
    Frame fraMultiOutput{*this, "fraMultiOutput", "Multi-tooth"};
    CommandButton cmdOutputMultiCSV{fraMultiOutput, "cmdOutputMultiCSV", "csv"};
    CommandButton cmdOutputMultiTIF{fraMultiOutput, "cmdOutputMultiTIF", "tif"};
    VrmlView Cortona1{*this, "Cortona1"};
    CommandButton cmdCopyWRL{*this, "cmdCopyWRL", "Copy"};

    /// Picture box of slot 1 to 4.
    PictureBox& SlotBox(int slot);
    /// Text box of parameter 1 to 11.
    TextBox& ParamBox(int parameter);
};

// Reading (frm_csv_view_read.cpp).
void cmdReadCSV_Click(FrmCSVView& form);
void cmdOutputCSV_Click(FrmCSVView& form);
/// Says that a file has to be chosen if the name box holds none; true then.
bool NoFileChosen(FrmCSVView& form);
/// Takes names and folder from the chooser. InvalidCall for a file name of fewer than four characters.
void TakeSurfaceNames(FrmCSVView& form);
/// Takes the way in which the grid's size is found from its options.
void TakeGridSizeMode(FrmCSVView& form);
/// Limits, size and cells of the points, extents and steps in hand. Throws what building cells does, and
/// SubscriptOutOfRange where no grid size was ever chosen.
void BuildSurface(ViewerState& state, CellRule rule);

// Display (frm_csv_view_display.cpp).
void cmdViewCSV_Click(FrmCSVView& form);
void cmdICopy_Click(FrmCSVView& form);
void cmdCopyPicBox_Click(FrmCSVView& form);
void ClearPicBox(FrmCSVView& form);
void ViewWorkGrid(FrmCSVView& form);
/// Draws a slot into its box. `mode` -10 makes its raster anew, another value only stretches the one there is.
void ViewICSV(FrmCSVView& form, int slot, int mode);
/// Copies between boxes: -1 the working copy, 0 the result, 1 to 4 a slot.
void CopyPicBoxProc(FrmCSVView& form, int from, int to);
/// Stores level `source` of the patch count's stages in a slot and shows it.
void DisplayResultsIPicBox(FrmCSVView& form, int source, int slot);

// Orientation and slope (frm_csv_view_aspect.cpp).
void cmdProcAspectSlope_Click(FrmCSVView& form);
void AspectSlopeCalc(FrmCSVView& form);
/// The scroll bars of the light take the values of their text boxes.
void TakeScrollBarValues(FrmCSVView& form);
void RenderProcGrid(FrmCSVView& form);

// Patch count (frm_csv_view_clump.cpp).
void cmdProcClump_Click(FrmCSVView& form);
void UpdateClumpName(FrmCSVView& form);

// Contour, kernels, images (frm_csv_view_process.cpp).
void cmdProcContour_Click(FrmCSVView& form);
/// The contour run itself. False if a value was refused with a message.
bool ProcessContour(FrmCSVView& form);
void cmdIProc2_Click(FrmCSVView& form);
void cmdIProc3_Click(FrmCSVView& form);
void cmdILaPlacian_Click(FrmCSVView& form);
void cmdImageOutput_Click(FrmCSVView& form);
void cmdImageProcOutput_Click(FrmCSVView& form);

// Statistics (frm_csv_view_stats.cpp).
void cmdCalcStats_Click(FrmCSVView& form);
void cmdCalcStatsAll_Click(FrmCSVView& form);
void cmdCSSort_Click(FrmCSVView& form);
void cmdShannonInfo_Click(FrmCSVView& form);
void chkCSSA_Click(FrmCSVView& form);
void chkCSVol_Click(FrmCSVView& form);

// Multi-tooth files (frm_csv_view_multi.cpp, frm_csv_view_model_files.cpp).
void cmdReadMultiCSV_Click(FrmCSVView& form);
void cmdReadMultiCSV_KeyDown(FrmCSVView& form, const std::string& key);
void cmdViewMultiCSV_Click(FrmCSVView& form);
void cmdViewMultiCSV_KeyDown(FrmCSVView& form, const std::string& key);
void sldToothNo_Change(FrmCSVView& form);
void chkZScaleAllT_Click(FrmCSVView& form);
void CopyMultiCSVtoCSV(FrmCSVView& form);
void cmdCTFiles_Click(FrmCSVView& form);
void cmdCTFExtract_Click(FrmCSVView& form);

// Mirror, rotate, outputs (frm_csv_view_outputs.cpp).
void cmdMirrorHoriz_Click(FrmCSVView& form);
void cmdMirrorVert_Click(FrmCSVView& form);
void cmdRotateCW_Click(FrmCSVView& form);
void cmdRotateACW_Click(FrmCSVView& form);
void cmdRotate180_Click(FrmCSVView& form);
void cmdOutputSingleCSV_Click(FrmCSVView& form);
void cmdOutputMultiCSV_Click(FrmCSVView& form);
void cmdOutputSingleTIF_Click(FrmCSVView& form);
void cmdOutputSingleWRL_Click(FrmCSVView& form);
void cmdCopyWRL_Click(FrmCSVView& form);

// All files (frm_csv_view_batch.cpp).
/// What a batch runs on each surface file of the folder.
enum class BatchKind { Clump, AspectSlope, Contour };
void ProcessAllFiles(FrmCSVView& form, BatchKind kind);

}  // namespace crownlab
