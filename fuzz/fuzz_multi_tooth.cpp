// A multi-tooth file: read, split, filmed, measured and written out again.

#include "fuzz_folder.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace crownlab;
    FreshFolder();
    PutInput("teeth.csv", data, size);
    PlayQuietly(
        "open frmCSVView\n"
        "set frmCSVView.Text1 teeth.csv\n"
        "press frmCSVView.cmdReadMultiCSV\n"
        "press frmCSVView.cmdViewMultiCSV\n"
        "press frmCSVView.cmdCalcStatsAll\n"
        "press frmSaveFile.cmdOK\n"
        "press frmCSVView.cmdOutputSingleCSV\n"
        "set frmCSVView.chkSplitMTAIF on\n"
        "set frmCSVView.txtMTAIF 2\n"
        "press frmCSVView.cmdReadMultiCSV\n");
    return 0;
}
