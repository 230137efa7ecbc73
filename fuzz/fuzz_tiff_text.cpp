// The text of an image, by both ways to tell its sizes. Only small ones are gridded: the reader is what is tried.

#include "basis/failure.h"
#include "convert/tiff_text.h"
#include "fuzz_folder.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace crownlab;
    constexpr std::uint64_t mostValues = 2500;
    const std::string_view text(reinterpret_cast<const char*>(data), size);
    try {
        const TiffShape shape = ShapeOfTiffText(text, "image.txt");
        if (ReadTiffValues(text, "image.txt", shape).size() > mostValues) return 0;
    } catch (const Failure&) {
        // The window comes to the same end, with a box.
    }
    FreshFolder();
    PutInput("image.txt", data, size);
    const std::string_view convert = "set frmConversion.File1 image.txt\npress frmConversion.cmdConvert\n";
    PlayQuietly(
        "open frmConversion\n"
        "set frmConversion.cmbFromFileType \"Tiff text file (*.txt)\"\n"
        "set frmConversion.cmbToFileType \"Surfer grid file (*.grd)\"\n"
        "set frmConversion.X_Field 2\n"
        "set frmConversion.Y_Field 3\n"
        "set frmConversion.Z_Field 5.1\n" +
        std::string(convert) +
        "set frmConversion.SSTab1 1\n"
        "set frmConversion.X_Input_Int 0.5\n"
        "set frmConversion.Y_Input_Int -1\n"
        "set frmConversion.Z_Input_Height 1e300\n" +
        std::string(convert));
    return 0;
}
