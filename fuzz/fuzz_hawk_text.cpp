// Scanner points through the look at them and the gridding by both ways to lay the nodes, turned over too.

#include "fuzz_folder.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace crownlab;
    FreshFolder();
    PutInput("scan.txt", data, size);
    const std::string_view convert =
        "press frmConversion.cmdConvert\n"
        "press frmConversion.cmdClearFilenames\n";
    PlayQuietly(
        "open frmConversion\n"
        "set frmConversion.cmbFromFileType \"Text file (Hawk) (*.txt)\"\n"
        "set frmConversion.cmbToFileType \"Surfer grid file (*.grd)\"\n"
        "set frmConversion.File1 scan.txt\n"
        "press frmConversion.cmdExamineFile\n"
        // Few nodes, so that the time goes into the reading.
        "set frmConversion.optMaxNoRows on\n"
        "set frmConversion.txtMaxNoRows 4\n"
        "set frmConversion.optInvDist on\n" +
        std::string(convert) + "set frmConversion.chkMould on\n" + std::string(convert) +
        "set frmConversion.optKrig on\n" + std::string(convert));
    return 0;
}
