// A surface file, read with each grid size, then measured in all ways.

#include "fuzz_folder.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace crownlab;
    FreshFolder();
    PutInput("a.csv", data, size);
    PlayQuietly(
        "open frmCSVView\n"
        "set frmCSVView.Text1 a.csv\n"
        "press frmCSVView.cmdReadCSV\n"
        "press frmCSVView.cmdProcClump\n"
        "press frmCSVView.cmdProcContour\n"
        "press frmCSVView.cmdCalcStats\n"
        "press frmCSVView.cmdRotateCW\n"
        "press frmCSVView.cmdMirrorHoriz\n"
        "press frmCSVView.cmdILaPlacian\n"
        "set frmCSVView.chkOrigModelFile on\n"
        "set frmCSVView.optDefaultGridSize on\n"
        "press frmCSVView.cmdReadCSV\n"
        "press frmCSVView.cmdProcAspectSlope\n");
    return 0;
}
