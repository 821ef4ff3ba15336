#include "ORLIXIPL/ORLIXBaseImageTools/BorderPolicy.h"

namespace orlix::image {

unsigned long mirorPosition(unsigned long position, unsigned long size)
{
    if (position < size) {
        return position;
    }
    const long period = 2 * static_cast<long>(size); // no axis with pixels on it is so long that this overflows
    long place = static_cast<long>(position) % period;
    place = place < 0 ? place + period : place;
    return static_cast<unsigned long>(place < static_cast<long>(size) ? place : period - 1 - place);
}

Border2dPolicy mirorBorder2d()
{
    return {&mirorPosition, &mirorPosition};
}

Border3dPolicy mirorBorder3d()
{
    return {&mirorPosition, &mirorPosition, &mirorPosition};
}

} // namespace orlix::image
