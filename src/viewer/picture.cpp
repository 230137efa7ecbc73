#include "viewer/picture.h"

#include <memory>
#include <utility>

#include "viewer/grey_raster.h"

namespace crownlab {

void ShowRaster(FrmCSVView& form, Raster raster, PictureBox& box, int numX, int numY, int longSide) {
    const auto image = std::make_shared<const Raster>(std::move(raster));
    const BoxSize size = SizeOfBox(numX, numY, longSide);
    form.picBoxU.Image = image;
    form.picBoxU.ImageColumns = form.picBoxU.Width = numX;
    form.picBoxU.ImageRows = form.picBoxU.Height = numY;
    box.Image = image;
    box.ImageColumns = numX;
    box.ImageRows = numY;
    box.Width = size.Width;
    box.Height = size.Height;
}

BoxScale ScaleOf(const PictureBox& box, double zMin, double zMax) {
    return {.Drawn = true, .Width = box.Width, .Height = box.Height, .ZMin = zMin, .ZMax = zMax};
}

}  // namespace crownlab
