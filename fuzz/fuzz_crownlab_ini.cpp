// The settings file: whatever it holds, the program starts or says why not, and both writers leave it in order.

#include "fuzz_folder.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace crownlab;
    FreshFolder();
    PutInput("Crownlab.ini", data, size);
    PlayQuietly(
        "start\n"
        "open frmDefDir\n"
        "press frmDefDir.DirC\n"
        "press frmDefDir.cmdUpdateDefDir\n"
        "press frmStartup.mnuSurf6\n"
        "open frmCSVView\n"
        "press frmCSVView.Command3\n");
    // A file of two lines, which the writers have made, starts without a failure.
    if (std::filesystem::file_size("Crownlab.ini") > 0) PlayQuietly("start\n");
    return 0;
}
