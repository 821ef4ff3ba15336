// Converts 16-bit integers to floats, and floats to a binary image.
#include "ORLIXIPL/ORLIXIPLUtility/Processor/ConvertImg/ConvertImg.h"
#include "ORLIXIPL/ORLIXImageIO/ReadImage.h"
#include "ORLIXIPL/ORLIXImageIO/WriteImage.h"

int main()
{
    using namespace orlix;
    using image::eImageBufferType;
    const ImagePtr head = image::io::readImage("head.tif");
    const ImagePtr real = imaproc::util::convertImg(head, eImageBufferType::Real32);
    image::io::writeImage("real.tif", real);
    image::io::writeImage("binary.tif", imaproc::util::convertImg(real, eImageBufferType::eBufferBinary));
}
