// A library that uses the operators, for programs that load and unload it.
#include "ORLIX/ORLIXUtil/BaseException.h"
#include "ORLIXIPL/ORLIXIPLUtility/ORLIXIPLUtility.h"
#include "ORLIXIPL/ORLIXImage/ORLIXImage.h"

/// Copies an image, with wrong and with right arguments. True where each did what it should.
extern "C" __attribute__((visibility("default"))) bool useOperators(unsigned long sizeX, unsigned long sizeY)
{
    using namespace orlix;
    const auto geometry = image::geometry2d(image::eImageBufferType::UInt8, sizeX, sizeY);
    const ImagePtr source = image::createImage(*geometry);
    unsigned char* const pixels = image::planData<unsigned char>(*source, 0, 0, 0);
    for (unsigned long i = 0; i < sizeX * sizeY; ++i) {
        pixels[i] = static_cast<unsigned char>(i % 251);
    }
    const ImagePtr copy = imaproc::util::copyImg(source);
    const unsigned char* const copied = image::planData<unsigned char>(*copy, 0, 0, 0);
    for (unsigned long i = 0; i < sizeX * sizeY; ++i) {
        if (copied[i] != i % 251) {
            return false;
        }
    }
    try {
        imaproc::util::copyImg(source, image::createImage(*image::geometry2d(image::eImageBufferType::UInt8, 1, 1)));
    } catch (const BaseException&) {
        return true;
    }
    return false;
}
