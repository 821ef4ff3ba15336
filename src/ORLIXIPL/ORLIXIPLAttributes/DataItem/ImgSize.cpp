#include "ORLIXIPL/ORLIXIPLAttributes/DataItem/ImgSize.h"

#include "ORLIX/ORLIXUtil/DynamicRegistrator.h"

namespace orlix::imaproc::attr {

namespace {

const DynamicRegistrator<Img2dSize> g_registration2d;
const DynamicRegistrator<Img3dSize> g_registration3d;

} // namespace

boost::shared_ptr<const Img2dSize> createImg2dSize(unsigned long x, unsigned long y)
{
    const auto size = boost::make_shared<Img2dSize>();
    size->X = x;
    size->Y = y;
    return size;
}

boost::shared_ptr<const Img3dSize> createImg3dSize(unsigned long x, unsigned long y, unsigned long z)
{
    const auto size = boost::make_shared<Img3dSize>();
    size->X = x;
    size->Y = y;
    size->Z = z;
    return size;
}

} // namespace orlix::imaproc::attr
