// A polygon model; one that can be read is coloured by points that match some of its vertices, with each of the
// outputs.

#include "basis/failure.h"
#include "fuzz_folder.h"
#include "pointcloud/wrl_polygons.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace crownlab;
    constexpr std::string_view points = "0,0,0,.25\n1,0,0,.5\n0,1,0,.75\n1,1,0,1\n";
    try {
        static_cast<void>(ParseWrlPolygons({reinterpret_cast<const char*>(data), size}, "model.wrl"));
    } catch (const Failure&) {
        return 0;
    }
    FreshFolder();
    PutInput("model.wrl", data, size);
    PutInput("abcde.txt", reinterpret_cast<const std::uint8_t*>(points.data()), points.size());
    const std::string_view choose =
        "press frmPtCloud.cmdClearFilenames\n"
        "set frmPtCloud.Text2 abcde.txt\n"
        "press frmPtCloud.cmdAddFilename\n"
        "set frmPtCloud.Text2 model.wrl\n"
        "press frmPtCloud.cmdAddFilename\n"
        "press frmPtCloud.cmdPointsToWrl\n";
    PlayQuietly("open frmPtCloud\n" + std::string(choose) + "set frmPtCloud.chkOnlyPolyPts off\n" +
                std::string(choose) + "set frmPtCloud.optXYZ on\n" + std::string(choose));
    return 0;
}
