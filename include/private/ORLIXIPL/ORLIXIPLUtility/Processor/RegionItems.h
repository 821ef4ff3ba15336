// Offsets and sizes of regions in the frame of a call: on small regions the making of shared ones takes longer than the
// copy.
#pragma once

#include "ORLIXIPL/ORLIXIPLAttributes/DataItem/ImgOffset.h"
#include "ORLIXIPL/ORLIXIPLAttributes/DataItem/ImgSize.h"

namespace orlix::imaproc::util {

/// Of attr::Img2dOffset or attr::Img2dSize.
template <class TItem>
TItem makeItem(unsigned long x, unsigned long y)
{
    TItem item;
    item.X = x;
    item.Y = y;
    return item;
}
/// Of attr::Img3dOffset or attr::Img3dSize.
template <class TItem>
TItem makeItem(unsigned long x, unsigned long y, unsigned long z)
{
    TItem item = makeItem<TItem>(x, y);
    item.Z = z;
    return item;
}

} // namespace orlix::imaproc::util
