// A scanner file through both of its readers, and out again as far as its window is small.

#include "basis/failure.h"
#include "basis/result_file.h"
#include "convert/picza_file.h"
#include "fuzz_folder.h"

namespace crownlab {
namespace {

template <typename Act>
void Try(const Act& act) {
    try {
        act();
    } catch (const Failure&) {
        // The window shows a box.
    }
}

void ToPoints(FileTable& files) {
    const PiczaHead head = WritePiczaPoints(files, "scan.pix", "points.csv", kPiczaUnit);
    PiczaCounts counts;
    ExtentOfPicza(head, kPiczaUnit, counts);
}

void ToPlaces(FileTable& files) {
    constexpr double most = 20'000;
    int lines = 0;
    const PiczaScan scan = ReadPiczaScan("scan.pix", [&lines] { ++lines; });
    if (static_cast<std::size_t>(lines) != scan.Lines.size()) std::abort();
    if (static_cast<double>(scan.Cols) * scan.Rows > most) return;
    WriteScannedPoints(files, "scanned.csv", scan, kPiczaUnit);
    WriteAllPlaces(files, "places.csv", scan, kPiczaUnit);
    // One record a place, whatever was scanned.
    std::ifstream places("places.csv");
    int records = 0;
    for (std::string line; std::getline(places, line);) ++records;
    if (records != scan.Cols * scan.Rows) std::abort();
}

}  // namespace
}  // namespace crownlab

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace crownlab;
    FreshFolder();
    PutInput("scan.pix", data, size);
    FileTable files;
    Try([&files] { ToPoints(files); });
    Try([&files] { ToPlaces(files); });
    return 0;
}
