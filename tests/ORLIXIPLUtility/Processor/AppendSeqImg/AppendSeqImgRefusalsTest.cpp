// What appendSeqImg refuses, and that it then has changed nothing; its asynchronous forms.
#include "ORLIXIPL/ORLIXBaseImageTools/SubImageExtractor.h"
#include "ORLIXIPL/ORLIXIPLUtility/ORLIXIPLUtility.h"
#include "ORLIXIPLUtility/ProcessorChecks.h"
#include "support/SameImages.h"
#include "support/StepImages.h"

namespace orlix::imaproc::util {
namespace {

using image::createImage;
using image::eImageBufferType;
using image::geometry2d;
using image::geometry3d;
using image::geometry5d;
using testing::bytesOf;
using testing::makeRandom;
using testing::messageOf;
using testing::sameImages;

constexpr auto g_uint8 = eImageBufferType::UInt8;

/// The text of the failure; no image is changed by it.
std::string refusalOf(const ImagePtr& first, const ImagePtr& second, const ImagePtr& out)
{
    const std::vector<ImagePtr> images = {first, second, out};
    std::vector<ImagePtr> before;
    for (const ImagePtr& each : images) {
        before.push_back(testing::plainCopy(*each));
    }
    const std::string message = messageOf([&] { appendSeqImg(first, second, out); });
    for (std::size_t i = 0; i < images.size(); ++i) {
        EXPECT_TRUE(sameImages(*before[i], *images[i]));
    }
    return message;
}

TEST(AppendSeqImgRefusals, inputsOfOtherSizes)
{
    const ImagePtr first = makeRandom(*geometry5d(g_uint8, 5, 4, 3, 2, 2));
    const ImagePtr out = makeRandom(*geometry5d(g_uint8, 5, 4, 3, 2, 4));
    for (const auto& other : {geometry5d(g_uint8, 6, 4, 3, 2, 2), geometry5d(g_uint8, 5, 3, 3, 2, 2),
                              geometry5d(g_uint8, 5, 4, 2, 2, 2), geometry5d(g_uint8, 5, 4, 3, 1, 2)}) {
        const std::string text = "InImg2 is " + other->toString() +
                                 ", InImg1 is 5x4x3x2x2 UInt8: sizes on x, y, z and c have to be the same";
        const ImagePtr second = makeRandom(*other);
        EXPECT_EQ(refusalOf(first, second, out), text);
        EXPECT_EQ(refusalOf(first, second, first), text);
        EXPECT_EQ(messageOf([&] { static_cast<void>(appendSeqImg(first, second)); }), text);
    }
}

TEST(AppendSeqImgRefusals, aPlanIsNoVolumeOfOnePlan)
{
    const ImagePtr plan = makeRandom(*geometry2d(g_uint8, 5, 4));
    const ImagePtr volume = makeRandom(*geometry3d(g_uint8, 5, 4, 1));
    const std::string text = "InImg2 has volumes, InImg1 has single plans: give volumes or single plans for both";
    EXPECT_EQ(messageOf([&] { static_cast<void>(appendSeqImg(plan, volume)); }), text);
    EXPECT_EQ(refusalOf(plan, volume, plan), text);
    EXPECT_EQ(refusalOf(plan, plan, makeRandom({g_uint8, 5, 4, volume->getGeometry().getVolumeGeometry(), {}, {}})),
              "OutImg has volumes, InImg1 has single plans: give volumes or single plans for both");
}

TEST(AppendSeqImgRefusals, outputsOfOtherSizes)
{
    const ImagePtr first = makeRandom(*geometry5d(g_uint8, 5, 4, 1, 1, 3));
    const ImagePtr second = makeRandom(*geometry5d(g_uint8, 5, 4, 1, 1, 4), 2);
    EXPECT_EQ(refusalOf(first, second, makeRandom(*geometry5d(g_uint8, 5, 4, 1, 1, 6))),
              "OutImg is 5x4x1x1x6 UInt8, but needs 7 along t where it has 6");
    EXPECT_EQ(refusalOf(first, second, makeRandom(*geometry5d(g_uint8, 5, 4, 1, 1, 8))),
              "OutImg is 5x4x1x1x8 UInt8, but needs 7 along t where it has 8");
    EXPECT_EQ(refusalOf(first, second, makeRandom(*geometry5d(g_uint8, 5, 5, 1, 1, 7))),
              "OutImg is 5x5x1x1x7 UInt8, InImg1 is 5x4x1x1x3 UInt8: sizes on x, y, z and c have to be the same");
}

TEST(AppendSeqImgRefusals, anOutputOfOtherTypes)
{
    for (const unsigned long sizeX : {5UL, 300000UL}) { // little work, and work that is dispatched
        const std::string plans = std::to_string(sizeX) + "x4x1x1x";
        const ImagePtr first = makeRandom(*geometry5d(g_uint8, sizeX, 4, 1, 1, 3));
        const ImagePtr second = makeRandom(*geometry5d(eImageBufferType::Int8, sizeX, 4, 1, 1, 2), 2);
        const ImagePtr out = makeRandom(*geometry5d(eImageBufferType::UInt16, sizeX, 4, 1, 1, 5), 3);
        const std::string end = ": element types have to be the same";
        EXPECT_EQ(refusalOf(first, second, out),
                  "OutImg is " + plans + "5 UInt16, InImg1 is " + plans + "3 UInt8" + end);
        // The first steps would do.
        const ImagePtr halfRight = makeRandom(*geometry5d(g_uint8, sizeX, 4, 1, 1, 5), 3);
        EXPECT_EQ(refusalOf(first, second, halfRight),
                  "OutImg is " + plans + "5 UInt8, InImg2 is " + plans + "2 Int8" + end);
        // So would the last ones.
        EXPECT_EQ(refusalOf(second, first, halfRight),
                  "OutImg is " + plans + "5 UInt8, InImg1 is " + plans + "2 Int8" + end);
    }
}

TEST(AppendSeqImgRefusals, theSecondInputAsOutput)
{
    const ImagePtr first = makeRandom(*geometry2d(g_uint8, 5, 4));
    const ImagePtr second = makeRandom(*geometry2d(g_uint8, 5, 4), 2);
    const std::string text = "InImg2 and OutImg must not hold the same image: give two";
    EXPECT_EQ(refusalOf(first, second, second), text);
    EXPECT_EQ(refusalOf(first, first, first), text);
    ImagePtr view;
    ASSERT_TRUE(image::SubImageExtractor::extractSubSequence(0, 1, *second, view));
    EXPECT_EQ(refusalOf(first, second, view), text);
    EXPECT_EQ(first->getSizeT(), 1u);
}

TEST(AppendSeqImgRefusals, growthOfWhatOwnsNoPixels)
{
    const ImagePtr second = makeRandom(*geometry2d(g_uint8, 5, 4), 2);
    const testing::WatchedImage watched(*geometry2d(g_uint8, 5, 4), {});
    const ImagePtr owned = makeRandom(*geometry2d(g_uint8, 5, 4));
    ImagePtr view;
    ASSERT_TRUE(image::SubImageExtractor::extractSubSequence(0, 1, *owned, view));
    EXPECT_EQ(refusalOf(watched.get(), second, watched.get()),
              "InImg1 holds an image over a caller's pixels, but an image that owns its pixels is required");
    EXPECT_EQ(refusalOf(view, second, view),
              "InImg1 holds part of another image, but an image that owns its pixels is required");
    EXPECT_EQ(refusalOf(view, second, owned),
              "InImg1 holds part of another image, but an image that owns its pixels is required");
    EXPECT_EQ(refusalOf(owned, second, view),
              "An image of 5x4x1x1x1 UInt8 can't grow in place, since it doesn't own its "
              "pixels in host memory: grow a copy of it");
    EXPECT_TRUE(watched.isOutsideIntact());
}

TEST(AppendSeqImgRefusals, imagesThatAreNotThere)
{
    const ImagePtr image = makeRandom(*geometry2d(g_uint8, 5, 4));
    EXPECT_EQ(messageOf([&] { static_cast<void>(appendSeqImg(ImageConstPtr(), image)); }),
              "AppendSeqImgLvl1: attribute InImg1 holds a null pointer: give it an object that exists");
    EXPECT_EQ(messageOf([&] { static_cast<void>(appendSeqImg(image, ImageConstPtr())); }),
              "AppendSeqImgLvl1: attribute InImg2 holds a null pointer: give it an object that exists");
    EXPECT_EQ(messageOf([&] { appendSeqImg(image, image, ImagePtr()); }),
              "AppendSeqImgLvl1: attribute OutImg holds a null pointer: give it an object that exists");
    EXPECT_EQ(messageOf([&] {
                  static_cast<void>(getAsyncProcessorOutput(boost::shared_ptr<AppendSeqImgLvl1>()));
              }).find("AppendSeqImgLvl1"),
              messageOf([&] {
                  static_cast<void>(getAsyncProcessorOutput(boost::shared_ptr<CopyImgLvl1>()));
              }).find("CopyImgLvl1"));
}

TEST(AppendSeqImgRefusals, memoryThatCannotBeHad)
{
    // An image that exists without the memory that its duplicate would take.
    std::byte element{};
    const ImagePtr huge = image::wrapImage(*geometry2d(g_uint8, 1, 1UL << 46), &element, {1, 0, 0, 0}, nullptr);
    EXPECT_EQ(messageOf([&] {
                  static_cast<void>(appendSeqImg(huge, huge));
              }).find("An image of 1x70368744177664x1x1x2 UInt8 needs 140737488"),
              0u);
}

TEST(AppendSeqImgAsync, bothFormsGiveTheirOutput)
{
    const ImagePtr first = makeRandom(*geometry5d(g_uint8, 300, 200, 1, 1, 2), 1);
    const ImagePtr second = makeRandom(*geometry5d(g_uint8, 300, 200, 1, 1, 1), 2);
    std::vector<std::byte> expected = bytesOf(*first);
    const std::vector<std::byte> others = bytesOf(*second);
    expected.insert(expected.end(), others.begin(), others.end());

    const boost::shared_ptr<AppendSeqImgLvl1> made = appendSeqImg_async(first, second);
    EXPECT_TRUE(made->wait());
    EXPECT_EQ(bytesOf(*getAsyncProcessorOutput(made)), expected);

    const boost::shared_ptr<AppendSeqImgLvl1> grown = appendSeqImg_async(first, second, first);
    EXPECT_TRUE(grown->wait());
    EXPECT_EQ(getAsyncProcessorOutput(grown), first);
    EXPECT_EQ(bytesOf(*first), expected);
}

TEST(AppendSeqImgAsync, aFailedRunHasNoOutput)
{
    const ImagePtr first = makeRandom(*geometry2d(g_uint8, 5, 4));
    const boost::shared_ptr<AppendSeqImgLvl1> failed =
        appendSeqImg_async(first, makeRandom(*geometry2d(g_uint8, 5, 5)));
    EXPECT_EQ(failed->wait().getMessage(), "InImg2 is 5x5x1x1x1 UInt8, InImg1 is 5x4x1x1x1 UInt8: sizes on x, y, z and "
                                           "c have to be the same");
    EXPECT_EQ(getAsyncProcessorOutput(failed), nullptr);
}

TEST(AppendSeqImgLvl1, isUsedAgain)
{
    const auto append = testing::makeInitialised<AppendSeqImgLvl1>();
    const ImagePtr image = makeRandom(*geometry2d(g_uint8, 5, 4), 1);
    append->set<attr::InImg1>(image);
    append->set<attr::InImg2>(makeRandom(*geometry2d(g_uint8, 5, 4), 2));
    append->set<attr::OutImg>(image);
    EXPECT_TRUE(append->run(core::eSynchroType::eSynchroSync));
    EXPECT_TRUE(append->run(core::eSynchroType::eSynchroSync));
    EXPECT_EQ(image->getSizeT(), 3u);
    const std::vector<std::byte> all = bytesOf(*image);
    EXPECT_TRUE(std::equal(all.begin() + 20, all.begin() + 40, all.begin() + 40));
}

} // namespace
} // namespace orlix::imaproc::util
