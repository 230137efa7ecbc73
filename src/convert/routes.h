#pragma once

namespace crownlab {

struct FrmConversion;

/// The converters, named for their two formats. Each walks the batch of the window or takes the one file that is
/// chosen in it.

/// Scanner points, grid by grid over the batch.
void ConvertTXT_GRD(FrmConversion& form);
/// The text of an image, one file.
void ConvertTIFF_GRD(FrmConversion& form);

}  // namespace crownlab
