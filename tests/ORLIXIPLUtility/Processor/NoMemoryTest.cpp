// Outputs that can't be made, since there is no memory of their size or no such size: a clean end of the call, and the
// next one works.
#include "ORLIX/ORLIXBaseProcessing/ORLIXBaseProcessingException.h"
#include "ORLIXIPL/ORLIXIPLUtility/ORLIXIPLUtility.h"
#include "ORLIXIPLUtility/ProcessorChecks.h"
#include "support/Images.h"
#include "support/SameImages.h"

#include <gtest/gtest.h>

namespace orlix::imaproc::util {
namespace {

using image::eImageBufferType;
using testing::makeRandom;
using testing::messageOf;

/// An image that is said to be this large. Nothing is there, so whoever looks at a pixel crashes.
ImagePtr claimed(unsigned long sizeX, unsigned long sizeY)
{
    alignas(64) static std::byte g_nothing[64];
    return image::wrapImage(*image::geometry2d(eImageBufferType::UInt8, sizeX, sizeY), g_nothing, {sizeX, 0, 0, 0},
                            nullptr);
}

void expectNextCallWorks()
{
    const ImagePtr in = makeRandom(*image::geometry2d(eImageBufferType::UInt8, 300, 200));
    EXPECT_TRUE(testing::sameImages(*in, *copyImg(in)));
    EXPECT_TRUE(
        testing::sameImages(*in, *convertImg(convertImg(in, eImageBufferType::Int32), eImageBufferType::UInt8)));
}

struct Claim
{
    unsigned long sizeX;
    unsigned long sizeY;
    std::string copyText;    ///< how the copy fails
    std::string convertText; ///< how the conversion to elements of 4 bytes does
};

/// Behind the plan is room for 64 elements.
const Claim g_claims[] = {
    {1UL << 25, 1UL << 25, "An image of 33554432x33554432x1x1x1 UInt8 needs 1125899906842688 bytes, which can't be had",
     "An image of 33554432x33554432x1x1x1 Real32 needs 4503599627370752 bytes, which can't be had"},
    {1UL << 31, 1UL << 30,
     "An image of 2147483648x1073741824x1x1x1 UInt8 needs 2305843009213694016 bytes, which can't be had",
     "The size of an image of 2147483648x1073741824x1x1x1 Real32 does not fit in 63 bits: make one of its five sizes "
     "smaller"}};

TEST(NoMemoryTest, anOutputThatCannotBeMadeEndsTheCallCleanly)
{
    for (const Claim& claim : g_claims) {
        SCOPED_TRACE(claim.convertText);
        const ImagePtr in = claimed(claim.sizeX, claim.sizeY);
        for (int repetition = 0; repetition < 3; ++repetition) {
            EXPECT_EQ(messageOf([&] { static_cast<void>(copyImg(in)); }).find(claim.copyText), 0U);
            EXPECT_EQ(
                messageOf([&] { static_cast<void>(convertImg(in, eImageBufferType::Real32)); }).find(claim.convertText),
                0U);
            EXPECT_EQ(in.use_count(), 1) << "nothing of the call is kept";
            expectNextCallWorks();
        }
    }
}

TEST(NoMemoryTest, aStartedRunTellsWhenItIsWaitedFor)
{
    for (const Claim& claim : g_claims) {
        SCOPED_TRACE(claim.convertText);
        const ImagePtr in = claimed(claim.sizeX, claim.sizeY);
        const boost::shared_ptr<ConvertImgLvl1> running = convertImg_async(in, eImageBufferType::Real32);
        const ProcessingResult<bool> result = running->wait();
        EXPECT_FALSE(result);
        EXPECT_EQ(result.getMessage().find(claim.convertText), 0U) << result.getMessage();
        EXPECT_EQ(getAsyncProcessorOutput(running), nullptr) << "no half-made image";
        expectNextCallWorks();
    }
}

} // namespace
} // namespace orlix::imaproc::util
