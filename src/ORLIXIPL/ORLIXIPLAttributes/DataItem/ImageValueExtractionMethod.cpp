#include "ORLIXIPL/ORLIXIPLAttributes/DataItem/ImageValueExtractionMethod.h"

#include "ORLIX/ORLIXUtil/DynamicRegistrator.h"

namespace orlix::imaproc::attr {

namespace {

const DynamicRegistrator<ImageValueExtractionMethod> g_registration;

} // namespace

bool ImageValueExtractionMethod::checkTiledMethod(unsigned long nbCoords, unsigned long nbPixels) const
{
    const unsigned long pixelsPerPoint = get<PixelsPerPoint>();
    unsigned long needed = 0;
    return pixelsPerPoint != s_tiledNever && !__builtin_mul_overflow(nbCoords, pixelsPerPoint, &needed) &&
           needed <= nbPixels;
}

boost::shared_ptr<const ImageValueExtractionMethod> createDefaultImageValueExtractionMethod()
{
    return boost::make_shared<ImageValueExtractionMethod>();
}

boost::shared_ptr<const ImageValueExtractionMethod> createImageValueExtractionMethod(unsigned long pixelsPerPoint)
{
    const auto method = boost::make_shared<ImageValueExtractionMethod>();
    method->access<ImageValueExtractionMethod::PixelsPerPoint>() = pixelsPerPoint;
    return method;
}

} // namespace orlix::imaproc::attr
