#pragma once

namespace crownlab {

struct FrmCSVView;

// Each part of the window ties its own handlers to their controls.
void RegisterReading(FrmCSVView& form);
void RegisterDisplay(FrmCSVView& form);
void RegisterAspectSlope(FrmCSVView& form);
void RegisterClump(FrmCSVView& form);
void RegisterProcessing(FrmCSVView& form);
void RegisterStatistics(FrmCSVView& form);
void RegisterMultiTooth(FrmCSVView& form);
void RegisterModelFiles(FrmCSVView& form);
void RegisterOutputs(FrmCSVView& form);
void RegisterBatch(FrmCSVView& form);

}  // namespace crownlab
