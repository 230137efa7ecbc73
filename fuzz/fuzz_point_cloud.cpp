// A point cloud text file through every tool that reads one: alone, against itself, with small and large bins.

#include "fuzz_folder.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace crownlab;
    FreshFolder();
    PutInput("abcde.txt", data, size);
    PutInput("other.txt", data, size);
    PlayQuietly(
        "open frmPtCloud\n"
        "set frmPtCloud.File2 abcde.txt\n"
        "press frmPtCloud.cmdAddFilename\n"
        "set frmPtCloud.File2 other.txt\n"
        "press frmPtCloud.cmdAddFilename\n"
        "press frmPtCloud.cmdEnamThickCalc\n"
        "press frmPtCloud.cmdClearFilenames\n"
        "set frmPtCloud.txtBinSizeE 0.003\n"
        "set frmPtCloud.File2 abcde.txt\n"
        "press frmPtCloud.cmdAddFilename\n"
        "set frmPtCloud.File2 other.txt\n"
        "press frmPtCloud.cmdAddFilename\n"
        "press frmPtCloud.cmdEnamThickCalc\n"
        "press frmPtCloud.cmdClearFilenames\n"
        "set frmPtCloud.File2 abcde.txt\n"
        "press frmPtCloud.cmdRemoveUndercuts\n"
        "press frmPtCloud.cmdClearFilenames\n"
        "press frmPtCloud.cmdCreateBlankingFile\n"
        "press frmPtCloud.cmdClearFilenames\n"
        "press frmPtCloud.cmdTipCal\n"
        "press frmPtCloud.cmdClearFilenames\n"
        "press frmPtCloud.cmdAddFilename\n"
        "set frmPtCloud.File2 other.txt\n"
        "press frmPtCloud.cmdAddFilename\n"
        "press frmPtCloud.cmdJoinFiles\n");
    return 0;
}
