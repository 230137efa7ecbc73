#pragma once

namespace crownlab {

struct FrmConversion;

/// The converters, named for their two formats. Each walks the batch of the window or takes the one file that is
/// chosen in it.

/// Scanner points, grid by grid over the batch.
void ConvertTXT_GRD(FrmConversion& form);
/// The text of an image, one file.
void ConvertTIFF_GRD(FrmConversion& form);
/// Scans of the Picza scanner, over the batch, and one as a surface file.
void ConvertPIX_GRD(FrmConversion& form);
void ConvertPIX_CSV(FrmConversion& form);
/// One grid as a scan of that kind.
void ConvertGRD_PIX(FrmConversion& form);
/// Grids as VRML models, points and drawings, over the batch.
void ConvertGRD_WRL(FrmConversion& form);
void ConvertGRD_DAT(FrmConversion& form);
void ConvertGRD_XYZ(FrmConversion& form);
void ConvertGRD_DXF(FrmConversion& form);
/// One text of points as a VRML model.
void ConvertTIFF_WRL(FrmConversion& form);
void ConvertCSV_WRL(FrmConversion& form);
/// Reads a surface file and says what is wrong with its lines. No file is written.
void ConvertCSV_TIF(FrmConversion& form);

}  // namespace crownlab
