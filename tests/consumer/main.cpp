// Makes an image, copies it, takes the copy through a file and checks every pixel.
#include "ORLIXIPL/ORLIXIPLUtility/ORLIXIPLUtility.h"
#include "ORLIXIPL/ORLIXImage/ORLIXImage.h"
#include "ORLIXIPL/ORLIXImageIO/ORLIXImageIO.h"

#include <cstdio>

namespace image = orlix::image;

namespace {

constexpr unsigned long g_sizeX = 37, g_sizeY = 11, g_sizeZ = 3;

unsigned short valueAt(unsigned long x, unsigned long y, unsigned long z)
{
    return static_cast<unsigned short>(1000 * z + 50 * y + x);
}

template <class TVisitor>
void forEachPixel(image::BaseImage& img, const TVisitor& visit)
{
    for (unsigned long z = 0; z < g_sizeZ; ++z) {
        unsigned short* plan = image::planData<unsigned short>(img, z, 0, 0);
        for (unsigned long y = 0; y < g_sizeY; ++y) {
            for (unsigned long x = 0; x < g_sizeX; ++x) {
                visit(plan[y * image::rowPitch(img) + x], valueAt(x, y, z));
            }
        }
    }
}

} // namespace

int main(int argc, char** argv)
{
    if (argc != 2) {
        std::fprintf(stderr, "usage: consumer <file to write>\n");
        return 2;
    }
    const auto geometry = image::geometry3d(image::eImageBufferType::UInt16, g_sizeX, g_sizeY, g_sizeZ);
    const orlix::ImagePtr original = image::createImage(*geometry);
    forEachPixel(*original, [](unsigned short& pixel, unsigned short value) { pixel = value; });

    image::io::writeImage(argv[1], orlix::imaproc::util::copyImg(original));
    const orlix::ImagePtr back = image::io::readImage(argv[1]);
    if (back->getSizeX() != g_sizeX || back->getSizeY() != g_sizeY || back->getSizeZ() != g_sizeZ) {
        std::puts("the image came back with other sizes");
        return 1;
    }
    unsigned long nbWrong = 0;
    forEachPixel(*back, [&](unsigned short& pixel, unsigned short value) { nbWrong += pixel != value; });
    std::printf("%lu of %lu pixels differ\n", nbWrong, g_sizeX * g_sizeY * g_sizeZ);
    return nbWrong == 0 ? 0 : 1;
}
