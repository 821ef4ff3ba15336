// What holds of getSlice3dImg and putSlice3dImg together.
#include "ORLIXIPL/ORLIXIPLUtility/ORLIXIPLUtility.h"
#include "ORLIXIPLUtility/Processor/GetSlice3dImg/SliceOracle.h"
#include "support/SameImages.h"

#include <rapidcheck.h>

namespace orlix::imaproc::util {
namespace {

using image::eImageBufferType;
using testing::makeRandom;
using testing::sameImages;

struct AnyVolume
{
    ImagePtr image;
    eAxis::domain axis;
};

AnyVolume anyVolume()
{
    const Sizes sizes = {*rc::gen::inRange(1UL, 90UL), *rc::gen::inRange(1UL, 30UL), *rc::gen::inRange(1UL, 30UL),
                         *rc::gen::inRange(1UL, 3UL), *rc::gen::inRange(1UL, 3UL)};
    const eImageBufferType type = *rc::gen::elementOf(
        std::vector<eImageBufferType::domain>(image::g_allBufferTypes.begin(), image::g_allBufferTypes.end()));
    const ImagePtr image = makeRandom(*volumeOf(type, sizes), *rc::gen::inRange(1UL, 1000UL));
    return {image, *rc::gen::element(eAxis::eX, eAxis::eY, eAxis::eZ)};
}

TEST(SliceLawsTest, allSlicesPutBackGiveTheVolume)
{
    rc::check([] {
        const AnyVolume in = anyVolume();
        const ImagePtr out = makeRandom(in.image->getGeometry(), 5);
        for (unsigned long index = 0; index < countSlices(*in.image, in.axis); ++index) {
            putSlice3dImg(out, getSlice3dImg(in.image, in.axis, index), in.axis, index, out);
        }
        RC_ASSERT(static_cast<bool>(sameImages(*in.image, *out)));
    });
}

TEST(SliceLawsTest, aSlicePutInIsThereAndNothingElseChanges)
{
    rc::check([] {
        const AnyVolume in = anyVolume();
        const unsigned long nbSlices = countSlices(*in.image, in.axis);
        const unsigned long index = *rc::gen::inRange(0UL, nbSlices);
        const ImagePtr slice = makeRandom(*sliceOf(in.image->getBufferType(), sizesOf(*in.image), in.axis), 6);
        const ImagePtr out = putSlice3dImg(in.image, slice, in.axis, index);
        RC_ASSERT(static_cast<bool>(sameImages(*slice, *getSlice3dImg(out, in.axis, index))));
        for (unsigned long other = 0; other < nbSlices; ++other) {
            RC_ASSERT(other == index || static_cast<bool>(sameImages(*getSlice3dImg(in.image, in.axis, other),
                                                                     *getSlice3dImg(out, in.axis, other))));
        }
    });
}

TEST(SliceLawsTest, putTwiceIsPutOnce)
{
    rc::check([] {
        const AnyVolume in = anyVolume();
        const unsigned long index = *rc::gen::inRange(0UL, countSlices(*in.image, in.axis));
        const ImagePtr slice = makeRandom(*sliceOf(in.image->getBufferType(), sizesOf(*in.image), in.axis), 6);
        const ImagePtr once = putSlice3dImg(in.image, slice, in.axis, index);
        RC_ASSERT(static_cast<bool>(sameImages(*once, *putSlice3dImg(once, slice, in.axis, index))));
        putSlice3dImg(in.image, slice, in.axis, index, in.image);
        RC_ASSERT(static_cast<bool>(sameImages(*once, *in.image)));
    });
}

} // namespace
} // namespace orlix::imaproc::util
