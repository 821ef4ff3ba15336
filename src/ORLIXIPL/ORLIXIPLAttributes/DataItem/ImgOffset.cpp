#include "ORLIXIPL/ORLIXIPLAttributes/DataItem/ImgOffset.h"

#include "ORLIX/ORLIXUtil/DynamicRegistrator.h"

namespace orlix::imaproc::attr {

namespace {

const DynamicRegistrator<Img2dOffset> g_registration2d;
const DynamicRegistrator<Img3dOffset> g_registration3d;

} // namespace

boost::shared_ptr<const Img2dOffset> createImg2dOffset(unsigned long x, unsigned long y)
{
    const auto offset = boost::make_shared<Img2dOffset>();
    offset->X = x;
    offset->Y = y;
    return offset;
}

boost::shared_ptr<const Img3dOffset> createImg3dOffset(unsigned long x, unsigned long y, unsigned long z)
{
    const auto offset = boost::make_shared<Img3dOffset>();
    offset->X = x;
    offset->Y = y;
    offset->Z = z;
    return offset;
}

} // namespace orlix::imaproc::attr
