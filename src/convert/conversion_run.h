#pragma once

#include <string>

#include "shell/file_batch.h"

namespace crownlab {

struct FrmConversion;

/// What the converters of the window share: the frame of a run over its batch.

/// The start of a converter that needs the mapping program. AutomationFailed if there is none.
void PrepareProgram(FrmConversion& form);

/// Takes the count of files from its box; where it is 0 the chosen name is added, so that a single file needs no
/// adding. Whoever has chosen none is told, and the count stays 0.
void TakeNoFiles(FrmConversion& form);

/// The file `index` (from 1) of the batch. SubscriptOutOfRange if it has no such file.
BatchFile& FileOfBatch(FrmConversion& form, int index);

/// The next file: shows how far the run is, and returns its entry.
BatchFile& StartFile(FrmConversion& form, int index);

/// The end of a converter that makes grids: plots them if that is wanted, empties the progress boxes and the batch.
void EndGridding(FrmConversion& form);

/// True for a name that is none, in the box of a converter of text files.
bool IsNoTextName(const std::string& name);

/// A message of a converter; the pointer is normal by then.
void TellAndStop(FrmConversion& form, const char* text, const char* title);

}  // namespace crownlab
